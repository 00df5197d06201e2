// Any replies of a network adapter, at any time: to data blocks, fingerprints, clock and history requests. Whatever
// comes, no telegram leaves its bounds, no block is sent that is not there, and the history file is made of whole
// lines.

#include "Kern.h"
#include "Link.h"
#include "Network_USB.h"
#include "NetzRahmen.h"
#include "VirtualPlatform.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

using namespace qvm;

void Require(bool held) {
    if (!held) {
        std::abort();
    }
}

/// The input, byte by byte; 0 behind its end.
struct Input {
    const std::uint8_t* data;
    std::size_t size;

    std::uint8_t Next() {
        if (size == 0) {
            return 0;
        }
        --size;
        return *data++;
    }
    std::vector<std::uint8_t> Take(std::size_t count) {
        const std::size_t held = std::min(count, size);
        std::vector<std::uint8_t> bytes(data, data + held);
        data += held;
        size -= held;
        return bytes;
    }
};

/// One reply from the input: a whole frame of a known code, or any bytes.
std::vector<std::uint8_t> Reply(Input& in) {
    constexpr std::array<std::uint8_t, 10> Codes{0x0B, 0x0C, 0x0D, 0x14, 0x15, 0x16, 0x17, 0x1F, 0x20, 0xFF};
    const std::uint8_t kind = in.Next();
    const std::uint8_t block = in.Next();
    const std::vector<std::uint8_t> bytes = in.Take(in.Next() * (kind >= 128 ? std::size_t{5} : std::size_t{1}));
    return kind % 16 < Codes.size() ? test::NetReplyWire(Codes[kind % 16], block, bytes) : bytes;
}

void Fill(Dataset& dataset, Input& in) {
    const std::size_t users = in.Next();
    for (std::size_t n = 0; n < users; ++n) {
        ProgSlot slot;
        slot.Name = "User";
        slot.CodeDigits = n % 3 == 0 ? "EEEEEE" : "123456";
        slot.TransponderA = n % 4 == 1 ? "#1-ID#1:2:3:4:5:6:7:8:9:10:11" : "";
        if (n % 7 == 0) {
            slot.Template.assign(n * 4, 0x02);
        }
        dataset.Slots.push_back(slot);
    }
}

/// Lines of the history files: each ends, and a record's has three tabs.
void Check(const test::MemoryFiles& disk) {
    for (const auto& [path, text] : disk.Files) {
        Require(path.starts_with("/HIST/H_") && path.ends_with(".HST"));
        Require(text.ends_with("\r\n"));
        const auto lines = std::count(text.begin(), text.end(), '\n');
        Require(std::count(text.begin(), text.end(), '\t') == 3 * (lines - 1));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input in{data, size};
    test::VirtualPlatform pc;
    pc.World.ShowMessage = [](const Message&) { return Answer::Ok; };
    Kern kern(pc.World);
    kern.AppPath = "/";
    kern.Sprache.LanguageText.fill("text");
    Link link(kern);
    link.PortNummer = 1;
    Dataset dataset;
    const std::uint8_t kind = in.Next();
    link.Lauf.List.NetMode = (kind & 1U) != 0 ? 0xFF : 0x80;
    link.Lauf.List.RunRow = link.Lauf.List.RunRows = 1;
    Fill(dataset, in);
    Netzlauf run(link, dataset);
    run.LockName = "Lock";
    int ends = 0;
    run.Ansicht = {.Status = {},
                   .Blinken = {},
                   .Balken = [](int maximum, int value, bool) { Require(value >= 0 && value <= maximum); },
                   .Zeile_Markieren = [&](std::string_view, int) { ++ends; },
                   .Zeile_Melden = [&](std::string_view, const std::string&) { ++ends; },
                   .Naechste_Zeile = {},
                   .Programmieren_Planen = {},
                   .Stillstand = {},
                   .Weiter = {},
                   .Frist = {}};
    pc.OnWrite = [&](std::span<const std::uint8_t> bytes) {
        Require(bytes.size() <= 2 * std::size_t{BufferSize});
        Require(run.BlockNumber >= 0 && run.BlockNumber <= std::max(run.BlockCount, 0));
        Require(run.TemplateBytes >= 0 && run.Carry.size() < 22);
        for (int n = bytes.size() > 1 ? in.Next() % 4 : 0; n > 0 && in.size > 0; --n) {
            const int delay = in.Next() * 20;
            pc.Deliver(Reply(in), delay);
        }
    };
    if ((kind & 2U) != 0) {
        Net_Historie_Beginnen(run);
    } else {
        Net_Programmieren_Beginnen(run);
    }
    pc.RunFor(20000);
    if ((kind & 4U) != 0) {
        Net_Abbrechen(run);
        Require(run.Phase == NetPhase::None && link.UsbArmed == 0);
    }
    Require(ends <= 1 && !run.Sending);
    Check(pc.Disk);
    return 0;
}
