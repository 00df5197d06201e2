#include "MonthView.h"

#include "Bind.h"
#include "Geometry.h"
#include "QtWords.h"
#include "TextEdge.h"
#include "Theme.h"
#include "WindowAccess.h"
#include "Worttafel.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QTextCharFormat>
#include <QToolButton>

#include <algorithm>

namespace qvm::ui {
namespace {

constexpr int BarHeight = 2, BarGap = 1, MostBars = 2;

QDate toDate(const Datum& day) {
    return {day.Year, day.Month, day.Day};
}

Datum toDay(QDate date) {
    return {.Year = date.year(), .Month = date.month(), .Day = date.day()};
}

} // namespace

MonthView::MonthView(const QString& name, QWidget* parent) : QCalendarWidget(parent) {
    describeWindows();
    nameWidget(this, name);
    setFirstDayOfWeek(Qt::Monday);
    setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    setGridVisible(false);
    setDateEditEnabled(false); // any key, Space too, would open a line over the month to type a date into
    // The tiny arrow of a menu touches the month's name and reads as a comma.
    if (auto* month = findChild<QToolButton*>(QStringLiteral("qt_calendar_monthbutton"))) {
        month->setStyleSheet(QStringLiteral("QToolButton::menu-indicator { image: none; }"));
    }
    setMinimumSize(fontMetrics().horizontalAdvance(QStringLiteral("00")) * 20, fontMetrics().height() * 13);
    dress();
    const auto pick = [this](const QDate& date) {
        if (onPick) {
            onPick(toDay(date));
        }
    };
    connect(this, &QCalendarWidget::selectionChanged, this, &MonthView::sayDay);
    connect(this, &QCalendarWidget::clicked, this, pick);
    // Return; a click has been told already and closed the popup.
    connect(this, &QCalendarWidget::activated, this, [this, pick](const QDate& date) {
        if (isVisible() || !isWindow()) {
            pick(date);
        }
    });
}

/// Weekends and the bar above the days in colours that stay legible on every palette.
void MonthView::dress() {
    QTextCharFormat weekend;
    weekend.setForeground(isDark(palette()) ? QColor(255, 140, 130) : QColor(176, 32, 32));
    setWeekdayTextFormat(Qt::Saturday, weekend);
    setWeekdayTextFormat(Qt::Sunday, weekend);
    dressArrow("qt_calendar_prevmonth", "previous");
    dressArrow("qt_calendar_nextmonth", "next");
    for (const char* part : {"qt_calendar_monthbutton", "qt_calendar_yearbutton"}) {
        if (auto* button = findChild<QToolButton*>(QString::fromLatin1(part))) {
            QPalette onBar = palette();
            onBar.setColor(QPalette::ButtonText, onBar.color(QPalette::HighlightedText));
            button->setPalette(onBar);
        }
    }
}

void MonthView::dressArrow(const char* part, const char* drawing) {
    if (auto* button = findChild<QToolButton*>(QString::fromLatin1(part))) {
        button->setIcon(ownIcon(QString::fromLatin1(drawing), QPalette::HighlightedText));
    }
}

void MonthView::namePart(const char* part, const QString& name) {
    if (auto* widget = findChild<QWidget*>(QString::fromLatin1(part))) {
        widget->setAccessibleName(name);
        widget->setToolTip(name);
    }
}

void MonthView::changeEvent(QEvent* event) {
    QCalendarWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        dress();
    }
}

void MonthView::setLanguage(std::string_view sprache) {
    setLocale(localeOf(sprache));
    setFirstDayOfWeek(Qt::Monday);
    setAccessibleName(word(Word::Calendar, sprache));
    namePart("qt_calendar_prevmonth", word(Word::PreviousMonth, sprache));
    namePart("qt_calendar_nextmonth", word(Word::NextMonth, sprache));
    namePart("qt_calendar_monthbutton", word(Word::Month, sprache));
    namePart("qt_calendar_yearbutton", word(Word::Year, sprache));
    namePart("qt_calendar_yearedit", word(Word::Year, sprache));
    if (QWidget* days = daysPart()) {
        days->setAccessibleName(word(Word::Days, sprache));
    }
}

void MonthView::setCaption(const QString& caption) {
    setAccessibleName(caption);
    if (QWidget* days = daysPart()) {
        days->setAccessibleName(caption);
    }
}

QWidget* MonthView::daysPart() const {
    return findChild<QWidget*>(QStringLiteral("qt_calendar_calendarview"));
}

/// At the days, which have the keyboard: their cells know their numbers only.
void MonthView::sayDay() {
    QWidget* days = daysPart();
    const QString note = noteOf ? toQt(noteOf(day())) : QString();
    if (days == nullptr || days->accessibleDescription() == note) {
        return;
    }
    days->setAccessibleDescription(note);
    QAccessibleEvent told(days, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&told);
}

void MonthView::setDay(const Datum& day) {
    setSelectedDate(toDate(day));
}

Datum MonthView::day() const {
    return toDay(selectedDate());
}

void MonthView::pickText(std::string_view text) {
    const auto day = Datum_Lesen(text);
    if (!day || !isEnabled() || toDate(*day) < minimumDate() || toDate(*day) > maximumDate()) {
        return;
    }
    setDay(*day);
    if (onPick) {
        onPick(*day);
    }
}

void MonthView::setFirstDay(const Datum& day) {
    setMinimumDate(toDate(day));
}

void MonthView::setLastDay(const Datum& day) {
    setMaximumDate(toDate(day));
}

void MonthView::makePopup() {
    setWindowFlags(Qt::Popup);
}

void MonthView::popUpUnder(QWidget* widget) {
    makePopup();
    adjustSize();
    QRect place(widget->mapToGlobal(QPoint(0, widget->height())), sizeHint());
    if (const QScreen* screen = widget->screen()) {
        const QRect room = screen->availableGeometry();
        if (place.bottom() > room.bottom()) {
            place.moveBottom(widget->mapToGlobal(QPoint(0, 0)).y());
        }
        place.moveTopLeft(withinRoom(place.topLeft(), place.size(), room));
    }
    setGeometry(place);
    show();
    setFocus();
}

void MonthView::showEvent(QShowEvent* event) {
    QCalendarWidget::showEvent(event);
    if (isWindow()) {
        tellPopup(this, true);
    }
    sayDay(); // what is entered may be other than when it was open last
}

void MonthView::hideEvent(QHideEvent* event) {
    if (isWindow()) {
        tellPopup(this, false);
    }
    QCalendarWidget::hideEvent(event);
}

void MonthView::paintCell(QPainter* painter, const QRect& rect, QDate date) const {
    QCalendarWidget::paintCell(painter, rect, date);
    const int entries = entriesOf ? entriesOf(toDay(date)) : 0;
    const bool chosen = date == selectedDate();
    const QColor ink = palette().color(chosen ? QPalette::HighlightedText : QPalette::Text);
    for (int bar = 0; bar < std::min(entries, MostBars); ++bar) {
        const int bottom = rect.bottom() - BarGap - bar * (BarHeight + BarGap);
        painter->fillRect(QRect(rect.left() + rect.width() / 4, bottom - BarHeight + 1, rect.width() / 2, BarHeight),
                          ink);
    }
}

void MonthView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && isWindow()) {
        close();
    } else {
        QCalendarWidget::keyPressEvent(event);
    }
}

} // namespace qvm::ui
