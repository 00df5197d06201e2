// Words, status line, and which days are entered.

#include "HolidayCalendar.h"
#include "UndoMenu.h"
#include "Worte.h"

#include <vector>

namespace qvm {
namespace {

constexpr int FirstYear = 100, LastYear = 9999; // that a date can have
constexpr int MonthsOfYear = 12;

std::string Zeilen_Text(const std::vector<int>& rows) {
    std::string text;
    for (const int row : rows) {
        text += (text.empty() ? "" : ", ") + Ziffern(row);
    }
    return text;
}

} // namespace

void HolidayCalendar::Texte_Setzen() {
    Fenster.Title = Fenstertitel(kern.Zeile(Traits.Purpose));
    Label1.Text = kern.Zeile(Traits.Caption);
    Zellen_Uebersetzen();
    FGK.SetText(0, CalendarColumn::Number, kern.Zeile(Line::Number));
    FGK.SetText(0, CalendarColumn::From, kern.Zeile(Line::DateFrom));
    FGK.SetText(0, CalendarColumn::To, kern.Zeile(Line::DateTo));
    FGK.SetText(0, CalendarColumn::Kind, Traits.Block == KalenderBlock::Einzel ? Art(1) + "\\ " + Art(0) : "");
    List.Entries = std::vector<std::string>{Art(1), Art(0)};
    Toolbar1[0].Tip = kern.Zeile(Line::Back);
    Toolbar1[2].Tip = Wort(kern, Word::UsersExport);
    Toolbar1[4].Tip = kern.Zeile(Line::Save);
    Loeschen.Text = Wort(kern, Line::Delete, u8"Löschen"_w);
    FrueheresJahr.Text = Wort(kern, Word::PreviousYear);
    SpaeteresJahr.Text = Wort(kern, Word::NextYear);
    Schritte_Zeigen(kern, Verlauf, Rueckgaengig, Wiederholen);
    Stand_Zeigen();
    Jahr_Zeigen(Jahr);
}

/// A save tells the kind by its word: one of another language would become the first kind.
void HolidayCalendar::Zellen_Uebersetzen() {
    const std::array<std::string, 2>& now = kern.Sprache.FeiertagsTexte;
    if (now == cellWords_) {
        return;
    }
    for (int row = FirstRow; row <= LastRow; ++row) {
        for (std::size_t n = 0; n < now.size(); ++n) {
            if (FGK.Text(row, CalendarColumn::Kind) == cellWords_[n]) {
                FGK.SetText(row, CalendarColumn::Kind, now[n]);
                break;
            }
        }
    }
    cellWords_ = now;
    Verlauf.Forget();
}

void HolidayCalendar::Tage_Suchen() {
    days_ = HolidayDays(FGK, Traits.Block);
    for (int row = FirstRow; row <= LastRow; ++row) {
        const Colour ground = days_.Others(row).empty() ? White : CalendarLook::DayTwice;
        FGK.SetBackColor(row, CalendarColumn::From, ground);
        FGK.SetBackColor(row, CalendarColumn::To, ground);
    }
    Stand_Zeigen();
    Jahr_Zeigen(Jahr);
}

void HolidayCalendar::Stand_Zeigen() {
    int used = 0;
    for (int row = FirstRow; row <= LastRow; ++row) {
        used += days_.State(row) == HolidayRowState::Empty ? 0 : 1;
    }
    Belegung.Text = Wort(kern, Word::HolidayCount, {Ziffern(used), Ziffern(CalendarRows - used)});
    const HolidayRowState state = days_.State(FGK.Row);
    const std::vector<int> others = days_.Others(FGK.Row);
    if (state == HolidayRowState::Unfinished) {
        Mangel.Text = Wort(kern, Word::HolidayUnfinished);
    } else if (state == HolidayRowState::NoSpan) {
        Mangel.Text = Wort(kern, Word::HolidayNoSpan);
    } else {
        Mangel.Text = others.empty() ? std::string() : Wort(kern, Word::HolidayTwice, {Zeilen_Text(others)});
    }
}

void HolidayCalendar::Jahr_Zeigen(int year) {
    if (year < FirstYear || year > LastYear) {
        return;
    }
    Jahr = year;
    int entered = 0;
    int twice = 0;
    for (int month = 1; month <= MonthsOfYear; ++month) {
        for (Datum day{.Year = year, .Month = month, .Day = 1}; Datum_Gueltig(day); ++day.Day) {
            const int rows = days_.Count(day);
            entered += rows > 0 ? 1 : 0;
            twice += rows > 1 ? 1 : 0;
        }
    }
    Jahreszahl.Text = Ziffern(year);
    Jahrestage.Text = twice == 0 ? Wort(kern, Word::HolidayYear, {Ziffern(entered)})
                                 : Wort(kern, Word::HolidayYearTwice, {Ziffern(entered), Ziffern(twice)});
    if (Tage_Geaendert) {
        Tage_Geaendert();
    }
}

std::string HolidayCalendar::Tip(int row, int column) const {
    const bool silent = row == 0 && column == CalendarColumn::Kind && FGK.Text(row, column).empty();
    return silent ? Art(1) + ", " + Art(0) : std::string();
}

std::string HolidayCalendar::Tagestext(const Datum& day) const {
    const std::vector<int> rows = days_.Rows(day);
    return rows.empty() ? std::string() : Wort(kern, Word::HolidayDay, {Datum_Text(day), Zeilen_Text(rows)});
}

} // namespace qvm
