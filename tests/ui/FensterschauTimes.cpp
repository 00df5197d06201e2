// The windows where times are set.

#include "Fensterschau.h"

#include <QMenu>

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

} // namespace qvm::test
