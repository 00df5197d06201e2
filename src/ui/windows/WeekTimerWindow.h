#pragma once

#include "WeekTimer.h"
#include "WindowBase.h"

class QMenu;

namespace qvm::ui {

class GridView;
class OverlayChecks;
class WeekPicture;

/// F4 and F41 on the screen: tool bar, slots and groups side by side with their editors, below them the slots of the
/// group under the pointer as a grid and as a picture, status line.
class WeekTimerWindow : public WindowBase {
    Q_OBJECT

public:
    WeekTimerWindow(WeekTimer& timer, QWidget* main);
    ~WeekTimerWindow() override;

    void setWords() override;

private:
    /// "F4.FGK1" and the like.
    QString named(std::string_view control) const;
    void makeToolBar();
    QLayout* makeSlots();
    QLayout* makeGroups();
    void makeSlotEditors();
    void makeGroupEditors();
    QLayout* makeInfo();
    void makeMenus();
    QLayout* makeStatusLine();

    WeekTimer& timer_;
    GridView* slots_ = nullptr;
    GridView* groups_ = nullptr;
    GridView* info_ = nullptr;
    OverlayChecks* chosen_ = nullptr;
    WeekPicture* week_ = nullptr;
    QMenu* slotMenu_ = nullptr;
    QMenu* groupMenu_ = nullptr;
};

} // namespace qvm::ui
