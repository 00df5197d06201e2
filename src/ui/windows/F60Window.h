#pragma once

#include "F60.h"
#include "WindowBase.h"

class QGridLayout;
class QMenu;

namespace qvm::ui {

class GridView;
class MonthView;

/// F60 on the screen: doors with the search over them, beside them times, stay and object group, keys, status line.
class F60Window : public WindowBase {
    Q_OBJECT

public:
    F60Window(F60& model, QWidget* main);
    ~F60Window() override;

    void setWords() override;

private:
    void makeToolBar();
    QLayout* makeDoors();
    QLayout* makeSide();
    QWidget* makeTimes();
    QWidget* makeStay();
    QLayout* makeGroup();
    QLayout* makeKeys();
    QLayout* makeStatusLine();
    void makeMenu();
    MonthView* addMonth(QGridLayout* grid, QWidget* parent, int column);

    F60& f60_;
    GridView* doors_ = nullptr;
    QMenu* menu_ = nullptr;
    MonthView* months_[2] = {};
};

} // namespace qvm::ui
