#pragma once

#include "F42.h"
#include "WindowBase.h"

class QMenu;

namespace qvm::ui {

class GridView;
class WeekPicture;

/// Default times, offsets, mode and guest slots.
class F42Window : public WindowBase {
    Q_OBJECT

public:
    F42Window(F42& f42, QWidget* main);
    ~F42Window() override;

    void setWords() override;

private:
    void makeToolBar();
    QWidget* makeTimes();
    void makeOffsets();
    void makeEditors();
    void makeMenu();
    QWidget* makeSlots();
    QLayout* makeStatusLine();

    F42& f42_;
    GridView* offsets_ = nullptr;
    GridView* slots_ = nullptr;
    WeekPicture* week_ = nullptr;
    QMenu* menu_ = nullptr;
};

} // namespace qvm::ui
