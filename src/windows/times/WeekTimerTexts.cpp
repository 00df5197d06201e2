// The switch clocks: words, status line, steps, and what is shown of the group under the pointer.

#include "UndoMenu.h"
#include "WeekTimer.h"
#include "Wochenbild.h"
#include "Wochentage.h"
#include "Worte.h"

#include <algorithm>

namespace qvm {

void WeekTimer::Texte_Setzen() {
    Editor_Verlassen();
    Fenster.Title = Fenstertitel(kern.Zeile(Traits.Purpose));
    Label1.Text = kern.Zeile(Line::TimeSlots);
    Label3.Text = kern.Zeile(Line::TimerGroups);
    Koepfe_Setzen();
    Zellen_Uebersetzen();
    std::vector<std::string> days;
    for (int index = 0; index <= LetzterWochentag; ++index) {
        days.push_back(Wochentag_Text(kern, index));
    }
    List1.Entries = days;
    for (ToolButton& button : Toolbar1) {
        button.Tip = button.Key == u8"Zurück"_w  ? kern.Zeile(Line::Back)
                     : button.Key == "CSV-Print" ? Wort(kern, Word::UsersExport)
                     : button.Key == "Speichern" ? kern.Zeile(Line::Save)
                                                 : std::string();
    }
    Loeschen.Text = Wort(kern, Line::Delete, u8"Löschen"_w);
    Info_Verbergen();
    Stand_Zeigen();
}

void WeekTimer::Koepfe_Setzen() {
    for (const auto& [column, line] :
         {std::pair{SlotColumn::Number, Line::Number}, std::pair{SlotColumn::Day, Line::Day},
          std::pair{SlotColumn::From, Line::From}, std::pair{SlotColumn::To, Line::To}}) {
        FGK1.SetText(0, column, kern.Zeile(line));
    }
    FGK3.SetText(0, GroupColumn::Number, kern.Zeile(Line::Number));
    FGK3.SetText(0, GroupColumn::Name, kern.Zeile(Line::GroupName));
    FGK3.SetText(0, GroupColumn::SlotCount, kern.Zeile(Line::SlotCount));
}

/// A save finds the day by its word: one of another language would become that of the row before.
void WeekTimer::Zellen_Uebersetzen() {
    const std::vector<std::string> now(kern.Sprache.TagTexte.begin(), kern.Sprache.TagTexte.end());
    if (now == cellDays_) {
        return;
    }
    for (int row = FirstRow; row <= Traits.Slots.Count; ++row) {
        const auto found = std::find(cellDays_.begin(), cellDays_.end(), FGK1.Text(row, SlotColumn::Day));
        if (found != cellDays_.end()) {
            FGK1.SetText(row, SlotColumn::Day, now[static_cast<std::size_t>(found - cellDays_.begin())]);
        }
    }
    cellDays_ = now;
    Stand_Merken();
    steps_.Forget();
}

void WeekTimer::Stand_Zeigen() {
    int on = 0;
    for (int row = FirstRow; row <= Traits.Slots.Count; ++row) {
        on += FGK1.Text(row, SlotColumn::Day) == Wochentag_Text(kern, 0) ? 0 : 1;
    }
    int named = 0;
    std::string holders;
    for (int row = FirstRow; row <= Traits.Groups; ++row) {
        const GroupEntry& group = Gruppe(row);
        named += group.Name.empty() ? 0 : 1;
        if (FGK1.Row >= FirstRow && Mid(group.Days, static_cast<std::size_t>(FGK1.Row), 1) == "X") {
            holders += (holders.empty() ? "" : ", ") + (group.Name.empty() ? Ziffern(row) : group.Name);
        }
    }
    Belegung.Text = Wort(kern, Word::TimerCount,
                         {Ziffern(on), Ziffern(Traits.Slots.Count), Ziffern(named), Ziffern(Traits.Groups)});
    Verwendung.Text = holders.empty() ? std::string() : Wort(kern, Word::TimerSlotUsed, {Ziffern(FGK1.Row), holders});
    Schritte_Zeigen(kern, steps_, Rueckgaengig, Wiederholen);
}

void WeekTimer::Editor_Verlassen() {
    Text1_Uebernehmen();
    if (Text2.Visible()) {
        if (refused_.empty() || refused_ != Text2.Text()) {
            Text2_Uebernehmen();
        }
        if (Text2.Visible()) {
            Name_Zuruecklegen();
        }
    }
    Listen_Schliessen();
}

void WeekTimer::Listen_Schliessen() {
    List1.Visible = false;
    List2.Visible = false;
}

void WeekTimer::Schritt_Gehen(std::optional<UndoStep> (GridUndo::*way)(), Word told) {
    Editor_Verlassen();
    const auto step = (steps_.*way)();
    if (!step) {
        return;
    }
    Stand_Herstellen();
    Geaendert = true;
    Info_Verbergen();
    Schritt_Finden(*step);
    Stand_Zeigen();
    Hinweis.Text = Schritt_Meldung(kern, told, *step);
}

void WeekTimer::Schritt_Finden(const UndoStep& step) {
    const int slots = Traits.Slots.Count;
    if (step.Row < slots) {
        SlotAuswahl.Go(step.Row + FirstRow, step.Column + SlotColumn::Day);
    } else {
        const int group = (step.Row - slots) % Traits.Groups + FirstRow;
        GruppenAuswahl.Go(group, step.Column == GroupColumn::Name ? GroupColumn::Name : GroupColumn::SlotCount);
    }
}

// ---- the group under the pointer

GridPointer WeekTimer::Zeiger() {
    const GridPointer mouse = Maus ? Maus() : GridPointer{};
    if (mouse != mouse_) {
        mouse_ = mouse;
        byKeys_ = false;
    } else if (FGK3.Row != keyRow_) {
        byKeys_ = true;
    }
    keyRow_ = FGK3.Row;
    return byKeys_ && Tastatur_Da && Tastatur_Da() ? GridPointer{.Row = FGK3.Row, .Column = GroupColumn::Name} : mouse;
}

void WeekTimer::Ruhe_Pruefen() {
    constexpr int rest = 2;
    const GridPointer here = Zeiger();
    if (here != pointer_) {
        pointer_ = here;
        idle_ = 0;
        return;
    }
    if (++idle_ < rest) {
        return;
    }
    idle_ = 0;
    Timer2.Stop();
    if (here.Column >= GroupColumn::Number && here.Column <= GroupColumn::SlotCount) {
        Info_Zeigen(here.Row);
    } else {
        Info_Verbergen();
    }
    Timer2.Start(HoverNext);
}

void WeekTimer::Info_Zeigen(int row) {
    const bool editor = Text2.Visible() || List2.Visible();
    const bool same = row >= FirstRow && row == infoRow_ && Info.FGK3i.Visible();
    if (!same && InfoPbS_Anzeigen(kern, FGK1, Gruppen, editor, row, Info) < 0) {
        return;
    }
    infoRow_ = row;
    Woche.Chart = Wochenbild(kern, Wochenzeiten(kern, FGK1, Gruppe(row).Days));
    Woche.Visible = true;
}

void WeekTimer::Info_Verbergen() {
    infoRow_ = 0;
    Info.FGK3i.ClearRows(FirstRow);
    Info.FGK3i.Visible = false;
    Info.Name.Text = std::string();
    Info.Name.Visible = false;
    Woche.Visible = false;
}

void WeekTimer::Titel_Blinken() {
    Fenster.Title = Fenster.Title().empty() ? Fenstertitel(kern.Zeile(Traits.Purpose)) : std::string();
}

int WeekTimer::SlotBreite(int column) {
    constexpr std::array<int, SlotColumn::Count> widths{500, 2600, 900, 900};
    return column >= 0 && column < SlotColumn::Count ? widths[static_cast<std::size_t>(column)] : 0;
}

int WeekTimer::GruppenBreite(int column) {
    constexpr std::array<int, GroupColumn::Count> widths{500, 3000, 1200, 0, 0};
    return column >= 0 && column < GroupColumn::Count ? widths[static_cast<std::size_t>(column)] : 0;
}

} // namespace qvm
