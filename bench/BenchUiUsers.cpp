#include "BenchUiUsers.h"

#include "BenchUiSteps.h"
#include "GridView.h"

#include <QToolButton>

#include <cstdio>
#include <fstream>

namespace {

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
    measure("F5", "an arrow key", [&](int round) { press(grid, round % 2 == 0 ? Qt::Key_Down : Qt::Key_Up); });
    measure("F5", "an arrow key across",
            [&](int round) { press(grid, round % 2 == 0 ? Qt::Key_Right : Qt::Key_Left); });
    measure("F5", "a page", [&](int round) { press(grid, round % 2 == 0 ? Qt::Key_PageDown : Qt::Key_PageUp); });
    f5.Auswahl.Go(qvm::UserGrid::FirstRow, qvm::UserGrid::ColumnOf(1));
    f5.Auswahl.Extend(qvm::UserGrid::LastRow, qvm::UserGrid::ColumnOf(qvm::UserGrid::Locks));
    paint();
    measure("F5", "a mark of 250 x 200 cells", [&](int) { press(grid, Qt::Key_Space); });
    f5.Auswahl.Go(qvm::UserGrid::FirstRow, column);
    measure(
        "F5", "sorted", [&](int) { f5.F5_Sort_Click(); }, [&] { f5.F5_Undo_Click(); });
    measure("F5", "saved and flushed", [&](int) { f5.Toolbar1_ButtonClick("Speichern"); });
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
