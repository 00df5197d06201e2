#pragma once

#include "WeekChart.h"

#include <QWidget>

#include <cstddef>
#include <optional>

namespace qvm::ui {

/// Seven days, one below the other, from 0 to 24 o'clock, with a bar for each time that something holds; today stands
/// out, and a line is drawn at now. A tip names the time under the mouse. The arrow keys go from day to day; a screen
/// reader is told the whole week, and the day that was gone to. A window may leave it too little room for its rows: it
/// stays empty then, and no key leads to it. The model must outlive the widget.
class WeekPicture : public QWidget {
    Q_OBJECT

public:
    /// `name`: the control's name, "F4.Woche" for one.
    WeekPicture(WeekPictureBox& model, const QString& name, QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    /// Where the day, 0 to 6, is drawn between its first and its last minute.
    QRectF dayRoom(std::size_t day) const;
    /// The left edge of a minute of the day, 0 to 1440.
    qreal edgeOf(int minute) const;
    /// The bar at a place of the widget; of those that overlap the one that was drawn last. None beside the bars.
    std::optional<WeekBar> barAt(const QPointF& place) const;
    /// The name of a day, 0 to 6, and its times; the name alone for a day without one.
    QString dayText(std::size_t day) const;
    /// The day that the arrow keys have gone to, 0 to 6.
    std::size_t currentDay() const { return day_; }

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    bool hasRoom() const { return height() >= minimumSizeHint().height(); }
    void showChart();
    void goTo(std::size_t day);
    int headHeight() const;
    int nameWidth() const;
    QRectF barRoom(std::size_t day, const WeekBar& bar) const;
    void paintHours(QPainter& painter) const;
    void paintDay(QPainter& painter, std::size_t day) const;
    void paintNow(QPainter& painter) const;

    WeekPictureBox& model_;
    std::size_t day_ = 0;
};

} // namespace qvm::ui
