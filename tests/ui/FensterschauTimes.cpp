// The windows where times are set.

#include "Fensterschau.h"

#include <QMenu>

#include <string_view>
#include <tuple>
#include <utility>

namespace qvm::test {
namespace {

void enterHoliday(HolidayCalendar& calendar, int row, const Datum& from, const Datum& to) {
    for (const auto& [column, day] : {std::pair{CalendarColumn::From, from}, std::pair{CalendarColumn::To, to}}) {
        calendar.FGK_DblClick(row, column);
        calendar.MV_Waehlen(day);
    }
}

void enterSlot(WeekTimer& clock, int row, int day, std::string_view from, std::string_view to) {
    clock.FGK1_DblClick(row, SlotColumn::Day);
    clock.List1_Waehlen(day);
    for (const auto& [column, digits] : {std::pair{SlotColumn::From, from}, std::pair{SlotColumn::To, to}}) {
        clock.FGK1_DblClick(row, column);
        for (const char digit : digits) {
            clock.Text1_KeyPress(digit);
        }
        clock.Text1_KeyPress(Key::Enter);
    }
}

void enterGroup(WeekTimer& clock, int row, std::string_view name, int count) {
    clock.FGK3_DblClick(row, GroupColumn::Name);
    clock.Text2_Change(name);
    clock.Text2_KeyPress(Key::Enter);
    clock.FGK3_DblClick(row, GroupColumn::SlotCount);
    for (int slot = 0; slot < count; ++slot) {
        clock.List2_Schalten(slot, true);
    }
    clock.List2_Uebernehmen();
}

} // namespace

/// Holidays of this year and over its end, two of which share a day.
void Fensterschau::calendars() {
    for (const bool single : {true, false}) {
        HolidayCalendar& calendar = single ? programm_->Times->F3 : programm_->Times->F10;
        ui::HolidayWindow& window = single ? windows_->Times.f3 : windows_->Times.f10;
        calendar.FormLaden();
        enterHoliday(calendar, 1, {2026, 3, 9}, {2026, 3, 14});
        enterHoliday(calendar, 2, {2026, 3, 14}, {2026, 3, 16});
        enterHoliday(calendar, 3, {2026, 7, 20}, {2026, 8, 28});
        enterHoliday(calendar, 4, {2026, 12, 24}, {2027, 1, 1});
        take(window, single ? "F3" : "F10");
        calendar.FGK_DblClick(2, CalendarColumn::To);
        take(window, single ? "F3-month" : "F10-month");
        calendar.Editor_Schliessen();
        if (single) {
            calendar.FGK_DblClick(5, CalendarColumn::Kind);
            take(window, "F3-list");
            calendar.Editor_Schliessen();
            auto* menu = window.findChild<QMenu*>(QStringLiteral("F3.M_FGK3"));
            menu->popup(window.mapToGlobal(QPoint(20, 20)));
            take(*menu, "F3-delete");
            menu->close();
        }
        calendar.Geaendert = false;
        calendar.Schliessen();
        programm_->Main->F2.Timer2.Stop();
    }
}

/// Two offsets, of which one has lost its base, and slots that guests are offered.
void Fensterschau::guestTimes() {
    F42& f42 = programm_->Times->F42;
    ui::F42Window& window = windows_->Times.f42;
    f42.F42_FormLaden();
    for (const auto& [row, name, time] : {std::tuple{1, "Brunch", "01:30"}, std::tuple{2, "Late", "03:00"}}) {
        f42.FGK42.SetText(row, OffsetColumn::Name, name);
        f42.FGK42.SetText(row, OffsetColumn::Time, time);
        f42.FGK42.SetText(row, OffsetColumn::Base, row == 1 ? "09:30" : "14:00");
    }
    f42.FGK42B_Click(2, GuestSlotColumn::Selection);
    f42.FGK42B_Click(5, GuestSlotColumn::Selection);
    f42.Auswahl.Go(2, OffsetColumn::Name);
    take(window, "F42");
    f42.FGK42_DblClick(1, OffsetColumn::Name);
    take(window, "F42-name");
    f42.FGK42_DblClick(1, OffsetColumn::Time);
    take(window, "F42-time");
    f42.FGK42_DblClick(1, OffsetColumn::Base);
    take(window, "F42-list");
    f42.List1_Abbrechen();
    auto* menu = window.findChild<QMenu*>(QStringLiteral("F42.M_FGK42"));
    menu->popup(window.mapToGlobal(QPoint(20, 20)));
    take(*menu, "F42-delete");
    menu->close();
    f42.Geaendert = false;
    f42.F42_Schliessen();
    programm_->Main->F2.Timer2.Stop();
}

/// A hotel with two doors, and an object whose guest leaves before coming.
void Fensterschau::guestCards() {
    F60& model = programm_->Times->F60;
    for (const bool object : {false, true}) {
        world_.Disk.Files["/q/DAT/ASWTIMQVMLCK.FSN"] = object ? "05.03.2026\r\nOBJEKT\r\n" : "05.03.2026\r\nHOTEL\r\n";
        world_.Disk.Files["/q/DAT/OFSTSETUPDT.FST"] = "05.03.2026\r\n15:00\r\n10:30\r\n00\r\n01\r\n";
        model.F60_FormLaden();
        model.FGK60_Click(1, CardColumn::Mark);
        model.FGK60_Click(2, CardColumn::Mark);
        model.FGK60_Click(2, CardColumn::Mark);
        model.MV1_Waehlen({2026, 12, 24});
        model.MV2_Waehlen(object ? Datum{2026, 12, 22} : Datum{2027, 1, 2});
        model.Label12.Visible = true;
        take(windows_->Times.f60, object ? "F60-object" : "F60");
        if (object) {
            model.FGK60_Click(F60::LastRow, CardColumn::Mark); // no lock stands there
            model.Text2.Text = std::string();
            model.Texte_Setzen();
            take(windows_->Times.f60, "F60-told");
        }
        model.Geaendert = false;
        model.Schliessen();
        programm_->Main->F2.Timer2.Stop();
    }
}

/// Three slots, and a group of them under the pointer.
void Fensterschau::clocks() {
    for (const bool persons : {true, false}) {
        WeekTimer& clock = persons ? programm_->Times->F4 : programm_->Times->F41;
        ui::WeekTimerWindow& window = persons ? windows_->Times.f4 : windows_->Times.f41;
        clock.FormLaden();
        enterSlot(clock, 1, 8, "0730", "1745");
        enterSlot(clock, 2, 6, "0900", "1300");
        enterSlot(clock, 3, 4, "1900", "2159");
        enterGroup(clock, 3, "Reinigung", 3);
        take(window, persons ? "F4" : "F41");
        clock.Maus = [] { return GridPointer{.Row = 3, .Column = 1}; };
        world_.RunFor(3000);
        take(window, persons ? "F4-info" : "F41-info");
        clock.FGK3_MouseUp(MouseButton::Left, 3, 1);
        clock.FGK3_DblClick(3, GroupColumn::SlotCount);
        take(window, persons ? "F4-slots" : "F41-slots");
        clock.Listen_Schliessen();
        if (persons) {
            clock.FGK1_DblClick(2, SlotColumn::Day);
            take(window, "F4-days");
            clock.Listen_Schliessen();
            clock.FGK1_DblClick(2, SlotColumn::To);
            take(window, "F4-time");
            clock.Text1_KeyPress(Key::Escape);
            auto* menu = window.findChild<QMenu*>(QStringLiteral("F4.F4_FGK3"));
            menu->popup(window.mapToGlobal(QPoint(20, 20)));
            take(*menu, "F4-delete");
            menu->close();
        }
        clock.Geaendert = false;
        clock.Schliessen();
        clock.Timer2.Stop();
        programm_->Main->F2.Timer2.Stop();
    }
}

} // namespace qvm::test
