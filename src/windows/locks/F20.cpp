#include "F20.h"

#include "FileTrouble.h"
#include "LinkHooks.h"
#include "Text.h"
#include "UndoMenu.h"
#include "UnitRecords.h"
#include "Units.h"
#include "Words.h"
#include "Worte.h"

#include <array>
#include <utility>
#include <vector>

namespace qvm {

F20::F20(Kern& kernel) : kern(kernel), Timer1(kernel.Welt, AskDelay) {
    Text1.MaxLength = LongestName;
    Lauschzeit_Fuellen(listen_);
    Combo5.Entries = std::vector<std::string>{"1", "2", "3", "4", "5"};
    F20Prg01.Visible = false;
    F20Prg01.Maximum = 12;
    Serie.Abgebrochen = [this] { Editor_Schliessen(); };
    Serie.Fertig = [this](bool /*confirmed*/) { Serie_Schreiben(row_, Serie.Serie()); };
    Editor_Schliessen();
    Timer1.Ticked = [this] { Code_Fragen(); };
}

bool F20::F20_FormLaden(int lock, std::string_view name) {
    Editor_Schliessen();
    FGK20.ClearRows();
    Einstellung = {};
    if (!Units_Laden(kern, lock, Einstellung, FGK20)) {
        const FileTrouble trouble{.File = std::string(WirelessUnitRecord::Record.File),
                                  .Fault = Lesefehler(kern.Welt.Files)};
        kern.Meldung(Wort(kern, Word::FileNotRead, {FileTrouble_Text(kern, trouble)}), Buttons::Ok, Icon::Exclamation);
        return false;
    }
    Lock = lock;
    name_ = name;
    moving_ = false;
    heardOn_.clear();
    for (int row = FirstRow; row <= LastRow; ++row) {
        FGK20.SetText(row, UnitColumn::Number, Ziffern(row));
    }
    Verlauf.Forget();
    Hinweis.Text = std::string();
    Texte_Setzen();
    Regler_Zeigen();
    Auswahl.Go(FirstRow, UnitColumn::Name);
    Fenster.Enabled = true;
    Fenster.Visible = true; // last, as the window's first size goes by its contents
    return true;
}

void F20::Texte_Setzen() {
    Fenster.Title = kern.Zeile(Line::ManualConfiguration) + " - " + std::string(SystemTitle);
    Schloss.Text = Wort(kern, Word::LockLine, {Ziffern(Lock), name_});
    FGK20.SetText(0, UnitColumn::Number, "Nr");
    FGK20.SetText(0, UnitColumn::Name, kern.Zeile(Line::LockName));
    FGK20.SetText(0, UnitColumn::Serial, kern.Zeile(Line::SerialNumber));
    const int mode = Einstellung.Mode;
    Combo1.Entries = std::vector<std::string>{std::string(Trim(kern.Zeile(Line::UnitAE))),
                                              std::string(Trim(kern.Zeile(Line::UnitSTE)))};
    Combo1.Selected = mode;
    Check1.Text = kern.Zeile(Line::AlwaysReceiving);
    Check2.Text = kern.Zeile(Line::Priority);
    Frame1.Text = kern.Zeile(Line::ClockSetting);
    Frame2.Text = kern.Zeile(Line::TimeControl);
    Label1.Text = kern.Zeile(Line::WirelessUnit);
    Label2.Text = kern.Zeile(Line::ListenTime);
    Label3.Text = kern.Zeile(Line::SignalThreshold);
    Command1.Text = kern.Zeile(Line::Cancel);
    Command2.Text = kern.Zeile(Line::Apply);
    F20_deleate.Text = Wort(kern, Word::UnitDelete);
    SN_Asave.Text = Wort(kern, Word::UnitAutoSave);
    F20_Keypad.Text = Wort(kern, Word::UnitKeypad);
    F20_Readunit.Text = Wort(kern, Word::UnitRead);
    SN_Msave.Text = Wort(kern, Word::UnitManual);
    SN_Codechange.Text = Wort(kern, Word::UnitCode);
    F20_Keypad.Enabled = static_cast<bool>(Keypad_Suchen);
    F20_Readunit.Enabled = static_cast<bool>(Readunit_Suchen);
    SN_Asave.Enabled = Keypad_Suchen || Readunit_Suchen;
    SN_Codechange.Enabled = static_cast<bool>(Code_Aendern);
    Schritte_Zeigen(kern, Verlauf, F20_Undo, F20_Redo);
}

// ---- how the units listen

void F20::Regler_Zeigen() {
    Combo1.Selected = Einstellung.Mode;
    Lauschzeit_Zeigen(listen_, Einstellung);
    Combo5.Selected = Einstellung.LevelEntry;
    Check2.Checked = Einstellung.SignalChecked;
    Regler_Freigeben();
}

void F20::Regler_Freigeben() {
    const bool signal = Einstellung.SignalControls && !scanning_;
    const bool time = Einstellung.TimeControls && !scanning_;
    Combo1.Enabled = !scanning_;
    Combo5.Enabled = signal;
    Check2.Enabled = signal;
    for (Label* label : {&Label2, &Frame2}) {
        label->Enabled = time;
    }
    for (Label* label : {&Label3, &Frame1}) {
        label->Enabled = signal;
    }
}

void F20::Einstellen(const std::function<void()>& change) {
    if (Bedienbar()) {
        change();
    }
    Regler_Zeigen();
}

void F20::Combo1_Click(int entry) {
    Einstellen([&] {
        Einstellung.Mode = entry == 1 ? 1 : 0;
        Einstellung.TimeControls = Einstellung.Mode == 1;
        Einstellung.SignalControls = !Einstellung.TimeControls;
    });
}

void F20::Combo2_Click(int entry) {
    Einstellen([&] {
        Einstellung.HourEntry = entry;
        Einstellung.Hours = Ziffern(entry);
    });
}

void F20::Combo3_Click(int entry) {
    Einstellen([&] {
        Einstellung.MinuteEntry = entry;
        Einstellung.Minutes = Ziffern(entry);
    });
}

void F20::Combo4_Click(int entry) {
    Einstellen([&] {
        Einstellung.SecondEntry = entry;
        Einstellung.Seconds = Ziffern(entry);
    });
}

void F20::Combo5_Click(int entry) {
    Einstellen([&] {
        Einstellung.LevelEntry = entry;
        Einstellung.RssiLevel = Pegel_Text(entry);
    });
}

void F20::Check1_Click(bool on) {
    Einstellen([&] { Lauschzeit_Immer(Einstellung, on); });
}

void F20::Check2_Click(bool on) {
    Einstellen([&] {
        Einstellung.SignalChecked = on;
        Einstellung.SignalFlag = on ? "1" : "0";
    });
}

// ---- accept and cancel

void F20::Command2_Click() {
    if (!Bedienbar() || Funk_Belegt() || !Editor_Uebernehmen()) {
        return;
    }
    UnitSettings accepted = Einstellung;
    if (!Units_Uebernehmen(accepted)) {
        kern.Meldung(kern.Zeile(Line::CannotSave) + "\n\r" + kern.Zeile(Line::SetListenTime), Buttons::Ok,
                     Icon::Exclamation);
        return;
    }
    if (!Units_Speichern(kern, Lock, accepted, FGK20)) {
        kern.Meldung(Wort(kern, Word::UnitsNotSaved), Buttons::Ok, Icon::Exclamation);
        return;
    }
    Einstellung = accepted;
    const std::string type(Mid(Combo1.Entries()[static_cast<std::size_t>(Einstellung.Mode)], 1, 3));
    if (Uebernommen) {
        Uebernommen(Lock, type);
    }
    Schliessen();
}

void F20::Command1_Click() {
    if (!Fenster.Enabled) {
        return; // another window stands over this one
    }
    if (scanning_) {
        Rufen(Suche_Abbrechen);
        return;
    }
    Editor_Schliessen();
    if (moving_) {
        Rufen(Umzug_Abbrechen);
    }
    Schliessen();
}

void F20::Schliessen() {
    Timer1.Stop();
    Fenster.Visible = false;
    Verlauf.Forget();
    Rufen(Zurueck);
}

bool F20::Aendern(Word what, const std::function<void()>& change) {
    if (!Schritt_Tun(kern, Verlauf, what, change, F20_Undo, F20_Redo)) {
        return false;
    }
    Hinweis.Text = std::string();
    return true;
}

void F20::F20_Undo_Click() {
    Schritt_Gehen(&GridUndo::Undo, Word::UndoDone);
}

void F20::F20_Redo_Click() {
    Schritt_Gehen(&GridUndo::Redo, Word::RedoDone);
}

void F20::Schritt_Gehen(std::optional<UndoStep> (GridUndo::*way)(), Word told) {
    if (!Bedienbar() || !Editor_Uebernehmen()) {
        return;
    }
    if (const auto step = (Verlauf.*way)()) {
        Kanaele_Eintragen(); // where a unit listens does not go back with a step
        Auswahl.Go(step->Row, Breite(step->Column) > 0 ? step->Column : UnitColumn::Serial);
        Schritte_Zeigen(kern, Verlauf, F20_Undo, F20_Redo);
        Hinweis.Text = Schritt_Meldung(kern, told, *step);
    }
}

int F20::Breite(int column) {
    constexpr std::array<int, 5> widths{500, 3400, 2400, 0, 0};
    return column >= 0 && column < static_cast<int>(widths.size()) ? widths[static_cast<std::size_t>(column)] : 0;
}

} // namespace qvm
