#include "WeekPicture.h"

#include "Bind.h"
#include "TextEdge.h"
#include "Theme.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

namespace qvm::ui {
namespace {

constexpr int Gap = 4, LeastRow = 12, Hours = 24, HourStep = 6, HourMinutes = 60;
constexpr QColor BarOnLight{38, 110, 180}, BarOnDark{120, 180, 240};
constexpr QColor NowOnLight{190, 30, 30}, NowOnDark{255, 140, 130};

} // namespace

WeekPicture::WeekPicture(WeekPictureBox& model, const QString& name, QWidget* parent) : QWidget(parent), model_(model) {
    nameWidget(this, name);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    watch(model.Chart, this, [this] { showChart(); });
    watch(model.Visible, this, [this] { setVisible(model_.Visible); });
}

void WeekPicture::showChart() {
    // While it has the keyboard it speaks of the day that this is on; and nothing twice, as the chart comes each
    // minute.
    const QString said = hasFocus() ? dayText(day_) : toQt(model_.Chart().Summary);
    if (said != accessibleDescription()) {
        setAccessibleDescription(said);
    }
    updateGeometry(); // the names of the days may be wider
    update();
}

int WeekPicture::headHeight() const {
    return fontMetrics().height() + 2;
}

int WeekPicture::nameWidth() const {
    QFont bold = font();
    bold.setBold(true);
    int wide = 0;
    for (const WeekChart::Day& day : model_.Chart().Days) {
        wide = std::max(wide, QFontMetrics(bold).horizontalAdvance(toQt(day.Name)));
    }
    return wide + 2 * Gap;
}

QSize WeekPicture::sizeHint() const {
    const int row = std::max(LeastRow, fontMetrics().height() + 2);
    return {nameWidth() + Hours * fontMetrics().averageCharWidth() * 2,
            headHeight() + row * static_cast<int>(WeekChart::DayCount) + Gap};
}

QSize WeekPicture::minimumSizeHint() const {
    const int row = std::max(LeastRow, fontMetrics().ascent() + 1);
    return {nameWidth() + Hours * fontMetrics().averageCharWidth(),
            headHeight() + row * static_cast<int>(WeekChart::DayCount) + Gap};
}

QRectF WeekPicture::dayRoom(std::size_t day) const {
    const qreal row = static_cast<qreal>(height() - headHeight() - Gap) / static_cast<qreal>(WeekChart::DayCount);
    const qreal left = nameWidth();
    return {left, headHeight() + row * static_cast<qreal>(day), width() - left - fontMetrics().averageCharWidth(), row};
}

qreal WeekPicture::edgeOf(int minute) const {
    const QRectF room = dayRoom(0);
    return room.left() + room.width() * minute / WeekChart::DayMinutes;
}

/// Never narrower than what the eye finds. The last minute is part of it.
QRectF WeekPicture::barRoom(std::size_t day, const WeekBar& bar) const {
    const QRectF room = dayRoom(day);
    const qreal left = edgeOf(bar.From);
    return {left, room.top() + 2, std::max(2.0, edgeOf(bar.To + 1) - left), room.height() - 4};
}

std::optional<WeekBar> WeekPicture::barAt(const QPointF& place) const {
    for (std::size_t day = 0; day < WeekChart::DayCount; ++day) {
        const auto& bars = model_.Chart().Days[day].Bars;
        const auto found = std::find_if(bars.rbegin(), bars.rend(),
                                        [&](const WeekBar& bar) { return barRoom(day, bar).contains(place); });
        if (found != bars.rend()) {
            return *found;
        }
    }
    return std::nullopt;
}

QString WeekPicture::dayText(std::size_t day) const {
    const WeekChart::Day& shown = model_.Chart().Days[std::min(day, WeekChart::DayCount - 1)];
    QString text = toQt(shown.Name);
    for (std::size_t n = 0; n < shown.Bars.size(); ++n) {
        text += (n == 0 ? QStringLiteral(": ") : QStringLiteral(", ")) + toQt(shown.Bars[n].Text);
    }
    return text;
}

bool WeekPicture::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) {
        return QWidget::event(event);
    }
    const auto* help = static_cast<QHelpEvent*>(event);
    const auto bar = barAt(help->pos());
    QToolTip::showText(help->globalPos(), bar ? toQt(bar->Text) : toQt(model_.Chart().Summary), this);
    return true;
}

