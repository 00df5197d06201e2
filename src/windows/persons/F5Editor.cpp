// The editors over the cells: open, type, take over, leave.

#include "Benutzerzelle.h"
#include "Eingabe.h"
#include "F5.h"
#include "Filter.h"
#include "Secret.h"

#include <algorithm>

namespace qvm {
namespace {

constexpr std::size_t CodeLength = 6; ///< typed; a longer one comes from the file

constexpr int Groups = 7;

/// Six characters at most; a longer one can only be made shorter.
std::string Code_Getippt(const std::string& before, std::string_view text) {
    const std::string code = Gefiltert(text, F5_ASCII_FILTER);
    if (before.size() < CodeLength) {
        return code.substr(0, CodeLength);
    }
    return code.size() < before.size() ? code : before;
}

/// Once it is full no key acts on the text any more, Backspace included.
std::string Bezeichnung_Getippt(const std::string& before, std::string_view text) {
    constexpr std::size_t full = UserRecord::KeyLabel.Width;
    return before.size() >= full ? before : Gefiltert(text, Jedes_Zeichen).substr(0, full);
}

} // namespace

TextBox* F5::Offene_Box() {
    switch (OpenColumn) {
    case UserColumn::Name:
        return &Text1;
    case UserColumn::Code:
        return &Text2;
    case UserColumn::KeyLabel:
        return &Text7;
    default:
        return nullptr;
    }
}

ListBox* F5::Offene_Liste() {
    return OpenColumn == UserColumn::Group ? &List1 : OpenColumn == UserColumn::Right ? &List2 : nullptr;
}

bool F5::Beschreibbar(int row, int column) const {
    return FGK4.Holds(row, column) && row >= UserGrid::FirstRow && column >= UserColumn::Name &&
           column <= UserColumn::KeyLabel &&
           (column != UserColumn::KeyLabel || !FGK4.Text(row, column).starts_with(FingerSlot));
}

void F5::FGK4_Eintragen(int row, int column, std::string_view text) {
    if (!Fenster.Enabled) {
        return;
    }
    Editor_Uebernehmen();
    if (!Beschreibbar(row, column)) {
        return;
    }
    Auswahl.Go(row, column);
    Editor_Oeffnen(Key::Enter);
    if (ListBox* list = Offene_Liste()) {
        const auto& entries = list->Entries();
        const auto found = std::find_if(entries.begin(), entries.end(),
                                        [text](const std::string& entry) { return Trim(entry) == Trim(text); });
        if (found == entries.end()) {
            Editor_KeyPress(Key::Escape);
            return;
        }
        list->Selected = static_cast<int>(found - entries.begin());
    } else {
        typed_.clear();
        Editor_Change(text);
    }
    Editor_KeyPress(Key::Enter);
}

void F5::Editor_Oeffnen(int key) {
    const int row = FGK4.Row;
    const int column = FGK4.Column;
    if (!Beschreibbar(row, column)) {
        return;
    }
    const std::string& text = FGK4.Text(row, column);
    edited_ = {row, column};
    oldText_ = text;
    OpenColumn = column;
    if (ListBox* list = Offene_Liste()) {
        Liste_Oeffnen(*list);
    } else if (column == UserColumn::Name) {
        FGK4.SetText(row, column, "");
        Text_Oeffnen(Text1, Name_Filter(key));
    } else if (column == UserColumn::Code) {
        Text_Oeffnen(Text2, F5_ASCII_FILTER(key));
    } else {
        Text_Oeffnen(Text7, key);
    }
}

void F5::Text_Oeffnen(TextBox& box, int typed) {
    const bool begins = Ist_Zeichen(typed);
    typed_ = begins ? std::string(1, static_cast<char>(static_cast<unsigned char>(typed))) : oldText_;
    box.Text = typed_;
    box.Caret = static_cast<int>(typed_.size());
    box.Visible = true;
    if (box.SetFocus) {
        box.SetFocus();
    }
    if (!begins && box.SelectAll) {
        box.SelectAll();
    }
}

void F5::Liste_Oeffnen(ListBox& list) {
    std::vector<std::string> entries;
    if (&list == &List1) {
        entries.emplace_back(" - ");
        for (std::size_t n = 1; n <= Groups; ++n) {
            if (!Tabelle.GroupTablePerson[n].Name.empty()) {
                entries.push_back(Tabelle.GroupTablePerson[n].Name);
            }
        }
    } else {
        entries.assign(Benutzerrechte.begin(), Benutzerrechte.end());
    }
    // What stands in the cell, so that leaving the list changes nothing; the default of an empty one.
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [this](const std::string& entry) { return Trim(entry) == Trim(oldText_); });
    const int otherwise = Trim(oldText_).empty() ? 0 : -1;
    list.Selected = found == entries.end() ? otherwise : static_cast<int>(found - entries.begin());
    list.Entries = std::move(entries);
    list.Visible = true;
}

