#pragma once

#include "F5.h"
#include "F5Finger.h"
#include "F5Schluessel.h"
#include "WindowBase.h"

class QMenu;

namespace qvm::ui {

class GridView;

/// F5 on the screen: menus, tool bar, the grid of the users with its editors, status line.
class F5Window : public WindowBase {
    Q_OBJECT

public:
    F5Window(F5& f5, F5Schluessel& keys, F5Finger& fingers, QWidget* main);
    ~F5Window() override;

    void setWords() override;

private:
    void makeMenuBar();
    void makeToolBar();
    void makeGrid();
    void makeColumns();
    void makeEditors();
    void addEditor(TextBox& model, const char* name);
    void addList(ListBox& model, const char* name);
    void makeMenus();
    void makeKeyMenu();
    void makeFingerMenu();
    QMenu* newMenu(const char* name);
    QLayout* makeStatusLine();
    void popUp(F5Menu which);

    F5& f5_;
    F5Schluessel& keys_;
    F5Finger& fingers_;
    GridView* grid_ = nullptr;
    QMenu* rowMenu_ = nullptr;
    QMenu* keyMenu_ = nullptr;
    QMenu* fingerMenu_ = nullptr;
};

} // namespace qvm::ui
