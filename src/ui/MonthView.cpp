#include "MonthView.h"

#include "Bind.h"
#include "TextSlots.h"
#include "Theme.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QLocale>
#include <QScreen>
#include <QTextCharFormat>
#include <QToolButton>

#include <algorithm>
#include <utility>

namespace qvm::ui {
namespace {

QDate toDate(const Datum& day) {
    return {day.Year, day.Month, day.Day};
}

} // namespace

MonthView::MonthView(const QString& name, QWidget* parent) : QCalendarWidget(parent) {
    nameWidget(this, name);
    setFirstDayOfWeek(Qt::Monday);
    setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    setGridVisible(false);
    setMinimumSize(fontMetrics().horizontalAdvance(QStringLiteral("00")) * 20, fontMetrics().height() * 13);
    dress();
    const auto pick = [this](const QDate& date) {
        if (onPick) {
            onPick({.Year = date.year(), .Month = date.month(), .Day = date.day()});
        }
    };
    connect(this, &QCalendarWidget::clicked, this, pick);
    // Return; a click has been told already and closed the popup.
    connect(this, &QCalendarWidget::activated, this, [this, pick](const QDate& date) {
        if (isVisible() || !isWindow()) {
            pick(date);
        }
    });
}

/// Sundays and arrows in colours that stay legible on every palette.
void MonthView::dress() {
    QTextCharFormat weekend;
    weekend.setForeground(isDark(palette()) ? QColor(255, 140, 130) : QColor(176, 32, 32));
    setWeekdayTextFormat(Qt::Saturday, weekend);
    setWeekdayTextFormat(Qt::Sunday, weekend);
    const std::pair<const char*, Qt::ArrowType> arrows[] = {{"qt_calendar_prevmonth", Qt::LeftArrow},
                                                            {"qt_calendar_nextmonth", Qt::RightArrow}};
    for (const auto& [name, arrow] : arrows) {
        if (auto* button = findChild<QToolButton*>(QString::fromLatin1(name))) {
            button->setIcon(QIcon());
            button->setArrowType(arrow);
        }
    }
}

void MonthView::changeEvent(QEvent* event) {
    QCalendarWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        dress();
    }
}

void MonthView::setLanguage(std::string_view sprache) {
    const QLocale locale = sprache == SprachNamen[1]   ? QLocale(QLocale::English, QLocale::UnitedKingdom)
                           : sprache == SprachNamen[2] ? QLocale(QLocale::French, QLocale::France)
                           : sprache == SprachNamen[3] ? QLocale(QLocale::Dutch, QLocale::Netherlands)
                                                       : QLocale(QLocale::German, QLocale::Germany);
    setLocale(locale);
    setFirstDayOfWeek(Qt::Monday);
}

void MonthView::setDay(const Datum& day) {
    setSelectedDate(toDate(day));
}

Datum MonthView::day() const {
    const QDate date = selectedDate();
    return {.Year = date.year(), .Month = date.month(), .Day = date.day()};
}

void MonthView::setLastDay(const Datum& day) {
    setMaximumDate(toDate(day));
}

void MonthView::popUpUnder(QWidget* widget) {
    setWindowFlags(Qt::Popup);
    adjustSize();
    QRect place(widget->mapToGlobal(QPoint(0, widget->height())), sizeHint());
    if (const QScreen* screen = widget->screen()) {
        const QRect room = screen->availableGeometry();
        if (place.bottom() > room.bottom()) {
            place.moveBottom(widget->mapToGlobal(QPoint(0, 0)).y());
        }
        place.moveLeft(std::clamp(place.left(), room.left(), std::max(room.left(), room.right() - place.width())));
    }
    setGeometry(place);
    show();
    setFocus();
}

void MonthView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && isWindow()) {
        close();
    } else {
        QCalendarWidget::keyPressEvent(event);
    }
}

} // namespace qvm::ui
