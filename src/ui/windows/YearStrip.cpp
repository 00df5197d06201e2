#include "YearStrip.h"

#include "QtWords.h"
#include "TextEdge.h"
#include "Theme.h"

#include <QDate>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

namespace qvm::ui {
namespace {

constexpr int BarRoom = 22, LeastMonth = 3; // LeastMonth: characters
constexpr int Months = 12;
constexpr QColor OnLight{176, 32, 32}, OnDark{255, 140, 130};

} // namespace

YearStrip::YearStrip(const HolidayCalendar& calendar, QWidget* parent) : QWidget(parent), calendar_(calendar) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

int YearStrip::headHeight() const {
    return fontMetrics().height() + 2;
}

QSize YearStrip::sizeHint() const {
    return {fontMetrics().averageCharWidth() * (LeastMonth + 2) * Months * 2, headHeight() + BarRoom};
}

QSize YearStrip::minimumSizeHint() const {
    return {fontMetrics().averageCharWidth() * (LeastMonth + 1) * Months, headHeight() + BarRoom};
}

qreal YearStrip::edgeOf(const Datum& day) const {
    const QDate first(calendar_.Jahr, 1, 1);
    const qint64 passed = first.daysTo(QDate(day.Year, day.Month, day.Day));
    return static_cast<qreal>(passed) * width() / first.daysInYear();
}

std::optional<Datum> YearStrip::dayAt(int x) const {
    if (x < 0 || x >= width()) {
        return std::nullopt;
    }
    const QDate first(calendar_.Jahr, 1, 1);
    const QDate date = first.addDays(static_cast<qint64>(x) * first.daysInYear() / width());
    return Datum{.Year = date.year(), .Month = date.month(), .Day = date.day()};
}

bool YearStrip::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) {
        return QWidget::event(event);
    }
    const auto* help = static_cast<QHelpEvent*>(event);
    const auto day = dayAt(help->pos().x());
    QToolTip::showText(help->globalPos(), day ? toQt(calendar_.Tagestext(*day)) : QString(), this);
    return true;
}

void YearStrip::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    paintMonths(painter);
    paintDays(painter);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void YearStrip::paintMonths(QPainter& painter) const {
    const QLocale locale = localeOf(calendar_.kern.Config.Sprache);
    for (int month = 1; month <= Months; ++month) {
        const qreal left = edgeOf({.Year = calendar_.Jahr, .Month = month, .Day = 1});
        const qreal right = month == Months ? width() : edgeOf({.Year = calendar_.Jahr, .Month = month + 1, .Day = 1});
        const QRectF room(left, 0, right - left, headHeight());
        if (month % 2 == 0) {
            painter.fillRect(QRectF(left, 0, right - left, height()), palette().color(QPalette::AlternateBase));
        }
        painter.setPen(palette().color(QPalette::Text));
        const QString name = locale.standaloneMonthName(month, QLocale::ShortFormat);
        painter.drawText(room, Qt::AlignCenter, fontMetrics().elidedText(name, Qt::ElideRight, qRound(room.width())));
    }
}

void YearStrip::paintDays(QPainter& painter) const {
    const QColor ink = isDark(palette()) ? OnDark : OnLight;
    for (Datum day{.Year = calendar_.Jahr, .Month = 1, .Day = 1}; day.Year == calendar_.Jahr;
         day = Datum_Plus(day, 1)) {
        const int entries = calendar_.Eintraege(day);
        if (entries == 0) {
            continue;
        }
        const qreal left = edgeOf(day);
        // Never narrower than what the eye finds; a day of several rows takes the whole height.
        const qreal wide = std::max(2.0, edgeOf(Datum_Plus(day, 1)) - left);
        const int high = entries > 1 ? BarRoom - 2 : BarRoom / 2;
        painter.fillRect(QRectF(left, height() - 1 - high, wide, high), ink);
    }
}

} // namespace qvm::ui
