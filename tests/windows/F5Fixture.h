#pragma once

#include "FensterFixture.h"
#include "PersonWindows.h"

#include <string>
#include <string_view>

namespace qvm::test {

/// The user window over data files that a test writes before it opens it. Rows: user n stands in row n + 1; columns:
/// lock n in column n + 7.
struct F5Fixture : FensterFixture {
    static constexpr const char* Users = "/q/DAT/BX10X52WUJ9.UBW";

    struct F5& Window() {
        return programm->Persons->F5;
    }
    Grid& Cells() { return Window().FGK4; }
    const std::string& Text(int row, int column) { return Cells().Text(row, column); }

    /// Starts the program and opens the window. Its timers stand, so that a test's wait can end.
    void Open() {
        if (!programm) {
            Start();
        }
        Window().F5_FormLaden();
    }
    void Press(std::string_view key) { Window().Toolbar1_ButtonClick(key); }
    void Back() { Press(u8"Zurück"_w); }
    /// From now on the nth file operation fails, and with `rest` all behind it.
    void Break(int n, bool rest) {
        world.Disk.FailAt = world.Disk.Operations + n;
        world.Disk.FailFromThere = rest;
    }
    /// The texts of a row, columns first to last, with "|" between.
    std::string Row(int row, int first, int last) {
        std::string text;
        for (int column = first; column <= last; ++column) {
            text += (column == first ? "" : "|") + Cells().Text(row, column);
        }
        return text;
    }
};

} // namespace qvm::test
