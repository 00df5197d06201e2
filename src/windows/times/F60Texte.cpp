// Words, the stay, status line.

#include "F60.h"
#include "UndoMenu.h"
#include "Wochentage.h"

namespace qvm {
namespace {

std::int64_t Tageszahl(const Datum& day) {
    return Tage_Seit_2000({.Year = day.Year, .Month = day.Month, .Day = day.Day});
}

std::string Tag_Mit_Wochentag(const Kern& kern, const Datum& day) {
    return Wochentag_Text(kern, Wochentag(day)) + ", " + Datum_Text(day);
}

/// A day and a time as a card has them; empty when they are none.
std::string Kartenmoment(const std::vector<std::uint8_t>& bytes, std::size_t at) {
    constexpr std::size_t width = 5;
    constexpr int century = 2000, hours = 24, minutes = 60;
    if (bytes.size() < at + width) {
        return {};
    }
    const Datum day{.Year = century + bytes[at + 2], .Month = bytes[at + 1], .Day = bytes[at]};
    const int hour = bytes[at + 3], minute = bytes[at + 4];
    return Datum_Gueltig(day) && hour < hours && minute < minutes
               ? Datum_Text(day) + " " + Uhrzeit_Text(hour * minutes + minute)
               : std::string();
}

} // namespace

void F60::Texte_Setzen() {
    Schritte_Zeigen(kern, steps_, Rueckgaengig, Wiederholen);
    const auto named = [this](int line) { return kern.Zeile(line) + " :"; };
    Fenster.Title = Fenstertitel(kern.Zeile(Line::GuestCard));
    Label1.Text = kern.Zeile(Line::GuestCard);
    Frame1.Text = kern.Zeile(Line::DefaultTimes);
    Label2.Text = named(Line::CheckIn);
    Label3.Text = named(Line::CheckOut);
    for (Label* form : {&Label4, &Label5}) {
        form->Text = std::string("hh:mm");
    }
    Frame2.Text = kern.Zeile(Line::Validity);
    Label6.Text = named(Line::ValidFrom);
    Label7.Text = named(Line::ValidUntil);
    Label8.Text = named(Objekt ? Line::ObjectGroup : Line::ValidFrom);
    Label12.Text = kern.Zeile(Line::PleaseWait);
    Command1.Text = kern.Zeile(Line::Search);
    Command2.Text = Wort(kern, Word::WriteCard);
    Command3.Text = Wort(kern, Word::NewObjectGroup);
    Command4.Text = Wort(kern, Word::BatteryStatus);
    FGK60.SetText(0, CardColumn::Number, kern.Zeile(Line::Number));
    FGK60.SetText(0, CardColumn::Name, kern.Zeile(Line::LockName));
    FGK60.SetText(0, CardColumn::Serial, kern.Zeile(Line::SerialNumber));
    Toolbar1[0].Tip = kern.Zeile(Line::Back);
    Toolbar1[1].Tip = kern.Zeile(Line::Save);
    Betriebsart_Zeigen();
    Aufenthalt_Zeigen();
    Stand_Zeigen();
}

std::string F60::Tip(int row, int column) const {
    return row == 0 && column == CardColumn::Mark ? Wort(kern, Word::DoorMarks) : std::string();
}

/// Only an object has groups.
void F60::Betriebsart_Zeigen() {
    Label8.Visible = Objekt;
    List1.Visible = Objekt;
    List1.Enabled = Objekt;
    Command3.Visible = Objekt;
    Command3.Enabled = Objekt;
}

void F60::Aufenthalt_Zeigen() {
    Label10.Text = Datum_Text(CheckIn);
    Label11.Text = Datum_Text(CheckOut);
    const std::int64_t nights = Tageszahl(CheckOut) - Tageszahl(CheckIn);
    const auto in = Uhrzeit_Lesen(Trim(Text1.Text())), out = Uhrzeit_Lesen(Trim(Text2.Text()));
    const bool reversed = nights < 0 || (nights == 0 && out.value_or(0) < in.value_or(0)); // as the card has them
    Label11.ForeColor = reversed ? CardLook::Reversed : Black;
    Mangel.Text = !in || !out ? Wort(kern, Word::CardTimeMissing)
                  : reversed  ? Wort(kern, Word::StayReversed)
                              : std::string();
    const std::string from = Tag_Mit_Wochentag(kern, CheckIn), to = Tag_Mit_Wochentag(kern, CheckOut);
    Aufenthalt.Text = Wort(kern, Word::StayNights, {from, to, nights < 0 ? "-" : Ziffern(nights)});
}

void F60::Stand_Zeigen() {
    int single = 0;
    int permanent = 0;
    int noLock = 0;
    for (int row = FirstRow; row <= LastRow; ++row) {
        const std::string& mark = FGK60.Text(row, CardColumn::Mark);
        single += mark == DoorMark::Single ? 1 : 0;
        permanent += mark == DoorMark::Permanent ? 1 : 0;
        noLock += !mark.empty() && FGK60.Text(row, CardColumn::Serial).empty() ? 1 : 0;
    }
    const int beyond = single == 0 ? 0 : Karte().Uebergangen;
    const auto also = [this](Word word, int count) {
        return count == 0 ? std::string() : ", " + Wort(kern, word, {Ziffern(count)});
    };
    Markiert.Text = Wort(kern, Word::GuestDoors, {Ziffern(single), Ziffern(permanent)}) +
                    also(Word::GuestDoorsBeyond, beyond) + also(Word::GuestDoorsNoLock, noLock);
}

std::string KartenLesung::Moment(std::size_t which) const {
    const std::array<std::string, 2> ends{Kartenmoment(Teile[0], 4), Kartenmoment(Teile[0], 9)};
    return ends[0].empty() || ends[1].empty() ? std::string() : ends[which];
}

void F60::Lesung_Zeigen() {
    std::string battery;
    for (const std::uint8_t byte : Lesung.Batterie) {
        battery += (battery.empty() ? "" : " ") + HexText(byte, 2);
    }
    const std::string from = Lesung.Gueltig_Ab(), to = Lesung.Gueltig_Bis();
    Hinweis.Text =
        from.empty() ? Wort(kern, Word::CardReadShort, {battery}) : Wort(kern, Word::CardRead, {from, to, battery});
}

} // namespace qvm
