#include "F12.h"

#include "F12_Laden.h"
#include "F12_Speichern.h"
#include "FileTrouble.h"
#include "Fragen.h"
#include "UndoMenu.h"

namespace qvm {
namespace {

constexpr int TrackInterval = 800; // ms

} // namespace

F12::F12(Kern& kernel, const AdapterListe& adapters)
    : kern(kernel), Adapter(adapters), Timer1(kernel.Welt, TintInterval), Timer2(kernel.Welt, TrackInterval) {
    Text1.MaxLength = LongestName;
    Editor_Schliessen();
    Timer1.Ticked = [this] { Zeile_Toenen(); };
    Timer2.Ticked = [this] { Maus_Verfolgen(); };
    Serie.Abgebrochen = [this] { Editor_Schliessen(); };
    Serie.Fertig = [this](bool confirmed) { Serie_Schreiben(edited_.Row, Serie.Serie(), confirmed); };
    Auswahl.Moved = [this] { Stand_Zeigen(); };
    Berichte.Erstellen = [this](ReportKind kind) { return Bericht_Erstellen(kind); };
    kern.Windows.Open["F12"] = [this] { F12_FormLaden(); };
}

void F12::F12_FormLaden() {
    std::vector<FileTrouble> unread;
    std::vector<std::string> found;
    for (const AdapterSatz& adapter : Adapter.Saetze) {
        found.push_back(adapter.Name);
    }
    OpenColumn = 0;
    Editor_Schliessen();
    mouseRow_ = tintedRow_ = 0;
    cellWords_ = Worte_Der_Zellen();
    F12_Laden(kern, Tabelle, found, &unread);
    Doppelte_Suchen();
    Verlauf.Forget();
    Texte_Setzen();
    Hinweis.Text = std::string();
    Auswahl.Go(LockGrid::FirstRow, LockColumn::Name);
    Stand_Zeigen();
    Fenster.Enabled = true;
    Fenster.Visible = true; // last, as the window's first size goes by its contents
    if (!unread.empty()) {
        kern.Meldung(Wort(kern, Word::FileNotRead, {Dateimaengel_Text(kern, unread)}), Buttons::Ok, Icon::Exclamation);
    }
}

void F12::Toolbar1_ButtonClick(std::string_view key) {
    if (!Fenster.Enabled) {
        return;
    }
    Editor_Uebernehmen();
    if (key == u8"Zurück"_w) {
        F12_Schliessen();
    } else if (key == "CSV-Print") {
        Csv_Schreiben();
    } else if (key == "Speichern") {
        Speichern();
    } else if (key == "Neu") {
        Neu();
    } else if (key == "Initial") {
        Initial();
    }
}

bool F12::Speichern() {
    if (Tabelle.LoadFailed) {
        kern.Meldung(Wort(kern, Word::LocksIncomplete), Buttons::Ok, Icon::Exclamation);
        return false;
    }
    if (!F12_Speichern(kern, Tabelle)) {
        kern.Meldung(Wort(kern, Word::LocksNotSaved), Buttons::Ok, Icon::Exclamation);
        return false;
    }
    return true;
}

void F12::F12_Schliessen() {
    if (!Fenster.Enabled) {
        return; // another window stands over this one
    }
    Editor_Uebernehmen();
    if (!Verlassen_Erlaubt(kern, Tabelle.LockDirty, kern.Zeile(Line::LockSettings), [this] { return Speichern(); })) {
        return;
    }
    Tabelle.LockDirty = false;
    F12_COURoff_Click();
    Fenster.Visible = false;
    Verlauf.Forget();
    kern.Windows.BackToMain();
}

bool F12::Aendern(Word what, const std::function<void()>& change) {
    // What is tinted is no part of a step.
    Toenung_Loeschen();
    if (!Schritt_Tun(kern, Verlauf, what, change, F12_Undo, F12_Redo)) {
        return false;
    }
    Tabelle.LockDirty = true;
    Hinweis.Text = std::string();
    Doppelte_Suchen();
    Stand_Zeigen();
    return true;
}

void F12::F12_Undo_Click() {
    Schritt_Gehen(&GridUndo::Undo, Word::UndoDone);
}

void F12::F12_Redo_Click() {
    Schritt_Gehen(&GridUndo::Redo, Word::RedoDone);
}

void F12::Schritt_Gehen(std::optional<UndoStep> (GridUndo::*way)(), Word told) {
    if (!Fenster.Enabled) {
        return;
    }
    Editor_Uebernehmen();
    Toenung_Loeschen();
    const auto step = (Verlauf.*way)();
    if (!step) {
        return;
    }
    Tabelle.LockDirty = true;
    // The units stand on the disk and are not taken back.
    UnitTypen_Laden(kern, Tabelle);
    Doppelte_Suchen();
    const int column = Breite(step->Column) > 0 ? step->Column : step->Column - 1;
    Auswahl.Go(step->Row, Breite(column) > 0 ? column : LockColumn::Name);
    Stand_Zeigen();
    Schritte_Zeigen(kern, Verlauf, F12_Undo, F12_Redo);
    Hinweis.Text = Schritt_Meldung(kern, told, *step);
}

} // namespace qvm
