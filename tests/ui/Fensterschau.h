#pragma once

#include "Messages.h"
#include "Oberflaeche.h"
#include "VirtualPlatform.h"

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <string_view>

namespace qvm::test {

/// Opens one window after the other over a small house, in virtual time.
class Fensterschau {
public:
    /// What is done with a window that stands on the screen; `name` tells it and its state, "F9-finished" for one.
    using Look = std::function<void(QWidget& window, const char* name)>;

    /// `world`: holds the language files and the data files of a house with at least three locks. `language`: as the
    /// configuration names it.
    Fensterschau(VirtualPlatform& world, std::string_view language);

    /// Shows every window to `look`.
    void run(Look look);
    /// Shows only the states of the main window, and the virtual building, which has one of them.
    void runMain(Look look);

private:
    void mainWindow();
    void menus();
    void settings();
    void adapters();
    void locks();
    void markedLocks();
    void progress();
    void list();
    void besideList();
    void history();
    void users();
    void userTable();
    void userMenus();
    void enrolment();
    void lockSettings();
    void lockTable();
    void lockMenus();
    void unitSettings();
    void scanned();
    void calendars();
    void guestTimes();
    void clocks();
    void guestCards();
    void codeChange();
    void pcCheck();
    void virtualBuilding();
    /// Windows that nothing above shows, as the main window opens them.
    void others();
    void messageBoxes();
    void take(QWidget& window, const char* name);
    void showBox(const Message& message, const char* name);

    VirtualPlatform& world_;
    std::unique_ptr<Programm> programm_;
    std::unique_ptr<ui::Oberflaeche> windows_;
    ui::MessageBoxes boxes_;
    Look look_;
    std::set<std::string, std::less<>> taken_; ///< names of windows
};

} // namespace qvm::test
