#include "BenchUiTimes.h"

#include "BenchUiSteps.h"
#include "GridView.h"
#include "MonthView.h"

#include <cstdio>
#include <string>
#include <vector>

namespace {

/// Two keys in turn on a part of a window, at a cell where it is a grid.
struct Keys {
    const char* what;
    const char* part; ///< its name, behind that of the window
    int row, column;
    int forth, back;
};

/// What has the keyboard: the part, or what is open over it.
QWidget& keyboardOf(const QWidget& window, QWidget& part) {
    return window.focusWidget() != nullptr ? *window.focusWidget() : part;
}

void measureKeys(const char* name, QWidget& window, const Keys& keys) {
    auto* part = window.findChild<QWidget*>(QLatin1String(name) + QLatin1Char('.') + QLatin1String(keys.part));
    if (part == nullptr) {
        std::printf("%s has no %s\n", name, keys.part);
        return;
    }
    part->setFocus();
    if (auto* grid = qobject_cast<qvm::ui::GridView*>(part)) {
        grid->setCurrentCell(keys.row, keys.column);
    }
    paint();
    measure(name, keys.what,
            [&](int round) { press(keyboardOf(window, *part), round % 2 == 0 ? keys.forth : keys.back); });
}

/// Opens the window, works in it and leaves it without a question.
template <class Model>
void measureWindow(const char* name, Model& model, QWidget& window, const std::vector<Keys>& all) {
    std::printf("%s painted after %.1f ms\n", name, milliseconds([&] { model.kern.Windows.Open.at(name)(); }));
    for (const Keys& keys : all) {
        measureKeys(name, window, keys);
    }
    model.Geaendert = false;
    window.close();
    paint();
}

Keys arrows(const char* grid) {
    return {"an arrow key", grid, 1, 1, Qt::Key_Down, Qt::Key_Up};
}

std::vector<Keys> ofClock() {
    return {arrows("FGK1"),
            {"the list of days", "FGK1", 1, qvm::SlotColumn::Day, Qt::Key_Return, Qt::Key_Escape},
            {"a time begun and left", "FGK1", 1, qvm::SlotColumn::From, Qt::Key_1, Qt::Key_Escape},
            {"the list of slots", "FGK3", 5, qvm::GroupColumn::SlotCount, Qt::Key_Return, Qt::Key_Escape}};
}

std::vector<Keys> ofHolidays(const char* grid) {
    return {arrows(grid), {"the month", grid, 2, qvm::CalendarColumn::From, Qt::Key_Return, Qt::Key_Escape}};
}

} // namespace

void measureTimes(qvm::Programm& programm, qvm::ui::Oberflaeche& windows) {
    qvm::TimeWindows& times = *programm.Times;
    measureWindow("F3", times.F3, windows.Times.f3, ofHolidays("FGK3"));
    measureWindow("F10", times.F10, windows.Times.f10, ofHolidays("FGK10"));
    measureWindow("F4", times.F4, windows.Times.f4, ofClock());
    measureWindow("F41", times.F41, windows.Times.f41, ofClock());
    measureWindow("F42", times.F42, windows.Times.f42,
                  {arrows("FGK42"),
                   {"a time begun and left", "FGK42", 1, qvm::OffsetColumn::Time, Qt::Key_1, Qt::Key_Escape},
                   {"a guest slot", "FGK42B", 1, qvm::GuestSlotColumn::Selection, Qt::Key_Space, Qt::Key_Space}});
    measureWindow("F60", times.F60, windows.Times.f60,
                  {arrows("FGK60"),
                   {"a page", "FGK60", 1, 1, Qt::Key_PageDown, Qt::Key_PageUp},
                   {"a mark", "FGK60", 1, qvm::CardColumn::Mark, Qt::Key_Space, Qt::Key_Space},
                   {"a digit of a time, and back", "Text1", 0, 0, Qt::Key_1, Qt::Key_Home},
                   {"a month", "MV1", 0, 0, Qt::Key_PageDown, Qt::Key_PageUp}});
}
