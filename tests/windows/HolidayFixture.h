#pragma once

#include "FensterFixture.h"
#include "TimeWindows.h"
#include "Words.h"

#include <string>
#include <string_view>

namespace qvm::test {

/// The windows of the two calendars. Today is 05.03.2026; the kinds are L3 and L4.
struct HolidayFixture : FensterFixture {
    static constexpr const char* Calendar = "/q/DAT/KL10X49WTTI.CBW";

    HolidayCalendar& F3() { return programm->Times->F3; }
    HolidayCalendar& F10() { return programm->Times->F10; }
    std::string& File() { return world.Disk.Files[Calendar]; }

    void SetUp() override { Start(); }
    /// Dates and kind of a row with "|" between.
    static std::string Row(const HolidayCalendar& window, int row) {
        return window.FGK.Text(row, 1) + "|" + window.FGK.Text(row, 2) + "|" + window.FGK.Text(row, 3);
    }
    /// Activates the cell and picks the day.
    static void Pick(HolidayCalendar& window, int row, int column, const Datum& day) {
        window.FGK_DblClick(row, column);
        window.MV_Waehlen(day);
    }
    static void Fill(HolidayCalendar& window, int row, const Datum& from, const Datum& to) {
        Pick(window, row, 1, from);
        Pick(window, row, 2, to);
    }
    static void Save(HolidayCalendar& window) { window.Toolbar1_ButtonClick("Speichern"); }
    static void Back(HolidayCalendar& window) { window.Toolbar1_ButtonClick(u8"Zurück"_w); }
    void ExpectWord(Word word) { world.Answers.push_back({.Text = Wort(programm->kern, word)}); }
    /// Cells and colours.
    static std::vector<Cell> Whole(const HolidayCalendar& window) {
        std::vector<Cell> cells;
        for (int row = 1; row <= 20; ++row) {
            for (int column = 0; column < window.FGK.Columns(); ++column) {
                cells.push_back(window.FGK.At(row, column));
            }
        }
        return cells;
    }
    static std::string Blank(int records) { return std::string(static_cast<std::size_t>(records) * 21, ' '); }
};

} // namespace qvm::test
