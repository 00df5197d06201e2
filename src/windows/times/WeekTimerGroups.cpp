// The switch clocks: names and slots of the groups.

#include "Eingabe.h"
#include "TimeRecords.h"
#include "WeekTimer.h"

#include <algorithm>
#include <utility>

namespace qvm {
namespace {

/// Marks a slot that is off in the list, in whatever language: the word itself is looked for.
constexpr std::string_view OffWord = "OFF";
constexpr char In = 'X', Out = '-';
constexpr std::size_t LongestGroupName = TimeGroup::Name.Width;
constexpr std::size_t PbIdHead = 3; // "PB_"

} // namespace

bool WeekTimer::FGK3_Beschreibbar(int row, int column) const {
    return FGK3.Holds(row, column) && row >= Traits.FirstFree && column == GroupColumn::Name;
}

void WeekTimer::FGK3_MouseUp(MouseButton button, int row, int column) {
    if (Info.FGK3i.Visible) {
        Info_Verbergen();
        Timer2.Start();
    }
    Editor_Verlassen();
    if (row < FirstRow || !FGK3.Holds(row, column)) {
        return;
    }
    if (button == MouseButton::Right && GruppenAuswahl.Larger() && GruppenAuswahl.Holds(row, column)) {
        GruppenAuswahl.Within(row, column);
    } else {
        GruppenAuswahl.Go(row, column);
    }
    if (button == MouseButton::Right && column == GroupColumn::Name) {
        FGK3_Kontext();
    }
}

void WeekTimer::FGK3_Kontext() {
    Editor_Verlassen();
    if (FGK3.Row < Traits.FirstFree) {
        return;
    }
    MenueZeile = FGK3.Row;
    if (Menue_Zeigen) {
        Menue_Zeigen(Menu::Groups);
    }
}

void WeekTimer::FGK3_DblClick(int row, int column) {
    Editor_Verlassen();
    if (FGK3.Holds(row, column) && row >= Traits.FirstFree &&
        (column == GroupColumn::Name || column == GroupColumn::SlotCount)) {
        GruppenAuswahl.Go(row, column);
        Gruppe_Aktivieren(row, column);
    }
    TasteName = 0;
}

void WeekTimer::FGK3_KeyPress(int key) {
    TasteName = key;
    FGK3_DblClick(FGK3.Row, FGK3.Column);
}

void WeekTimer::Gruppe_Aktivieren(int row, int column) {
    AktZeile = row;
    AktSpalte = column;
    const int key = std::exchange(TasteName, 0);
    if (column == GroupColumn::SlotCount) {
        SlotListe_Fuellen();
        List2.Visible = true;
        return;
    }
    AlterName = FGK3.Text(row, column);
    FGK3.SetText(row, column, "");
    refused_.clear();
    escaped_ = false;
    const bool typed = Ist_Zeichen(key);
    Text2.MaxLength = static_cast<int>(LongestGroupName);
    Text2.Text = typed ? std::string(1, static_cast<char>(key)) : AlterName;
    Text2.Caret = static_cast<int>(Text2.Text().size());
    Text2.Visible = true;
    if (!typed && Text2.SelectAll) {
        Text2.SelectAll();
    }
}

void WeekTimer::Text2_Change(std::string_view text) {
    if (!Text2.Visible()) {
        return;
    }
    const std::string offered(text); // which may be that of the box
    const std::string kept = Gefiltert(offered, Jedes_Zeichen).substr(0, LongestGroupName);
    escaped_ = false;
    refused_.clear();
    Text2.Text = kept;
    if (kept != offered) {
        Text2.Caret = static_cast<int>(kept.size());
    }
}

void WeekTimer::Text2_KeyPress(int key) {
    if (!Text2.Visible()) {
        return;
    }
    if (key == Key::Tab || key == Key::Enter) {
        Text2_Uebernehmen();
    } else if (key == Key::Escape && escaped_) {
        Name_Zuruecklegen(); // or the keyboard would never get out of a group without a name
    } else if (key == Key::Escape) {
        escaped_ = true;
        Text2.Text = AlterName;
        Text2.Caret = static_cast<int>(AlterName.size());
        Text1_Uebernehmen();
    }
}

/// What differs in blanks at its ends alone is the same name in the file.
bool WeekTimer::Name_Vergeben(std::string_view name) const {
    for (int row = FirstRow; row <= Traits.Groups; ++row) {
        if (Trim(FGK3.Text(row, GroupColumn::Name)) == Trim(name)) {
            return true;
        }
    }
    return false;
}

void WeekTimer::Text2_Uebernehmen() {
    const std::string name = Text2.Text();
    if (!Text2.Visible() || Trim(name).empty()) {
        return;
    }
    if (Name_Vergeben(name)) {
        refused_ = name;
        kern.Meldung(kern.Zeile(Line::EntryExists), Buttons::Ok, Icon::Exclamation, InfoTitle);
        return;
    }
    Text2.Visible = false;
    Text2.Text = std::string();
    Aendern(Word::StepEdit, [&] {
        FGK3.SetText(AktZeile, GroupColumn::Name, name);
        Gruppe(AktZeile).Name = std::string(LTrim(name));
        Kennung_Geben(AktZeile);
    });
    ++AktSpalte;
    GruppenAuswahl.Go(AktZeile, AktSpalte);
}

void WeekTimer::Name_Zuruecklegen() {
    Text2.Visible = false;
    Text2.Text = std::string();
    FGK3.SetText(AktZeile, GroupColumn::Name, AlterName);
}

/// Two groups that are named within one second do not become one. An identifier that is there stays, whoever has it,
/// too: users and locks go by it.
void WeekTimer::Kennung_Geben(int row) {
    GroupEntry& group = Gruppe(row);
    const std::string before = group.PbId;
    PbId_Sichern(kern, group);
    const auto taken = [&](const GroupEntry& other) { return &other != &group && other.PbId == group.PbId; };
    const std::string head = group.PbId.substr(0, PbIdHead);
    auto seconds = static_cast<std::int64_t>(Zahlwert(std::string_view(group.PbId).substr(PbIdHead)));
    while (group.PbId != before && std::any_of(Gruppen.begin(), Gruppen.end(), taken)) {
        group.PbId = head + Ziffern(++seconds);
    }
    FGK3.SetText(row, GroupColumn::PbId, group.PbId);
}

// ---- slots of a group

void WeekTimer::SlotListe_Fuellen() {
    std::vector<CheckList::Entry> entries;
    SlotWahl.assign(static_cast<std::size_t>(Traits.Slots.Count), false);
    for (int slot = 1; slot <= Traits.Slots.Count; ++slot) {
        const bool in = Mid(Gruppe(AktZeile).Days, static_cast<std::size_t>(slot), 1) == std::string_view(&In, 1);
        SlotWahl[static_cast<std::size_t>(slot) - 1] = in;
        entries.push_back({.Text = "Num." + Ziffern(slot) + " :  " + FGK1.Text(slot, SlotColumn::Day) + " [ " +
                                   FGK1.Text(slot, SlotColumn::From) + " - " + FGK1.Text(slot, SlotColumn::To) + " ] ",
                           .Checked = in});
    }
    List2.Entries = std::move(entries);
    List2.Current = 0;
}

void WeekTimer::List2_Schalten(int entry, bool checked) {
    const auto at = static_cast<std::size_t>(entry);
    if (!List2.Visible() || entry < 0 || at >= SlotWahl.size()) {
        return;
    }
    const auto chosen = std::count(SlotWahl.begin(), SlotWahl.end(), true);
    const bool off = List2.Entries()[at].Text.find(OffWord) != std::string::npos;
    const bool full = checked && !SlotWahl[at] && chosen >= Traits.Slots.Count;
    std::vector<CheckList::Entry> entries = List2.Entries();
    entries[at].Checked = checked && !off && !full;
    SlotWahl[at] = entries[at].Checked;
    List2.Entries = std::move(entries);
    if (off || full) {
        kern.Meldung(kern.Zeile(Line::SlotNotAddable), Buttons::Ok, Icon::Exclamation, InfoTitle);
    }
}

void WeekTimer::List2_Uebernehmen() {
    if (!List2.Visible()) {
        return;
    }
    List2.Visible = false;
    std::string map;
    int count = 0;
    for (const bool chosen : SlotWahl) {
        map += chosen ? In : Out;
        count += chosen ? 1 : 0;
    }
    Aendern(Word::StepSlots, [&] {
        GroupEntry& group = Gruppe(AktZeile);
        group.Num = Ziffern(AktZeile);
        group.Name = std::string(LTrim(FGK3.Text(AktZeile, GroupColumn::Name)));
        group.Days = map;
        group.Count = Ziffern(count);
        FGK3.SetText(AktZeile, GroupColumn::Days, map);
        FGK3.SetText(AktZeile, GroupColumn::SlotCount, group.Count);
        if (!group.Name.empty()) {
            Kennung_Geben(AktZeile);
        }
    });
}

// ---- delete

std::vector<int> WeekTimer::Zu_Loeschen() const {
    std::vector<int> rows{MenueZeile};
    if (GruppenAuswahl.Larger() && GruppenAuswahl.Holds(MenueZeile, GroupColumn::Name)) {
        rows = GruppenAuswahl.Rows();
    }
    std::erase_if(rows, [this](int row) { return row < Traits.FirstFree || row > Traits.Groups; });
    return rows;
}

void WeekTimer::Loeschen_Click() {
    Editor_Verlassen();
    const std::vector<int> rows = Zu_Loeschen();
    MenueZeile = 0;
    if (rows.empty()) {
        return;
    }
    Aendern(Word::StepDelete, [&] {
        for (const int row : rows) {
            for (int column = GroupColumn::Name; column < GroupColumn::Count; ++column) {
                FGK3.SetText(row, column, "");
            }
        }
        Gruppen_Ordnen();
    });
    Info_Verbergen();
    Timer2.Start(HoverDeleted);
}

/// The groups that are not fixed by their names, those without one last; numbers and table go by the rows.
void WeekTimer::Gruppen_Ordnen() {
    using Cells = std::array<std::string, GroupColumn::Count>;
    std::vector<Cells> groups;
    for (int row = Traits.FirstFree; row <= Traits.Groups; ++row) {
        Cells cells;
        for (int column = 0; column < GroupColumn::Count; ++column) {
            cells[static_cast<std::size_t>(column)] = FGK3.Text(row, column);
        }
        groups.push_back(std::move(cells));
    }
    std::stable_sort(groups.begin(), groups.end(), [](const Cells& one, const Cells& other) {
        const std::string &a = one[GroupColumn::Name], &b = other[GroupColumn::Name];
        return a.empty() || b.empty() ? !a.empty() && b.empty() : a < b;
    });
    for (int row = Traits.FirstFree; row <= Traits.Groups; ++row) {
        const Cells& cells = groups[static_cast<std::size_t>(row - Traits.FirstFree)];
        for (int column = GroupColumn::Name; column < GroupColumn::Count; ++column) {
            FGK3.SetText(row, column, cells[static_cast<std::size_t>(column)]);
        }
    }
    for (int row = FirstRow; row <= Traits.Groups; ++row) {
        FGK3.SetText(row, GroupColumn::Number, Ziffern(row - Traits.LessAfterDelete));
        Gruppe(row) = {FGK3.Text(row, GroupColumn::Number), FGK3.Text(row, GroupColumn::Name),
                       FGK3.Text(row, GroupColumn::Days), FGK3.Text(row, GroupColumn::SlotCount),
                       FGK3.Text(row, GroupColumn::PbId)};
    }
}

void WeekTimer::FGK3_Eintragen(int row, int column, std::string_view text) {
    if (!Fenster.Enabled || !FGK3_Beschreibbar(row, column)) {
        return;
    }
    FGK3_DblClick(row, column);
    Text2_Change(text);
    Text2_Uebernehmen();
    if (Text2.Visible()) {
        Name_Zuruecklegen();
    }
}

} // namespace qvm
