// A grid of the largest size, 250 rows of 210 columns with a mark in every cell, with selection and filter: how long it
// takes from a key to the painted screen.
//
//   bench_grid [ROUNDS]    longest and median of so many keys each (default 60)
//
// Runs on whatever display Qt finds; "-platform offscreen" for none.
#include "ClearStyle.h"
#include "GridFilterBar.h"
#include "GridView.h"
#include "VirtualPlatform.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QVBoxLayout>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

namespace {

constexpr int Rows = 252, Columns = 210, FirstMark = 8;

void fill(qvm::Grid& grid) {
    for (int row = 0; row < Rows; ++row) {
        grid.SetText(row, 0, std::to_string(row));
        grid.SetText(row, 1, "Benutzer " + std::to_string(row));
        for (int column = 2; column < Columns; ++column) {
            grid.SetText(row, column, column < FirstMark ? "Text" : "X");
        }
    }
}

void press(QWidget& on, int key, Qt::KeyboardModifiers modifiers) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers, key < 0x100 ? QString(QChar(key)).toLower() : QString());
    QApplication::sendEvent(&on, &event);
}

/// Does it and paints what it changed.
void measure(const char* what, int rounds, const std::function<void(int round)>& act) {
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round) {
        QElapsedTimer clock;
        clock.start();
        act(round);
        for (int n = 0; n < 3; ++n) {
            QApplication::processEvents(); // changes told late, then their painting
        }
        times.push_back(static_cast<double>(clock.nsecsElapsed()) / 1e6);
    }
    std::sort(times.begin(), times.end());
    std::printf("%-34s longest %5.1f ms, median %5.1f ms\n", what, times.back(), times[times.size() / 2]);
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QApplication::setStyle(new qvm::ui::ClearStyle);
    const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 60;
    qvm::test::VirtualPlatform world;
    const qvm::Kern kern(world.World);
    qvm::Grid grid(Rows, Columns);
    fill(grid);
    qvm::GridFilter filter(kern, grid, {1});
    qvm::GridSelection cells(grid, qvm::GridSelection::Unit::Cells, &filter);
    filter.Changed = [&] { cells.FilterChanged(); };

    QWidget window;
    qvm::ui::GridView view(grid, &window);
    qvm::ui::GridFilterBar bar(filter, QStringLiteral("Bench"), &window);
    auto* layout = new QVBoxLayout(&window);
    layout->addWidget(&bar);
    layout->addWidget(&view);
    std::vector<int> twips(Columns, 350);
    std::fill_n(twips.begin(), FirstMark, 2000);
    view.setColumns(twips);
    view.setFrozenColumns(2);
    view.setBlocks(cells);
    view.setFilter(filter);
    window.resize(1900, 1000);
    window.show();
    view.setFocus();
    view.setCurrentCell(1, FirstMark);
    for (int n = 0; n < 5; ++n) {
        QApplication::processEvents();
    }

    const auto key = [&](int code, Qt::KeyboardModifiers keys = {}) {
        return [&view, code, keys](int /*round*/) { press(view, code, keys); };
    };
    measure("arrow down", rounds, key(Qt::Key_Down));
    measure("arrow right", rounds, key(Qt::Key_Right));
    measure("arrow down with Shift", rounds, key(Qt::Key_Down, Qt::ShiftModifier));
    measure("Ctrl+A", rounds, key(Qt::Key_A, Qt::ControlModifier));
    measure("page down, then up", rounds,
            [&](int round) { press(view, round % 2 == 0 ? Qt::Key_PageDown : Qt::Key_PageUp, {}); });
    measure("a letter in the filter line", rounds, [&](int round) { filter.Set(round % 2 == 0 ? "benutzer 2" : ""); });
    measure("marks of 250 x 200 cells toggled", rounds, [&](int round) {
        for (int row = 1; row < Rows - 1; ++row) {
            for (int column = FirstMark; column < FirstMark + 200; ++column) {
                grid.SetText(row, column, round % 2 == 0 ? "" : "X");
            }
        }
    });
    return 0;
}
