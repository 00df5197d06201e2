#pragma once

#include "F2.h"

#include <QMainWindow>

#include <string_view>

class QAction;
class QLabel;
class QMenu;
class QToolBar;

namespace qvm::ui {

class ElidedLabel;
class LinkCard;

/// The main window: menus, tool bar, link light, adapter, status bar. As large as its content, for good.
class F2Window : public QMainWindow {
    Q_OBJECT

public:
    explicit F2Window(F2& model);
    ~F2Window() override;

    /// Words that the catalogue does not hold, anew.
    void setWords();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void makeMenus();
    void addHistories(QMenu* menu);
    void makePopups();
    void makeToolBar();
    QWidget* makePage();
    QWidget* makeStrip();
    QLayout* makeLinkRow();
    void makeStatusBar();
    void fitCaptions();
    /// Opens the menu of a tool bar key under it and waits until it is closed.
    void popUp(QMenu* menu, std::string_view key);

    F2& f2_;
    QToolBar* bar_ = nullptr;
    QMenu* calendarMenu_ = nullptr;
    QMenu* clockMenu_ = nullptr;
    QLabel* version_ = nullptr;
    LinkCard* card_ = nullptr;
    ElidedLabel* reason_ = nullptr;
    QAction* histories_ = nullptr; ///< the heading over them
    Listener words_;
};

} // namespace qvm::ui
