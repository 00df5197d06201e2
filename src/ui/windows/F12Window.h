#pragma once

#include "F12.h"
#include "WindowBase.h"

class QMenu;

namespace qvm::ui {

class GridView;

/// F12 on the screen: menu bar, tool bar, the grid of the locks with its editors, status line.
class F12Window : public WindowBase {
    Q_OBJECT

public:
    F12Window(F12& f12, QWidget* main);
    ~F12Window() override;

    void setWords() override;

private:
    void makeMenuBar();
    void makeToolBar();
    void makeGrid();
    void makeColumns();
    void makeEditors();
    void addList(ListBox& model, const char* name);
    void makeMenus();
    QLayout* makeStatusLine();
    void popUp(F12Menu which);

    F12& f12_;
    GridView* grid_ = nullptr;
    QMenu* rowMenu_ = nullptr;
    QMenu* serialMenu_ = nullptr;
};

} // namespace qvm::ui
