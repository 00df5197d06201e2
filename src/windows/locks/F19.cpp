#include "F19.h"

#include "Kanal.h"
#include "Pictures.h"
#include "Record.h"
#include "Text.h"
#include "UnitRecords.h"
#include "Units.h"
#include "Words.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace qvm {
namespace {

constexpr int LargestSignal = 128;

/// Unit record and channel record of a lock that was found, both or neither. The lock has no units then.
bool Fund_Speichern(const Kern& kern, int lock, const UnitSettings& settings, int channel) {
    RecordFile units(WirelessUnitRecord::Record);
    if (units.Laden(kern.Welt.Files, kern.DatPfad()) == ReadStatus::Error) {
        return false;
    }
    const std::string before = units.Record(lock);
    if (!Units_Speichern(kern, lock, settings, Grid(6, 5))) {
        return false;
    }
    if (Kanal_Gefunden(kern, lock, channel)) {
        return true;
    }
    Satz_Schreiben(kern.Welt.Files, kern.DatPfad(), WirelessUnitRecord::Record, lock, before);
    return false;
}

} // namespace

F19::F19(Kern& kernel) : kern(kernel) {
    Lauschzeit_Fuellen(listen_);
}

void F19::F19_FormLaden(const UnitScan& scan, F19Opener opener, int target) {
    scan_ = scan;
    opener_ = opener;
    target_ = target;
    GewaehlteZeile = 0;
    UnitSn.clear();
    UnitTyp.clear();
    Einstellung = {};
    Hinweis.Text = std::string();
    if (const int best = Bester_Kanal(scan); best != 0) {
        Waehlen(best);
        Einstellung.ScanSignal = Ziffern(Signalwert(Fund(best).Signal)); // another choice leaves it
    }
    Texte_Setzen();
    Regler_Zeigen();
    Auswahl.Go(std::max(GewaehlteZeile, 1), ScanColumn::Serial);
    Fenster.Enabled = true;
    Fenster.Visible = true; // last, as the window's first size goes by its contents
}

void F19::Texte_Setzen() {
    Fenster.Title = kern.Zeile(Line::WirelessUnit) + " - " + std::string(SystemTitle);
    FGK19.SetText(0, ScanColumn::Channel, kern.Zeile(Line::RadioAddress));
    FGK19.SetText(0, ScanColumn::Serial, kern.Zeile(Line::UnitSerial));
    FGK19.SetText(0, ScanColumn::Type, kern.Zeile(Line::Code));
    FGK19.SetText(0, ScanColumn::Signal, kern.Zeile(Line::Signal));
    for (int row = 1; row <= UnitScan::Channels; ++row) {
        Zeile_Fuellen(row);
    }
    Gewaehlte_Zeigen();
    Check1.Text = kern.Zeile(Line::AlwaysReceiving);
    Frame1.Text = kern.Zeile(Line::Settings);
    Label2.Text = kern.Zeile(Line::ListenTime);
    Label3.Text = kern.Zeile(Line::WirelessUnit);
    Command1.Text = kern.Zeile(Line::Cancel);
    Command2.Text = kern.Zeile(Line::Apply);
}

// ---- what was found

const ScanEntry& F19::Fund(int row) const {
    return scan_.Entries[static_cast<std::size_t>(row)];
}

void F19::Zeile_Fuellen(int row) {
    const ScanEntry& entry = Fund(row);
    FGK19.SetText(row, ScanColumn::Channel, std::string(Trim(kern.Zeile(Line::RadioChannel))) + "-" + Ziffern(row));
    if (entry.Status == ScanEntry::Nothing) {
        FGK19.SetText(row, ScanColumn::Serial, "-");
        FGK19.SetText(row, ScanColumn::Type, "");
        FGK19.SetText(row, ScanColumn::Signal, "");
        FGK19.SetPicture(row, ScanColumn::Spare, RunSign::None);
        Balken_Zeichnen(row, 0);
        return;
    }
    const int signal = Signalwert(entry.Signal);
    const Colour colour = entry.Status == ScanEntry::Well ? ScanLook::Well : ScanLook::Poor;
    FGK19.SetText(row, ScanColumn::Serial, Serie_Text(entry.Serial));
    FGK19.SetText(row, ScanColumn::Type, Trim(kern.Zeile(Unit_Textzeile(entry.Type))));
    FGK19.SetText(row, ScanColumn::Signal, Ziffern(signal));
    FGK19.SetForeColor(row, ScanColumn::Spare, colour);
    FGK19.SetPicture(row, ScanColumn::Spare, entry.Status == ScanEntry::Well ? RunSign::Done : RunSign::Attention);
    FGK19.SetForeColor(row, ScanColumn::Signal, colour);
    Balken_Zeichnen(row, signal);
}

void F19::Balken_Zeichnen(int row, int signal) {
    const int lit = Balken_Laenge(signal);
    for (int cell = 0; cell < BarCells; ++cell) {
        FGK19.SetBackColor(row, ScanColumn::Bar + cell, cell < lit ? Balken_Farbe(cell) : White);
    }
}

void F19::FGK19_DblClick(int row) {
    if (!Fenster.Enabled || row < 1 || row > UnitScan::Channels || Fund(row).Status == ScanEntry::Nothing) {
        return;
    }
    Waehlen(row);
    Gewaehlte_Zeigen();
    Regler_Zeigen();
}

