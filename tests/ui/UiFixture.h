#pragma once

#include "Datendateien.h"
#include "HistoryWindows.h"
#include "MainWindows.h"
#include "PersonWindows.h"
#include "TransferWindows.h"
#include "VirtualPlatform.h"

#include <QApplication>
#include <QPoint>
#include <QString>

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace qvm::ui {
class GridView;
}

namespace qvm::test {

inline constexpr std::string_view Languages[] = {"Deutsch", "English", "Francais", "Nederlands"};

/// The whole program over a virtual world with the real language files; the windows are the test's own to make.
struct UiFixture : ::testing::Test {
    VirtualPlatform world;
    Datendateien files{world.Disk};
    std::unique_ptr<Programm> programm;

    /// Puts the real language files into the world.
    void LanguageFiles();
    /// Starts the program in a language, "RESET" (one serial port) or "SET" (adapters).
    void Start(std::string_view language = "Deutsch", std::string_view mode = "RESET");
    /// A lock that stays on its channel.
    void SettledLock(int number, std::string_view name, std::string_view serial = "00.0A.10.01");
    void AddAdapter(std::string_view address, std::string_view name, std::string_view port);
    /// Expects a message by its catalogue line.
    void Expect(int line, Answer answer);
    /// What Qt has queued: repaints, changes told late, windows shown.
    static void Settle();
    /// The middle of a cell, in the grid's viewport.
    static QPoint CellPlace(const ui::GridView& grid, int row, int column);
    static void ClickCell(ui::GridView& grid, int row, int column, Qt::MouseButton button = Qt::LeftButton);
    static void DoubleClickCell(ui::GridView& grid, int row, int column);
};

/// Name, visible and with its focus, as a user has it before him.
void Present(QWidget& window);

} // namespace qvm::test