void WeekPicture::keyPressEvent(QKeyEvent* event) {
    const std::size_t last = WeekChart::DayCount - 1;
    switch (event->key()) {
    case Qt::Key_Up:
        goTo(day_ == 0 ? 0 : day_ - 1);
        break;
    case Qt::Key_Down:
        goTo(std::min(last, day_ + 1));
        break;
    case Qt::Key_Home:
        goTo(0);
        break;
    case Qt::Key_End:
        goTo(last);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void WeekPicture::goTo(std::size_t day) {
    day_ = day;
    setAccessibleDescription(dayText(day));
    QAccessibleEvent told(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&told);
    update();
}

void WeekPicture::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    day_ = model_.Chart().Today < 0 ? 0 : static_cast<std::size_t>(model_.Chart().Today);
    update();
}

void WeekPicture::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    setAccessibleDescription(toQt(model_.Chart().Summary));
    update();
}

void WeekPicture::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    setFocusPolicy(hasRoom() ? Qt::StrongFocus : Qt::NoFocus);
}

void WeekPicture::paintEvent(QPaintEvent* /*event*/) {
    if (!hasRoom()) {
        return;
    }
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    for (std::size_t day = 0; day < WeekChart::DayCount; ++day) {
        paintDay(painter, day);
    }
    paintHours(painter);
    paintNow(painter);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void WeekPicture::paintHours(QPainter& painter) const {
    const qreal bottom = dayRoom(WeekChart::DayCount - 1).bottom();
    for (int hour = 0; hour <= Hours; hour += HourStep) {
        const qreal x = edgeOf(hour * HourMinutes);
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawLine(QPointF(x, headHeight()), QPointF(x, bottom));
        painter.setPen(palette().color(QPalette::Text));
        const QString text = QString::number(hour);
        const int wide = fontMetrics().horizontalAdvance(text);
        const qreal left = std::min(x - wide / 2.0, static_cast<qreal>(width() - wide - 1));
        painter.drawText(QRectF(left, 1, wide, headHeight()), Qt::AlignCenter, text);
    }
}

void WeekPicture::paintDay(QPainter& painter, std::size_t day) const {
    const WeekChart::Day& shown = model_.Chart().Days[day];
    const QRectF room = dayRoom(day);
    const bool today = static_cast<int>(day) == model_.Chart().Today;
    const QRectF line(1, room.top(), width() - 2, room.height());
    if (today) {
        painter.fillRect(line, tinted(palette().color(QPalette::Base), RowTint::PaleCurrent, palette()));
    } else if (day % 2 == 1) {
        painter.fillRect(line, palette().color(QPalette::AlternateBase));
    }
    QFont face = font();
    face.setBold(today);
    painter.setFont(face);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(QRectF(Gap, room.top(), nameWidth() - Gap, room.height()), Qt::AlignVCenter | Qt::AlignLeft,
                     toQt(shown.Name));
    painter.setFont(font());
    for (const WeekBar& bar : shown.Bars) {
        painter.fillRect(barRoom(day, bar), isDark(palette()) ? BarOnDark : BarOnLight);
    }
    if (hasFocus() && day == day_) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.drawRect(line.adjusted(1, 1, -1, -1));
    }
}

void WeekPicture::paintNow(QPainter& painter) const {
    if (model_.Chart().Today < 0) {
        return;
    }
    const QRectF room = dayRoom(static_cast<std::size_t>(model_.Chart().Today));
    const qreal x = edgeOf(model_.Chart().Minute);
    // With the ground on both sides, so that it stands out from a bar.
    painter.setPen(QPen(palette().color(QPalette::Base), 6, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(QPointF(x, room.top()), QPointF(x, room.bottom()));
    painter.setPen(QPen(isDark(palette()) ? NowOnDark : NowOnLight, 2, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(QPointF(x, room.top()), QPointF(x, room.bottom()));
}

} // namespace qvm::ui