void F19::FGK19_KeyPress(int key) {
    const int row = FGK19.Row;
    if (!Fenster.Enabled || row < 1 || row > UnitScan::Channels) {
        return;
    }
    const bool other = Fund(row).Status != ScanEntry::Nothing && row != GewaehlteZeile;
    if (key == ' ' || (key == Key::Enter && other)) {
        FGK19_DblClick(row);
    } else if (key == Key::Enter && (row == GewaehlteZeile || GewaehlteZeile == 0)) {
        Command2_Click();
    }
}

void F19::Waehlen(int row) {
    const ScanEntry& entry = Fund(row);
    GewaehlteZeile = row;
    UnitSn = Serie_Text(entry.Serial);
    Einstellung.TimeControls = Unit_Mit_Lauschzeit(entry.Type);
    if (Einstellung.TimeControls) {
        Einstellung.SecondEntry = SecondsAtFirst;
    }
}

/// The chosen unit in the words of the present language. Its number is bold.
void F19::Gewaehlte_Zeigen() {
    for (int row = 1; row <= UnitScan::Channels; ++row) {
        FGK19.SetBold(row, ScanColumn::Serial, row == GewaehlteZeile);
    }
    if (GewaehlteZeile == 0) {
        Label1.Text = std::string();
        return;
    }
    const std::string type(Trim(kern.Zeile(Unit_Textzeile(Fund(GewaehlteZeile).Type))));
    Label1.Text = UnitSn + " - " + type;
    UnitTyp = Mid(type + "   ", 1, 3);
    Einstellung.UnitMode = Unit_Typmarke(UnitTyp);
    Hinweis.Text = std::string();
}

std::string F19::Tip(int row, int column) const {
    const bool bar = column == ScanColumn::Bar;
    if (!bar && column != ScanColumn::Spare) {
        return {};
    }
    if (row == 0) {
        return kern.Zeile(Line::Signal);
    }
    if (!bar || row < 0 || row > UnitScan::Channels || Fund(row).Status == ScanEntry::Nothing) {
        return {};
    }
    return Wort(kern, Word::UnitSignal, {Ziffern(Signalwert(Fund(row).Signal)), Ziffern(LargestSignal)});
}

std::string F19::Bildtext(int picture) const {
    if (picture == RunSign::None) {
        return {};
    }
    return Wort(kern, picture == RunSign::Done ? Word::UnitWell : Word::UnitPoor);
}

int F19::Breite(int column) {
    constexpr std::array<int, ScanColumn::Bar + 1> widths{1300, 1700, 2300, 400, 800, 1500};
    return column >= 0 && column <= ScanColumn::Bar ? widths[static_cast<std::size_t>(column)] : 0;
}

// ---- how it listens

void F19::Regler_Zeigen() {
    Lauschzeit_Zeigen(listen_, Einstellung);
    Label2.Enabled = Einstellung.TimeControls;
    Frame1.Enabled = Einstellung.TimeControls;
}

void F19::Combo2_Click(int entry) {
    Einstellung.HourEntry = entry;
    Regler_Zeigen();
}

void F19::Combo3_Click(int entry) {
    Einstellung.MinuteEntry = entry;
    Regler_Zeigen();
}

void F19::Combo4_Click(int entry) {
    Einstellung.SecondEntry = entry;
    Regler_Zeigen();
}

void F19::Check1_Click(bool on) {
    Lauschzeit_Immer(Einstellung, on);
    Regler_Zeigen();
}

// ---- accept and cancel

void F19::Command2_Click() {
    if (!Fenster.Enabled) {
        return;
    }
    if (GewaehlteZeile == 0) {
        Hinweis.Text = Wort(kern, Word::NoUnitChosen);
        return;
    }
    if (opener_ == F19Opener::Locks && !Beim_Schloss_Speichern()) {
        return;
    }
    Schliessen();
    if (opener_ == F19Opener::Locks && An_Schloesser) {
        An_Schloesser(target_, UnitSn, UnitTyp);
    } else if (opener_ == F19Opener::Units && An_Units) {
        An_Units(target_, UnitSn, Ziffern(GewaehlteZeile));
    }
}

bool F19::Beim_Schloss_Speichern() {
    Einstellung.Hours = Ziffern(Einstellung.HourEntry);
    Einstellung.Minutes = Ziffern(Einstellung.MinuteEntry);
    Einstellung.Seconds = Ziffern(Einstellung.SecondEntry);
    Einstellung.SignalFlag = "0";
    Einstellung.RssiLevel = "000";
    if (!Units_Zeit_Gueltig(Einstellung)) {
        kern.Meldung(kern.Zeile(Line::CannotSave) + "\n\r" + kern.Zeile(Line::SetListenTime), Buttons::Ok,
                     Icon::Exclamation);
        return false;
    }
    if (!Fund_Speichern(kern, target_, Einstellung, GewaehlteZeile)) {
        kern.Meldung(Wort(kern, Word::FoundNotSaved), Buttons::Ok, Icon::Exclamation);
        return false;
    }
    return true;
}

void F19::Command1_Click() {
    if (Fenster.Enabled) {
        Schliessen();
    }
}

void F19::Schliessen() {
    Fenster.Visible = false;
    if (Suche_Beenden) {
        Suche_Beenden();
    }
    if (Zurueck) {
        Zurueck(opener_);
    }
}

} // namespace qvm
