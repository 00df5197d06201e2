#include "F5.h"

#include "F5_Laden.h"
#include "F5_Speichern.h"
#include "FileTrouble.h"
#include "Fragen.h"
#include "LockRecords.h"
#include "Secret.h"
#include "TimeRecords.h"
#include "UndoMenu.h"
#include "UserRecords.h"
#include "Zeitgruppen.h"

#include <algorithm>
#include <vector>

namespace qvm {
namespace {

constexpr int TrackInterval = 20; // ms, at open

constexpr int LongestCode = 8;

} // namespace

F5::F5(Kern& kernel) : kern(kernel), Timer1(kernel.Welt, TintInterval), Timer2(kernel.Welt, TrackInterval) {
    Text1.MaxLength = UserRecord::UserName.Width;
    Text2.MaxLength = LongestCode;
    Text7.MaxLength = UserRecord::KeyLabel.Width;
    Editor_Schliessen();
    Timer1.Ticked = [this] { Kreuz_Zeichnen(); };
    Timer2.Ticked = [this] { Maus_Verfolgen(); };
    Auswahl.Moved = [this] { Stand_Zeigen(); };
    Berichte.Erstellen = [this](ReportKind kind) { return Bericht_Erstellen(kind); };
    kern.Windows.Open["F5"] = [this] { F5_FormLaden(); };
}

void F5::F5_FormLaden() {
    std::vector<FileTrouble> unread;
    const auto noteFault = [&](bool read, const RecordLayout& layout) {
        if (!read) {
            unread.push_back({.File = std::string(layout.File), .Fault = Lesefehler(kern.Welt.Files)});
        }
    };
    MenuRow = 0;
    FsRow = NoRow;
    FixedCols = 1;
    Editor_Schliessen();
    mouse_ = cross_ = hit_ = {};
    Tabelle.LoadFailed = false;
    Tabelle.UserDirty = false;
    FGK4.ClearRows(0);
    Tabelle.GroupTablePerson = PersonGruppen_Vorgabe();
    const bool groups = PersonGruppen_Laden(kern, Tabelle.GroupTablePerson);
    noteFault(groups, TimeGroup::Record);
    noteFault(F5_SchloesserLaden(kern, Tabelle), LockRecord::Record);
    noteFault(F5_Laden(kern, Tabelle), UserRecord::Record);
    noteFault(F5_KanalFarben(kern, Tabelle), ChannelRecord::Record);
    // Without the groups a save would write "-" for every user's.
    Tabelle.LoadFailed = Tabelle.LoadFailed || !groups;
    Verlauf.Forget();
    Alle_Neu_Besetzen();
    Texte_Setzen();
    Hinweis.Text = std::string();
    Auswahl.Go(UserGrid::FirstRow, UserColumn::Name);
    Stand_Zeigen();
    Verlauf_Zeigen();
    Timer1.Start(TintInterval);
    Timer2.Start(TrackInterval);
    Fenster.Enabled = true;
    Fenster.Visible = true; // last, as the window's first size goes by its contents
    if (!unread.empty()) {
        kern.Meldung(Wort(kern, Word::FileNotRead, {Dateimaengel_Text(kern, unread)}), Buttons::Ok, Icon::Exclamation);
    }
}

void F5::Toolbar1_ButtonClick(std::string_view key) {
    if (!Fenster.Enabled) {
        return;
    }
    Editor_Uebernehmen();
    if (key == u8"Zurück"_w) {
        F5_Schliessen();
    } else if (key == "Aufsteigend sortieren") {
        F5_Sort_Click();
    } else if (key == "Suchen") {
        F5_Search_Click();
    } else if (key == "Neu") {
        Neu();
    } else if (key == "CSV-Print") {
        Csv_Schreiben();
    } else if (key == "Speichern") {
        Speichern();
    }
}

bool F5::Speichern() {
    if (Tabelle.LoadFailed) {
        kern.Meldung(Wort(kern, Word::UsersIncomplete), Buttons::Ok, Icon::Exclamation);
        return false;
    }
    // A refusal is told by the check, a fault of the disk by nobody else.
    if (!F5_Pruefen(kern, Tabelle)) {
        return false;
    }
    if (!F5_Speichern(kern, Tabelle)) {
        kern.Meldung(Wort(kern, Word::UsersNotSaved), Buttons::Ok, Icon::Exclamation);
        return false;
    }
    return true;
}

void F5::F5_Schliessen() {
    if (!Fenster.Enabled) {
        return; // a device is waited for
    }
    Editor_Uebernehmen();
    if (!Verlassen_Erlaubt(kern, Tabelle.UserDirty, kern.Zeile(Line::UserManagement), [this] { return Speichern(); })) {
        return;
    }
    Tabelle.UserDirty = false;
    Timer1.Stop();
    Timer2.Stop();
    Fenster.Visible = false;
    Geheimnisse_Vergessen();
    kern.Windows.BackToMain();
}

/// Nobody reads in the table until it is loaded anew.
void F5::Geheimnisse_Vergessen() {
    for (const int column : {UserColumn::Code, UserColumn::KeyId, UserColumn::KeyData}) {
        FGK4.Spalte_Vergessen(column);
    }
    Verlauf.Forget();
    Verlauf_Zeigen();
    Vergessen(typed_);
    Vergessen(oldText_);
    if (Geschlossen) {
        Geschlossen();
    }
}

bool F5::Aendern(Word what, const std::function<void()>& change) {
    // What is tinted is no part of a step.
    Kreuz_Loeschen();
    Treffer_Loeschen();
    Verlauf.Begin(what);
    change();
    if (!Verlauf.End()) {
        return false;
    }
    Tabelle.UserDirty = true;
    Hinweis.Text = std::string();
    Stand_Zeigen();
    Verlauf_Zeigen();
    return true;
}

int F5::Wer(int row) const {
    return row >= UserGrid::FirstRow && row <= UserGrid::LastRow ? who_[static_cast<std::size_t>(row)] : 0;
}

int F5::Zeile_Von(int who) const {
    const auto found = std::find(who_.begin() + UserGrid::FirstRow, who_.end(), who);
    return who == 0 || found == who_.end() ? 0 : static_cast<int>(found - who_.begin());
}

/// Whoever stood in the row is gone.
void F5::Neu_Besetzen(int row) {
    if (row >= UserGrid::FirstRow && row <= UserGrid::LastRow) {
        who_[static_cast<std::size_t>(row)] = ++lastWho_;
    }
}

void F5::Alle_Neu_Besetzen() {
    for (int row = UserGrid::FirstRow; row <= UserGrid::LastRow; ++row) {
        Neu_Besetzen(row);
    }
}

const std::string& F5::Benutzername(int row) const {
    return OpenColumn == UserColumn::Name && edited_.Row == row ? oldText_ : FGK4.Text(row, UserColumn::Name);
}

void F5::F5_Undo_Click() {
    Schritt_Gehen(&GridUndo::Undo, Word::UndoDone);
}

void F5::F5_Redo_Click() {
    Schritt_Gehen(&GridUndo::Redo, Word::RedoDone);
}

void F5::Schritt_Gehen(std::optional<UndoStep> (GridUndo::*way)(), Word told) {
    if (!Fenster.Enabled) {
        return;
    }
    Editor_Uebernehmen();
    Treffer_Loeschen();
    const auto step = (Verlauf.*way)();
    if (!step) {
        return;
    }
    if (step->What == Word::StepSort || step->What == Word::StepDeleteUser || step->What == Word::StepClear) {
        Alle_Neu_Besetzen();
    }
    Tabelle.UserDirty = true;
    // The channels stand on the disk and are not taken back.
    Farben_Erneuern();
    Auswahl.Go(step->Row, step->Column > UserGrid::ColumnOf(UserGrid::Locks) ? UserColumn::KeyId : step->Column);
    Stand_Zeigen();
    Verlauf_Zeigen();
    Hinweis.Text = Schritt_Meldung(kern, told, *step);
}

} // namespace qvm
