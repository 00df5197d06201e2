// Words and widths of F42, its slots in the language in use, and its status line.

#include "F42.h"
#include "UndoMenu.h"
#include "Wochenbild.h"
#include "Wochentage.h"
#include "Worte.h"
#include "Zeit.h"

#include <array>
#include <vector>

namespace qvm {

void F42::Texte_Setzen() {
    Fenster.Title = Fenstertitel(kern.Zeile(Line::GuestTimers));
    Label1.Text = kern.Zeile(Line::TimeOffset);
    Frame1.Text = kern.Zeile(Line::DefaultTimes);
    Label2.Text = kern.Zeile(Line::CheckIn) + " :";
    Label3.Text = kern.Zeile(Line::CheckOut) + " :";
    Label4.Text = std::string("hh:mm");
    Label5.Text = std::string("hh:mm");
    Frame2.Text = kern.Zeile(Line::FieldOfUse);
    Label6.Text = kern.Zeile(Line::OperatingMode) + " :";
    Label7.Text = kern.Zeile(Line::TimerGroup);
    Combo1.Entries = std::vector<std::string>{kern.Zeile(Line::Hotel), kern.Zeile(Line::Object)};
    FGK42.SetText(0, OffsetColumn::Number, kern.Zeile(Line::Number));
    FGK42.SetText(0, OffsetColumn::Name, kern.Zeile(Line::Designation));
    FGK42.SetText(0, OffsetColumn::Time, kern.Zeile(Line::Time));
    FGK42.SetText(0, OffsetColumn::Base, kern.Zeile(Line::BaseTime));
    FGK42B.SetText(0, GuestSlotColumn::Number, kern.Zeile(Line::Number));
    FGK42B.SetText(0, GuestSlotColumn::Day, kern.Zeile(Line::Day));
    FGK42B.SetText(0, GuestSlotColumn::From, kern.Zeile(Line::From));
    FGK42B.SetText(0, GuestSlotColumn::To, kern.Zeile(Line::To));
    FGK42B.SetText(0, GuestSlotColumn::Selection, "Sel");
    Toolbar1[0].Tip = kern.Zeile(Line::Back);
    Toolbar1[1].Tip = kern.Zeile(Line::Save);
    F42Loeschen.Text = Wort(kern, Line::Delete, u8"Löschen"_w);
    Schritte_Zeigen(kern, steps_, Rueckgaengig, Wiederholen);
    Slots_Zeigen();
    Stand_Zeigen();
}

void F42::Slots_Zeigen() {
    for (int row = 1; row <= GuestSlotRows; ++row) {
        const GuestSlot& slot = slots_[static_cast<std::size_t>(row) - 1];
        const bool known = firstUnknown_ == 0 || row < firstUnknown_;
        FGK42B.SetText(row, GuestSlotColumn::Day, known ? Wochentag_Text(kern, slot.Day) : "?");
        FGK42B.SetText(row, GuestSlotColumn::From, known ? slot.From : "");
        FGK42B.SetText(row, GuestSlotColumn::To, known ? slot.To : "");
    }
    Woche_Zeigen();
}

void F42::Woche_Zeigen() {
    std::vector<WeekSlot> slots;
    for (int row = 1; row <= GuestSlotRows; ++row) {
        if (FGK42B.Text(row, GuestSlotColumn::Selection) == "X") {
            slots.push_back(Wochenzeit(kern, FGK42B, row));
        }
    }
    Woche.Chart = Wochenbild(kern, slots);
}

/// An offset without a time of day, or whose base is none of the default times, has no effect on a guest card.
void F42::Stand_Zeigen() {
    const std::string& name = FGK42.Text(FGK42.Row, OffsetColumn::Name);
    const std::string& base = FGK42.Text(FGK42.Row, OffsetColumn::Base);
    const bool used = FGK42.Row >= 1 && !Trim(name).empty() && name != "OFF";
    const bool lost = base != Text1.Text() && base != Text2.Text();
    const bool none = !Uhrzeit_Lesen(Trim(FGK42.Text(FGK42.Row, OffsetColumn::Time)));
    Mangel.Text = !used  ? std::string()
                  : none ? Wort(kern, Word::OffsetTimeLost)
                  : lost ? Wort(kern, Word::OffsetBaseLost)
                         : std::string();
}

int F42::Breite(int column) {
    constexpr std::array<int, OffsetColumn::Count> widths{400, 2000, 900, 1200, 0};
    return column >= 0 && column < OffsetColumn::Count ? widths[static_cast<std::size_t>(column)] : 0;
}

int F42::BreiteB(int column) {
    constexpr std::array<int, GuestSlotColumn::Count> widths{400, 2200, 900, 900, 600};
    return column >= 0 && column < GuestSlotColumn::Count ? widths[static_cast<std::size_t>(column)] : 0;
}

} // namespace qvm
