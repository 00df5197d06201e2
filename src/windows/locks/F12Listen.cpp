// The lists over the cells: what they offer, and what becomes of a choice.

#include "F12.h"
#include "Schlossregeln.h"
#include "Zeit.h"

#include <algorithm>

namespace qvm {
namespace {

constexpr int MostOffsets = 4; ///< locks that can have one

} // namespace

ListBox* F12::Liste_Von(int column) {
    switch (column) {
    case LockColumn::Priority:
        return &List1;
    case LockColumn::AdapterId:
        return &List2;
    case LockColumn::Group:
        return &List3;
    case LockColumn::Offset:
        return &List4;
    case LockColumn::DoorMode:
        return &List5;
    default:
        return nullptr;
    }
}

void F12::Liste_Oeffnen() {
    edited_ = {FGK12.Row, FGK12.Column};
    OpenColumn = FGK12.Column;
    ListBox& list = *Liste_Von(OpenColumn);
    std::vector<std::string> entries = Eintraege(OpenColumn);
    list.Selected = Eintrag_Der_Zelle(entries);
    list.Entries = std::move(entries);
    FGK12.SetBackColor(edited_.Row, edited_.Column, LockLook::ListOpen);
    list.Visible = true;
}

/// What the list of the column offers.
std::vector<std::string> F12::Eintraege(int column) {
    if (column == LockColumn::Priority) {
        return {"1", "2", "3", "4", "5"};
    }
    if (column == LockColumn::DoorMode) {
        return {std::string(LockText::None), Tuermodus_Text(kern, "AA"), Tuermodus_Text(kern, "BB")};
    }
    std::vector<std::string> entries;
    if (column == LockColumn::AdapterId) {
        for (const LockAdapter& adapter : Tabelle.Adapters) {
            entries.push_back(adapter.Text);
        }
        return entries;
    }
    entries.emplace_back(LockText::None);
    if (column == LockColumn::Group) {
        for (const GroupEntry& group : Tabelle.GroupTableLock) {
            if (!group.Name.empty()) {
                entries.push_back(group.Name);
            }
        }
        return entries;
    }
    offered_ = {0};
    for (std::size_t n = 1; n < Tabelle.Offsets.size(); ++n) {
        if (!Tabelle.Offsets[n].Name.empty()) {
            entries.push_back(Tabelle.Offsets[n].Name);
            offered_.push_back(static_cast<int>(n));
        }
    }
    return entries;
}

int F12::Eintrag_Der_Zelle(const std::vector<std::string>& entries) const {
    if (OpenColumn == LockColumn::AdapterId) {
        const std::string& address = FGK12.Text(edited_.Row, LockColumn::AdapterId);
        const auto found = std::find_if(Tabelle.Adapters.begin(), Tabelle.Adapters.end(),
                                        [&](const LockAdapter& adapter) { return adapter.Adresse == address; });
        return address.empty() || found == Tabelle.Adapters.end() ? 0
                                                                  : static_cast<int>(found - Tabelle.Adapters.begin());
    }
    const auto found = std::find(entries.begin(), entries.end(), Trim(FGK12.Text(edited_.Row, edited_.Column)));
    return found == entries.end() ? 0 : static_cast<int>(found - entries.begin());
}

void F12::Eintrag_Waehlen(Place cell, int entry) {
    switch (cell.Column) {
    case LockColumn::Priority:
        Prioritaet_Waehlen(cell.Row, entry);
        break;
    case LockColumn::AdapterId:
        Adapter_Waehlen(cell.Row, entry);
        break;
    case LockColumn::Offset:
        Offset_Waehlen(cell.Row, entry);
        break;
    case LockColumn::DoorMode:
        Tuermodus_Waehlen(cell.Row, entry);
        break;
    default:
        Aendern(Word::StepEdit,
                [&] { FGK12.SetText(cell.Row, cell.Column, List3.Entries()[static_cast<std::size_t>(entry)]); });
    }
}

void F12::Prioritaet_Waehlen(int row, int entry) {
    const Answer answer = kern.Meldung(kern.Zeile(Line::PriorityChanges) + "\r\n" + kern.Zeile(Line::UseSelectedValue),
                                       Buttons::YesNo, Icon::Question, PrioTitle);
    if (answer != Answer::Yes && answer != Answer::No) {
        return; // closed without an answer
    }
    Aendern(Word::StepEdit, [&] {
        FGK12.SetText(row, LockColumn::Priority,
                      answer == Answer::Yes ? List1.Entries()[static_cast<std::size_t>(entry)]
                                            : std::string(LockText::DefaultPriority));
    });
}

void F12::Adapter_Waehlen(int row, int entry) {
    const LockAdapter adapter = Tabelle.Adapters[static_cast<std::size_t>(entry)];
    const bool none = adapter.Text == LockText::NoAdapter;
    const bool found = Adapter_Finden(Adapter, adapter.Name) != nullptr;
    Aendern(Word::StepEdit, [&] {
        FGK12.SetText(row, LockColumn::AdapterId, none ? "" : adapter.Adresse);
        FGK12.SetText(row, LockColumn::AdapterName, none ? " " : adapter.Name);
        FGK12.SetForeColor(row, LockColumn::AdapterId, found ? LockLook::AdapterFound : LockLook::AdapterUnknown);
    });
}

/// Of four locks at most one may be exchanged for another, but a fifth gets none.
void F12::Offset_Waehlen(int row, int entry) {
    const int which = offered_[static_cast<std::size_t>(entry)];
    int others = 0;
    for (int other = LockGrid::FirstRow; other <= LockGrid::LastRow; ++other) {
        others += other != row && !FGK12.Text(other, LockColumn::Offset).empty() ? 1 : 0;
    }
    if (which != 0 && others >= MostOffsets) {
        kern.Meldung(kern.Zeile(Line::OffsetsFull), Buttons::Ok, Icon::Exclamation, kern.Zeile(Line::LockSettings));
        return;
    }
    const OffsetEntry offset = which == 0 ? OffsetEntry{} : Tabelle.Offsets[static_cast<std::size_t>(which)];
    Aendern(Word::StepEdit, [&] {
        FGK12.SetText(row, LockColumn::Offset, offset.Name);
        FGK12.SetText(row, LockColumn::OffsetId, offset.Id);
    });
}

void F12::Tuermodus_Waehlen(int row, int entry) {
    constexpr int room = 1;
    const std::string text = entry == 0 ? std::string() : List5.Entries()[static_cast<std::size_t>(entry)];
    Aendern(Word::StepEdit, [&] {
        FGK12.SetText(row, LockColumn::DoorMode, text);
        FGK12.SetText(row, LockColumn::DoorDays,
                      entry == room ? Ziffern(Tage_Seit_2000(kern.Welt.Now())) : std::string());
    });
}

} // namespace qvm
