#include "F16.h"

#include "Kanal.h"
#include "Secret.h"

#include <algorithm>
#include <string>

namespace qvm {
namespace {

/// A hit before this row is shown by going to its own row.
constexpr int FirstRows = 20;
/// Before this row F5 goes some rows further first, so that the hit stands inside the view and not at its edge.
constexpr int MiddleRows = 90, RowsFurther = 10;

struct SearchOption {
    int Line, Column;
};
constexpr std::array<SearchOption, 3> Options{
    {{Line::Name, UserColumn::Name}, {Line::Code, UserColumn::Code}, {Line::Designation, UserColumn::KeyLabel}}};

/// The file cuts the identification of a transponder; what it holds is what is compared.
std::string Vergleichstext(std::string_view text, int column) {
    return GrossText(column == UserColumn::KeyId ? text.substr(0, UserRecord::KeyId.Width) : text);
}

} // namespace

F16::F16(F5& table) : f5(table), kern(table.kern) {
    Option[0].Checked = true;
}

void F16::F16_Laden() {
    Texte_Setzen();
    Text1.Text = std::string();
    f5.Fenster.Enabled = false;
    Fenster.Visible = true;
    if (Text1.SetFocus) {
        Text1.SetFocus();
    }
}

void F16::Texte_Setzen() {
    Fenster.Title = Fenstertitel(kern.Zeile(Line::Search));
    for (std::size_t n = 0; n < Option.size(); ++n) {
        Option[n].Text = kern.Zeile(Options[n].Line);
    }
    Command1.Text = kern.Zeile(Line::Search);
    Command2.Text = kern.Zeile(Line::Back);
}

void F16::Option_Click(int index) {
    if (index < 0 || index >= static_cast<int>(Option.size())) {
        return;
    }
    for (std::size_t n = 0; n < Option.size(); ++n) {
        Option[n].Checked = n == static_cast<std::size_t>(index);
    }
}

void F16::Text1_KeyPress(int key) {
    if (key == Key::Enter) {
        Command1_Click();
    } else if (key == Key::Escape) {
        Command2_Click();
    }
}

void F16::Command1_Click() {
    if (!Fenster.Visible) {
        return;
    }
    const auto chosen = std::find_if(Option.begin(), Option.end(), [](const CheckBox& box) { return box.Checked(); });
    const auto n = static_cast<std::size_t>(chosen - Option.begin());
    F16_Suchen(Options[n < Options.size() ? n : 0].Column, Text1.Text());
    Text1.Text.Vergessen();
}

void F16::Command2_Click() {
    if (Fenster.Visible) {
        Text1.Text.Vergessen();
        Zu_F5();
    }
}

void F16::Zu_F5() {
    Fenster.Visible = false;
    f5.Fenster.Enabled = true;
}

/// False, with a message, when there is nothing to look for.
bool F16::Gesucht_Wird(std::string_view wanted) {
    if (!Trim(wanted).empty()) {
        return true;
    }
    kern.Meldung(kern.Zeile(Line::EnterSearchTerm), Buttons::Ok, Icon::Exclamation);
    Zu_F5();
    return false;
}

bool F16::Ist_Treffer(int row, int column, std::string_view wanted) const {
    std::string held = Vergleichstext(RTrim(f5.FGK4.Text(row, column)), column);
    std::string sought = Vergleichstext(Trim(wanted), column);
    const Wiper wipeHeld(held);
    const Wiper wipeSought(sought);
    return held == sought;
}

int F16::Ersten_Treffer(int column, std::string_view wanted) {
    for (int row = UserGrid::FirstRow; row <= UserGrid::LastRow; ++row) {
        if (Ist_Treffer(row, column, wanted)) {
            return row;
        }
    }
    return 0;
}

int F16::F16_Suchen(int column, std::string_view wanted) {
    if (!Gesucht_Wird(wanted)) {
        return 0;
    }
    const int row = Ersten_Treffer(column, wanted);
    f5.Treffer_Zeigen(row, column, HitGround);
    if (row > 0 && column == UserColumn::KeyId) {
        f5.Treffer_Melden(row);
    }
    Zeigen(row, column);
    return row;
}

KeyFund F16::F16_EkeySuchen(int column, std::string_view wanted, bool synchronise) {
    if (!Gesucht_Wird(wanted)) {
        return {};
    }
    // An older hit first: it gives its cell the ink back that the key had before.
    f5.Treffer_Zeigen(synchronise ? 0 : Ersten_Treffer(column, wanted), column, HitGround);
    const KeyFund found =
        synchronise ? Synchronisieren(column, wanted) : KeyFund{.Row = Ersten_Treffer(column, wanted)};
    Zeigen(found.Row, column);
    return found;
}

KeyFund F16::Synchronisieren(int column, std::string_view wanted) {
    KeyFund found;
    for (int row = UserGrid::FirstRow; row <= UserGrid::LastRow; ++row) {
        if (!Ist_Treffer(row, column, wanted)) {
            continue;
        }
        found.Row = row;
        if (Key_Kanal_Bestaetigen(kern, f5.FGK4, row)) {
            kern.Meldung(kern.Zeile(Line::KeySynchronised), Buttons::Ok, Icon::Information, F5::InfoTitle);
        } else {
            found.Unsaved = true;
            kern.Meldung(Wort(kern, Word::KeySyncUnsaved, {f5.FGK4.Text(row, UserColumn::Name)}), Buttons::Ok,
                         Icon::Exclamation);
        }
    }
    return found;
}

void F16::Zeigen(int row, int column) {
    Zu_F5();
    if (row == 0) {
        f5.Auswahl.None();
        f5.Hinweis.Text = Wort(kern, Word::NoUserFound);
        return;
    }
    f5.Hinweis.Text = std::string();
    if (row >= FirstRows && row < MiddleRows) {
        f5.Auswahl.Go(row + RowsFurther, column);
    }
    f5.Auswahl.Go(row, column);
}

} // namespace qvm