void F5::Editor_Change(std::string_view text) {
    TextBox* box = Offene_Box();
    if (box == nullptr) {
        return;
    }
    std::string before = typed_;
    std::string offered(text); // which may be that of the box
    const Wiper wipeBefore(before);
    const Wiper wipeOffered(offered);
    if (box == &Text1) {
        typed_ = Gefiltert(text, Name_Filter).substr(0, UserRecord::UserName.Width);
    } else {
        typed_ = box == &Text2 ? Code_Getippt(typed_, text) : Bezeichnung_Getippt(typed_, text);
    }
    box->Text = typed_;
    // What was allowed as a whole has left the view's caret in its place.
    if (typed_ != offered) {
        box->Caret = Einfuegestelle(before, offered, typed_);
    }
}

/// The name's cell was blanked for the time; every column gets its old text back.
void F5::Editor_Schliessen() {
    if (OpenColumn == UserColumn::Name) {
        FGK4.SetText(edited_.Row, edited_.Column, oldText_);
    }
    OpenColumn = 0;
    for (TextBox* box : {&Text1, &Text2, &Text7}) {
        box->Visible = false;
        box->Text.Vergessen();
    }
    List1.Visible = false;
    List2.Visible = false;
}

std::string F5::Editor_Text() const {
    if (OpenColumn != UserColumn::Group && OpenColumn != UserColumn::Right) {
        return typed_;
    }
    const ListBox& list = OpenColumn == UserColumn::Group ? List1 : List2;
    const auto entry = static_cast<std::size_t>(list.Selected());
    return entry < list.Entries().size() ? std::string(Trim(list.Entries()[entry])) : oldText_;
}

void F5::Editor_KeyPress(int key) {
    if (OpenColumn == 0) {
        return;
    }
    if (key == Key::Escape) {
        Editor_Schliessen();
    } else if (key == Key::Tab || key == Key::Enter) {
        Editor_Bestaetigen();
    }
}

bool F5::Vergeben(int row, int column, std::string_view text) const {
    for (int other = UserGrid::FirstRow; other <= UserGrid::LastRow; ++other) {
        if (other != row && RTrim(FGK4.Text(other, column)) == RTrim(text)) {
            return true;
        }
    }
    return false;
}

bool F5::Editor_Bestaetigen() {
    const Place cell = edited_;
    std::string text = Editor_Text();
    const Wiper wipeText(text);
    const bool fits = text.size() >= CodeLength && text.size() <= static_cast<std::size_t>(Text2.MaxLength);
    if (cell.Column == UserColumn::Code && !text.empty() && !fits) {
        return false;
    }
    const bool list = Offene_Liste() != nullptr;
    const bool compared = !list && (cell.Column != UserColumn::Name || !text.empty());
    const bool refused = compared && Vergeben(cell.Row, cell.Column, text);
    Editor_Schliessen(); // before the message, which would take the keyboard from it
    if (refused) {
        kern.Meldung(kern.Zeile(Line::EntryExists), Buttons::Ok, Icon::Exclamation, InfoTitle);
        return true;
    }
    Aendern(Word::StepEdit, [&] { Benutzerzelle_Schreiben(FGK4, cell.Row, cell.Column, text); });
    if (cell.Column == UserColumn::Name && !text.empty()) {
        Auswahl.Go(cell.Row, UserColumn::Code);
    } else if (!list && cell.Column < LastTabColumn) {
        Auswahl.Go(cell.Row, cell.Column + 1);
    }
    return true;
}

void F5::Editor_Uebernehmen() {
    if (OpenColumn == 0) {
        return;
    }
    const Place cell = edited_;
    std::string text = Editor_Text();
    const Wiper wipeText(text);
    if (cell.Column == UserColumn::Code && text.size() < CodeLength) {
        text.clear();
    }
    Editor_Schliessen();
    Aendern(Word::StepEdit, [&] { Benutzerzelle_Schreiben(FGK4, cell.Row, cell.Column, text); });
}

void F5::Editor_LostFocus() {
    Editor_Uebernehmen();
}

int F5::Listenhub(int column, int topRow) {
    constexpr int roomyRows = 18, groupHub = 500, rightHub = 1300; // the latter in twips
    if (UserGrid::LastRow - topRow >= roomyRows) {
        return 0;
    }
    return column == UserColumn::Group ? groupHub : column == UserColumn::Right ? rightHub : 0;
}

} // namespace qvm
