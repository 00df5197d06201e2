// Arbitrary records, lock names and cut-offs: whatever comes, each record becomes one line, or two with a state.

#include "Historie.h"
#include "HistorieLesen.h"
#include "Kern.h"
#include "VirtualPlatform.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

void Require(bool held) {
    if (!held) {
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace qvm;
    constexpr std::size_t NameLength = 20, CutoffLength = 10;
    if (size < NameLength + CutoffLength) {
        return 0;
    }
    test::VirtualPlatform pc;
    pc.World.ShowMessage = [](const Message&) { return Answer::Ok; };
    Kern kern(pc.World);
    kern.AppPath = "/";
    kern.Sprache.LanguageText.fill("text");
    Link link(kern);
    const std::string name(reinterpret_cast<const char*>(data), NameLength);
    link.Lauf.Order.HistoryCutoff.assign(reinterpret_cast<const char*>(data + NameLength), CutoffLength);

    std::ptrdiff_t lines = 1;
    int shown = 0;
    for (std::size_t at = NameLength + CutoffLength; at < size; at += HistoryRecordLength) {
        const std::size_t count = std::min<std::size_t>(HistoryRecordLength, size - at);
        link.Rx.RxBuffer.fill(0);
        std::copy_n(data + at, count, link.Rx.RxBuffer.begin() + 14);
        link.Rx.RxLength = 13 + static_cast<int>(count);
        link.Rx.FrameSize = link.Rx.RxLength + 1;
        Require(Historie_Eintrag(link, name, [&shown](std::uint8_t, const std::string&) { ++shown; }));
        const std::uint8_t state = link.RxByte(35) & 0xF0U;
        lines += state >= 0x10 && state <= 0x50 ? 2 : 1;
    }
    Require(shown <= 1);
    if (lines == 1) {
        Require(pc.Disk.Files.empty());
        return 0;
    }
    Require(pc.Disk.Files.size() == 1);
    const auto& file = *pc.Disk.Files.begin();
    Require(file.first.starts_with("/HIST/H_") && std::count(file.first.begin(), file.first.end(), '/') == 2);
    Require(std::count(file.second.begin(), file.second.end(), '\n') == lines);
    // What was written is read again, each state with its event.
    const HistoryFile history = Historie_Lesen(file.second);
    const auto states = std::count_if(history.Events.begin(), history.Events.end(),
                                      [](const HistoryEvent& event) { return !event.State.empty(); });
    Require(history.Skipped == 0 && static_cast<std::ptrdiff_t>(history.Events.size()) + states + 1 == lines);
    return 0;
}
