// Arbitrary bytes as a .HST file: the view and the console read it, search it and stay within their bounds.

#include "Ereignisse.h"
#include "F7.h"
#include "F8.h"
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
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    test::VirtualPlatform pc;
    Kern kern(pc.World);
    kern.AppPath = "/";
    kern.Sprache.LanguageText[16] = "a";
    kern.Sprache.LanguageText[17] = "b";
    kern.Sprache.LanguageText[20] = "c";
    pc.Disk.Files["/HIST/H.HST"] = bytes;
    F7 view(kern);
    F8 search(view);
    view.F8_Oeffnen = [&search] { search.F8_Laden(); };
    view.F7_Oeffnen("/HIST/H.HST");
    Require(view.Zeilen() >= 0 && view.Zeilen() < F7::RowCount);
    for (int row = 1; row < F7::RowCount; ++row) {
        for (int column = 1; column < F7Column::Count; ++column) {
            const Cell& cell = view.FGV.At(row, column);
            Require(cell.Text.size() <= LongestHistoryField && (row <= view.Zeilen() || cell.Text.empty()));
            Require(std::all_of(cell.Text.begin(), cell.Text.end(),
                                [](char c) { return static_cast<unsigned char>(c) >= 0x20 && c != 0x7F; }));
        }
    }
    // The first text there is must be found.
    const std::string wanted(RTrim(view.FGV.Text(1, 1)));
    if (!wanted.empty()) {
        view.Toolbar1_ButtonClick("Suchen");
        search.Text1.Text = wanted;
        search.Command1_Click();
        Require(view.FGV.Row == 1 && view.FGV.At(1, 1).BackColor == F7::HitColour);
    }
    const HistoryFile history = Historie_Lesen(bytes);
    Require(history.Events.size() + history.Skipped <= Historie_Zeilen(bytes, 0).Total);
    const std::string csv = Historie_Csv("f", history);
    Require(static_cast<std::size_t>(std::count(csv.begin(), csv.end(), '\n')) == history.Events.size());
    Require(Historie_Tabelle(history).empty() == history.Events.empty());
    return 0;
}
