#pragma once

#include "HolidayCalendar.h"
#include "WindowBase.h"

class QMenu;

namespace qvm::ui {

class GridView;
class OverlayMonth;
class YearStrip;

/// F3 and F10 on the screen: tool bar, the grid of the holidays with month and list over it, the year, status line.
class HolidayWindow : public WindowBase {
    Q_OBJECT

public:
    HolidayWindow(HolidayCalendar& calendar, QWidget* main);
    ~HolidayWindow() override;

    void setWords() override;

private:
    /// "F3.FGK3" and the like: the window's name, a point, the control's.
    QString named(const char* control) const;
    /// The same with the window's number behind it.
    QString numbered(const char* control) const;
    void makeToolBar();
    void makeGrid();
    void makeEditors();
    void makeMenu();
    QLayout* makeYear();
    QLayout* makeStatusLine();

    HolidayCalendar& calendar_;
    QString name_;
    GridView* grid_ = nullptr;
    OverlayMonth* month_ = nullptr;
    YearStrip* strip_ = nullptr;
    QMenu* menu_ = nullptr;
};

} // namespace qvm::ui
