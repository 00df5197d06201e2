#pragma once

#include "FensterFixture.h"
#include "TimeWindows.h"
#include "Words.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace qvm::test {

/// The windows of the two switch clocks. It is 05.03.2026, a Thursday, 10:30:00. Days are "OFF" and L95 to L104.
struct WeekTimerFixture : FensterFixture {
    static constexpr const char* SlotPath = "/q/DAT/TX33Y98BSG9.TBW";
    /// The identifier of a group that is named at the fixture's first second: 9560 days and 37800 s since 01.01.2000.
    static constexpr const char* IdNow = "PB_826021800";

    WeekTimer& F4() { return programm->Times->F4; }
    WeekTimer& F41() { return programm->Times->F41; }
    std::string& SlotFile() { return world.Disk.Files[SlotPath]; }
    std::string& GroupFile(const WeekTimer& window) {
        return world.Disk.Files[&window == &F4() ? "/q/DAT/TIMGRP33T7.PBG" : "/q/DAT/TIMGRP44T8_S.SBS"];
    }

    void SetUp() override {
        Start();
        programm->kern.Sprache.TagTexte[0] = "OFF";
    }
    static std::string Filled(std::string text, std::size_t width) {
        text.resize(width, ' ');
        return text;
    }
    static std::string SlotRecord(int day, const std::string& from, const std::string& to) {
        return std::string(1, static_cast<char>(day)) + from + to;
    }
    static std::string OffRecords(int count) {
        std::string records;
        for (int n = 0; n < count; ++n) {
            records += SlotRecord(0, "00:00", "00:00");
        }
        return records;
    }
    static std::string GroupRecord(const WeekTimer& window, const GroupEntry& entry) {
        return Filled(entry.Num, 3) + Filled(entry.Name, 40) +
               Filled(entry.Days, static_cast<std::size_t>(window.Traits.Slots.Count)) + Filled(entry.Count, 3) +
               Filled(entry.PbId, 15);
    }
    /// Day, start and end of a slot with "|" between.
    static std::string Slot(const WeekTimer& window, int row) {
        return window.FGK1.Text(row, 1) + "|" + window.FGK1.Text(row, 2) + "|" + window.FGK1.Text(row, 3);
    }
    /// All five cells of a group with "|" between.
    static std::string Group(const WeekTimer& window, int row) {
        std::string cells = window.FGK3.Text(row, 0);
        for (int column = 1; column < 5; ++column) {
            cells += "|" + window.FGK3.Text(row, column);
        }
        return cells;
    }
    static std::string Entry(const WeekTimer& window, int row) {
        const GroupEntry& entry = window.Gruppen[static_cast<std::size_t>(row)];
        return entry.Num + "|" + entry.Name + "|" + entry.Count + "|" + entry.Days + "|" + entry.PbId;
    }
    static void Type(WeekTimer& window, std::string_view keys) {
        for (const char key : keys) {
            window.Text1_KeyPress(key);
        }
    }
    static void Day(WeekTimer& window, int row, int entry) {
        window.FGK1_DblClick(row, 1);
        window.List1_Waehlen(entry);
    }
    /// Types a time, "0830" for one, and takes it over.
    static void Time(WeekTimer& window, int row, int column, std::string_view digits) {
        window.FGK1_DblClick(row, column);
        Type(window, digits);
        window.Text1_KeyPress(Key::Enter);
    }
    static void Fill(WeekTimer& window, int row, int day, std::string_view from, std::string_view to) {
        Day(window, row, day);
        Time(window, row, 2, from);
        Time(window, row, 3, to);
    }
    static void Name(WeekTimer& window, int row, std::string_view name) {
        window.FGK3_DblClick(row, 1);
        window.Text2_Change(name);
        window.Text2_KeyPress(Key::Enter);
    }
    /// Chooses exactly the slots of the map.
    static void Choose(WeekTimer& window, int row, std::string_view map) {
        window.FGK3_DblClick(row, 2);
        for (std::size_t n = 0; n < map.size(); ++n) {
            if (window.List2.Entries()[n].Checked != (map[n] == 'X')) {
                window.List2_Schalten(static_cast<int>(n), map[n] == 'X');
            }
        }
        window.List2_Uebernehmen();
    }
    static void Delete(WeekTimer& window, int row) {
        window.FGK3_MouseUp(MouseButton::Right, row, 1);
        window.Loeschen_Click();
    }
    static void Save(WeekTimer& window) { window.Toolbar1_ButtonClick("Speichern"); }
    static void Back(WeekTimer& window) { window.Toolbar1_ButtonClick(u8"Zurück"_w); }
    void ExpectWord(Word word) { world.Answers.push_back({.Text = Wort(programm->kern, word)}); }
    /// Everything that an undo brings back.
    static std::vector<std::string> Whole(const WeekTimer& window) {
        std::vector<std::string> rows;
        for (int row = 1; row < window.FGK1.Rows(); ++row) {
            rows.push_back(Slot(window, row));
        }
        for (int row = 1; row < window.FGK3.Rows(); ++row) {
            rows.push_back(Group(window, row));
        }
        for (int row = 1; row <= 8; ++row) {
            rows.push_back(Entry(window, row));
        }
        return rows;
    }
};

} // namespace qvm::test
