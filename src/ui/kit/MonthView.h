#pragma once

#include "Zeit.h"

#include <QCalendarWidget>

#include <functional>
#include <string>
#include <string_view>

namespace qvm::ui {

/// A month to pick a day from: weeks begin on Monday, names in the program's language.
class MonthView : public QCalendarWidget {
    Q_OBJECT

public:
    explicit MonthView(const QString& name, QWidget* parent = nullptr);

    /// One of the four names that the configuration knows; any other counts as German.
    void setLanguage(std::string_view sprache);
    /// What its day is for, where several stand in a window. Said at the days too, which have the keyboard. To be set
    /// behind the language.
    void setCaption(const QString& caption);
    void setDay(const Datum& day);
    Datum day() const;
    /// Picks the day of a text "dd.mm.yyyy", as a screen reader brings it. Any other text, and a day that cannot be
    /// picked, changes nothing.
    void pickText(std::string_view text);
    /// The first and the last day that can be picked.
    void setFirstDay(const Datum& day);
    void setLastDay(const Datum& day);
    /// From now on it is no part of its parent's page; until then it is.
    void makePopup();
    /// Pops up under the widget, on the screen; Escape or a click elsewhere closes it.
    void popUpUnder(QWidget* widget);

    std::function<void(const Datum& day)> onPick; ///< a click on a day, or Return
    /// How many entries a day has: a bar below its number for one, two bars for more.
    std::function<int(const Datum& day)> entriesOf;
    /// What a screen reader is told of the day that the keyboard is on, beside its date; empty: nothing.
    std::function<std::string(const Datum& day)> noteOf;

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintCell(QPainter* painter, const QRect& rect, QDate date) const override;

private:
    void dress();
    void dressArrow(const char* part, const char* drawing);
    void namePart(const char* part, const QString& name);
    QWidget* daysPart() const;
    void sayDay();
};

} // namespace qvm::ui
