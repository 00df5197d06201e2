#pragma once

#include "HolidayCalendar.h"

#include <QWidget>

#include <optional>

namespace qvm::ui {

/// The days of a year in one line, month by month, with a bar for each day that a calendar holds: one that several rows
/// hold is higher. A tip names the day under the mouse.
class YearStrip : public QWidget {
    Q_OBJECT

public:
    YearStrip(const HolidayCalendar& calendar, QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    /// The day at a place of the widget; none outside the year.
    std::optional<Datum> dayAt(int x) const;
    /// The left edge of the day of the shown year; of the day behind the last one, too.
    qreal edgeOf(const Datum& day) const;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void paintMonths(QPainter& painter) const;
    void paintDays(QPainter& painter) const;
    int headHeight() const;

    const HolidayCalendar& calendar_;
};

} // namespace qvm::ui
