#include "BenchUiUsers.h"

#include "GridView.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QToolButton>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <functional>
#include <utility>
#include <vector>

namespace {

constexpr int Rounds = 60;

/// Lets what was done be told to the views, and painted.
void paint() {
    for (int n = 0; n < 3; ++n) {
        QApplication::processEvents();
    }
}

double milliseconds(const std::function<void()>& act) {
    QElapsedTimer clock;
    clock.start();
    act();
    paint();
    return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

/// Median and longest of many rounds; `back` brings what was done back and is not measured.
void measure(
    const char* what, const std::function<void(int round)>& act, const std::function<void()>& back = [] {}) {
    std::vector<double> times;
    for (int round = 0; round < Rounds; ++round) {
        times.push_back(milliseconds([&] { act(round); }));
        back();
        paint();
    }
    std::sort(times.begin(), times.end());
    std::printf("F5, %s: median %.1f ms, longest %.1f ms\n", what, times[times.size() / 2], times.back());
}

void press(QWidget& on, int key) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, key == Qt::Key_Space ? QStringLiteral(" ") : QString());
    QApplication::sendEvent(&on, &event);
}

void printKey(const QWidget& window, const char* name) {
    const auto* key = window.findChild<QToolButton*>(QLatin1String(name));
    const QPoint middle = key == nullptr ? QPoint() : key->mapToGlobal(key->rect().center());
    std::printf("%d %d\n", middle.x(), middle.y());
}

} // namespace

std::string residentMemory() {
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line) && line.rfind("VmRSS:", 0) != 0) {
    }
    return line;
}

void measureUsers(qvm::Programm& programm, qvm::ui::Oberflaeche& windows) {
    qvm::F5& f5 = programm.Persons->F5;
    std::printf("without F5: %s\n", residentMemory().c_str());
    std::printf("F5 painted after %.1f ms\n", milliseconds([&] { f5.F5_FormLaden(); }));
    auto& grid = *windows.Persons.f5.findChild<qvm::ui::GridView*>();
    grid.setFocus();
    constexpr int row = 10;
    constexpr int column = 20;
    f5.Auswahl.Go(row, column);
    paint();
    measure("an arrow key", [&](int round) { press(grid, round % 2 == 0 ? Qt::Key_Down : Qt::Key_Up); });
    measure("an arrow key across", [&](int round) { press(grid, round % 2 == 0 ? Qt::Key_Right : Qt::Key_Left); });
    measure("a page", [&](int round) { press(grid, round % 2 == 0 ? Qt::Key_PageDown : Qt::Key_PageUp); });
    f5.Auswahl.Go(qvm::UserGrid::FirstRow, qvm::UserGrid::ColumnOf(1));
    f5.Auswahl.Extend(qvm::UserGrid::LastRow, qvm::UserGrid::ColumnOf(qvm::UserGrid::Locks));
    paint();
    measure("a mark of 250 x 200 cells", [&](int) { press(grid, Qt::Key_Space); });
    f5.Auswahl.Go(qvm::UserGrid::FirstRow, column);
    measure(
        "sorted", [&](int) { f5.F5_Sort_Click(); }, [&] { f5.F5_Undo_Click(); });
    measure("saved and flushed", [&](int) { f5.Toolbar1_ButtonClick("Speichern"); });
    std::printf("with F5: %s\n", residentMemory().c_str());
    printKey(windows.Persons.f5, "F5.Toolbar1.Aufsteigend sortieren");
    printKey(windows.Persons.f5, "F5.Toolbar1.Speichern");
}

void measureLocks(qvm::Programm& programm, qvm::ui::Oberflaeche& windows) {
    programm.Persons->F5.F5_Schliessen();
    paint();
    std::printf("F12 painted after %.1f ms\n", milliseconds([&] { programm.Locks->F12.F12_FormLaden(); }));
    printKey(windows.Locks.f12, "F12.Toolbar1.Speichern");
}
