#pragma once

#include "Grid.h"
#include "Kern.h"
#include "VirtualPlatform.h"

#include <gtest/gtest.h>
#include <map>
#include <string>

namespace qvm::test {

/// An empty data directory and a catalogue with the lines that the clocks show.
struct TimeFixture : testing::Test {
    static constexpr char Slots[] = "/qvm/DAT/TX33Y98BSG9.TBW", PersonGroups[] = "/qvm/DAT/TIMGRP33T7.PBG",
                          LockGroups[] = "/qvm/DAT/TIMGRP44T8_S.SBS", Calendar[] = "/qvm/DAT/KL10X49WTTI.CBW";

    VirtualPlatform welt{{.Year = 2026, .Month = 3, .Day = 5, .Hour = 10, .Minute = 30}};
    Kern kern{welt.World};
    MemoryFiles& disk = welt.Disk;
    std::map<std::string, std::string>& files = welt.Disk.Files;

    TimeFixture() {
        kern.AppPath = "/qvm/";
        auto& lines = kern.Sprache.LanguageText;
        lines[37] = "Nr.";
        lines[92] = "Tag";
        lines[93] = "Von";
        lines[94] = "Bis";
    }

    void Brechen(int operation) {
        disk.Operations = 0;
        disk.FailAt = operation;
    }
};

/// The text padded with blanks to `width` characters.
inline std::string Breit(std::string text, std::size_t width) {
    text.resize(width, ' ');
    return text;
}

/// Cells of a row from column 1 on, joined by "|".
inline std::string Zeile(const Grid& grid, int row) {
    std::string text;
    for (int column = 1; column < grid.Columns(); ++column) {
        text += (column == 1 ? "" : "|") + grid.Text(row, column);
    }
    return text;
}

} // namespace qvm::test
