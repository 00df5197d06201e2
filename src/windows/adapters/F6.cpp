#include "F6.h"

#include "AdapterRecord.h"
#include "AdapterScan.h"
#include "AdapterWorte.h"
#include "AutoRegister.h"
#include "Fragen.h"
#include "Pictures.h"
#include "Portname.h"
#include "Record.h"
#include "Words.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace qvm {
namespace {

constexpr int Ports = 16;
constexpr int FirstRow = 1;
constexpr std::array<int, F6Column::Count> Headings{Line::Number, Line::Address, Line::AdapterName, Line::AdapterPort,
                                                    Line::Status};

/// What is stored of the rows.
std::string Inhalt(const Grid& grid) {
    std::string text;
    for (int row = FirstRow; row <= F6::Records; ++row) {
        for (const int column : {F6Column::Address, F6Column::Name, F6Column::Port}) {
            text.append(grid.Text(row, column)).push_back('\n');
        }
    }
    return text;
}

/// The texts of all rows.
std::vector<F6::Zeile> Zeilen_Merken(const Grid& grid) {
    std::vector<F6::Zeile> rows;
    for (int row = FirstRow; row <= F6::Records; ++row) {
        rows.push_back(
            {grid.Text(row, F6Column::Address), grid.Text(row, F6Column::Name), grid.Text(row, F6Column::Port)});
    }
    return rows;
}

/// Holds the hourglass, and the keys of the window off, while an adapter is waited for.
class Sanduhr {
public:
    Sanduhr(F6& window, bool& busy) : window_(window), busy_(busy) {
        busy_ = true;
        window_.Fenster.Enabled = false;
        Zeigen(true);
    }
    ~Sanduhr() {
        Zeigen(false);
        window_.Fenster.Enabled = true;
        busy_ = false;
    }
    Sanduhr(const Sanduhr&) = delete;
    Sanduhr& operator=(const Sanduhr&) = delete;

private:
    void Zeigen(bool on) {
        if (window_.kern.Welt.Hourglass) {
            window_.kern.Welt.Hourglass(on);
        }
    }

    F6& window_;
    bool& busy_;
};

} // namespace

F6::F6(Link& serialLink, AdapterListe& adapters) : link(serialLink), kern(serialLink.kern), Adapter(adapters) {
    Text3.MaxLength = NameWidth;
    Text3.Visible = false;
    kern.Windows.Open["F6"] = [this] { F6_Laden(); };
}

void F6::F6_Laden() {
    std::vector<std::string> entries;
    for (int port = 1; port <= Ports; ++port) {
        entries.push_back(kern.Welt.PortDevice ? Portname(kern.Welt, port)
                                               : "Prolific USB-to-Serial Comm Port ( COM" + Ziffern(port) + " )");
    }
    Combo1.Entries = std::move(entries);
    const int port = kern.Config.PortNummer;
    Combo1.Selected = port >= 1 && port <= Ports ? port - 1 : 0;
    Port_Neu(link);
    Check1.Checked = kern.Config.AdapterModus();
    Editor_Schliessen();
    Texte_Setzen();
    Adapter_Liste_Laden();
    Modus_Zeigen();
    dirty_ = false;
    before_.reset();
    Fenster.Visible = true;
}

void F6::Texte_Setzen() {
    Fenster.Title = Fenstertitel(kern.Zeile(Line::Interface));
    Check1.Text = kern.Zeile(Line::FindPort);
    Command1.Text = kern.Zeile(Line::SearchAdapters);
    F6_MSGM.Text = kern.Welt.DeviceManager ? kern.Zeile(Line::DeviceManager) : std::string();
    Toolbar_Beschriften(kern, Toolbar1);
    for (int column = 0; column < F6Column::Count; ++column) {
        FGK6.SetText(0, column, kern.Zeile(Headings[static_cast<std::size_t>(column)]));
    }
    for (int row = FirstRow; row <= Records; ++row) {
        Zustand_Setzen(row, FGK6.At(row, F6Column::State).Picture);
    }
}

void F6::Gitter_Leeren() {
    FGK6.ClearRows(FirstRow);
    for (int row = FirstRow; row <= Records; ++row) {
        FGK6.SetText(row, F6Column::Number, Ziffern(row));
    }
}

void F6::Zeilen_Zurueck(const std::vector<Zeile>& rows) {
    int row = FirstRow;
    for (const Zeile& texts : rows) {
        FGK6.SetText(row, F6Column::Address, texts[0]);
        FGK6.SetText(row, F6Column::Name, texts[1]);
        FGK6.SetText(row, F6Column::Port, texts[2]);
        if (!texts[0].empty()) {
            Zustand_Zeigen(row);
        }
        ++row;
    }
}

void F6::Modus_Zeigen() {
    const bool automatic = Check1.Checked;
    FGK6.Visible = automatic;
    Combo1.Visible = !automatic;
}

void F6::Check1_Click(bool on) {
    if (busy_ || on == Check1.Checked) {
        return;
    }
    Editor_Uebernehmen();
    Check1.Checked = on;
    dirty_ = true;
    if (on) {
        Ports_Ermitteln(kern, Adapter);
    }
    Modus_Zeigen();
}

void F6::Combo1_Click(int index) {
    if (busy_ || index < 0 || index >= Ports || index == Combo1.Selected) {
        return;
    }
    Combo1.Selected = index;
    dirty_ = true;
}

void F6::Command1_Click() {
    if (busy_) {
        return;
    }
    Editor_Schliessen();
    const Sanduhr hourglass(*this, busy_);
    const std::string before = Inhalt(FGK6);
    const std::vector<Zeile> rows = Zeilen_Merken(FGK6);
    if (Check1.Checked && !Adapter.SucheLaeuft) {
        Ports_Ermitteln(kern, Adapter); // a port whose adapter bears a strange name has left the list
    }
    const int stand = Adapter.Stand;
    Gitter_Leeren();
    Texte_Setzen();
    const bool answered = Adapter_Suchen(link, Adapter);
    if (Adapter.Stand != stand || !answered) {
        Zeilen_Zurueck(rows); // cut off, or nobody there: the stored list is not to be lost by it
        return;
    }
    Fund_Eintragen();
    dirty_ = dirty_ || Inhalt(FGK6) != before;
}

void F6::Fund_Eintragen() {
    int row = FirstRow;
    for (const auto& [adapters, picture] :
         {std::pair{&Adapter.Saetze, AdapterPicture::Present}, std::pair{&Adapter.Fremde, AdapterPicture::Unusable}}) {
        for (const AdapterSatz& adapter : *adapters) {
            if (row < FirstRow + Searched) {
                FGK6.SetText(row, F6Column::Address, adapter.Adresse);
                FGK6.SetText(row, F6Column::Name, adapter.Name);
                FGK6.SetText(row, F6Column::Port, adapter.Port);
                Zustand_Setzen(row, picture);
                ++row;
            }
        }
    }
}

void F6::Zustand_Setzen(int row, int picture) {
    FGK6.SetPicture(row, F6Column::State, picture);
    FGK6.SetText(row, F6Column::State,
                 picture == AdapterPicture::Unusable ? Wort(kern, Word::AdapterUnusable) : std::string());
}

bool F6::Ist_Da(int row) const {
    const int picture = FGK6.At(row, F6Column::State).Picture;
    return picture == AdapterPicture::Present || picture == AdapterPicture::Unusable;
}

bool F6::Adapter_Liste_Laden() {
    Gitter_Leeren();
    RecordFile file(AdapterRecord::Record);
    if (file.Laden(kern.Welt.Files, kern.DatPfad()) == ReadStatus::Error) {
        return false;
    }
    for (int row = FirstRow; row <= Records; ++row) {
        const std::string address = file.Text(row, AdapterRecord::Adresse);
        const std::string name = file.Text(row, AdapterRecord::Name);
        FGK6.SetText(row, F6Column::Address, address);
        FGK6.SetText(row, F6Column::Name, name);
        FGK6.SetText(row, F6Column::Port, file.Text(row, AdapterRecord::Port));
        if (!address.empty()) {
            Zustand_Zeigen(row);
        }
    }
    return true;
}

void F6::Zustand_Zeigen(int row) {
    Zustand_Setzen(row, AdapterPicture::Absent);
    for (const auto& [adapters, picture] :
         {std::pair{&Adapter.Saetze, AdapterPicture::Present}, std::pair{&Adapter.Fremde, AdapterPicture::Unusable}}) {
        for (const AdapterSatz& adapter : *adapters) {
            if (adapter.Adresse != FGK6.Text(row, F6Column::Address)) {
                continue;
            }
            Zustand_Setzen(row, picture);
            // A name must go to this adapter, also when another one has its old port by now.
            FGK6.SetText(row, F6Column::Port, adapter.Port);
            Zeile_Faerben(row, adapter.Name == FGK6.Text(row, F6Column::Name) ? White : ChangedName);
        }
    }
}

void F6::Zeile_Faerben(int row, Colour colour) {
    for (int column = F6Column::Address; column < F6Column::Count; ++column) {
        FGK6.SetBackColor(row, column, colour);
    }
}

bool F6::Adapter_Liste_Speichern() {
    RecordFile file(AdapterRecord::Record);
    if (file.Laden(kern.Welt.Files, kern.DatPfad()) == ReadStatus::Error) {
        return false; // what lies behind the rows would be lost
    }
    for (int row = FirstRow; row <= Records; ++row) {
        std::string record(AdapterRecord::Record.Length, '\0');
        Feld_Schreiben(record, AdapterRecord::Adresse, FGK6.Text(row, F6Column::Address));
        Feld_Schreiben(record, AdapterRecord::Name, FGK6.Text(row, F6Column::Name));
        Feld_Schreiben(record, AdapterRecord::Port, FGK6.Text(row, F6Column::Port));
        Feld_Schreiben(record, AdapterRecord::Reserve, "");
        file.SetRecord(row, record);
    }
    return file.Speichern(kern.Welt.Files, kern.DatPfad());
}

void F6::F6_MSGM_Click() {
    if (!busy_ && kern.Welt.DeviceManager) {
        kern.Welt.DeviceManager();
    }
}

void F6::Toolbar1_ButtonClick(std::string_view key) {
    if (busy_) {
        return;
    }
    Editor_Uebernehmen();
    if (key == Toolbar1[1].Key) {
        Speichern();
    } else if (key == Toolbar1[0].Key) {
        Schliessen();
    }
}

void F6::Schliessen() {
    if (dirty_) {
        const Verlassen choice = Verlassen_Fragen(kern, kern.Zeile(Line::Confirmation));
        if (choice == Verlassen::Bleiben) {
            return;
        }
        if (choice == Verlassen::Speichern) {
            Speichern();
            if (dirty_) {
                return; // it could not be saved: nothing of it is to be lost
            }
        } else {
            if (before_) {
                kern.Config = *std::exchange(before_, {});
            }
            // A search or the check box may have led to ports and adapters that are not wanted.
            Port_Einrichten(link, Adapter);
            if (Port_Eingerichtet) {
                Port_Eingerichtet();
            }
        }
    }
    dirty_ = false;
    Fenster.Visible = false;
    kern.Windows.BackToMain();
}

void F6::Speichern() {
    Konfiguration& config = kern.Config;
    const Konfiguration before = before_.value_or(config);
    config.PortNummer = Combo1.Selected + 1;
    config.PortName = "USB-Port" + Ziffern(config.PortNummer);
    config.PortAutomatik = Check1.Checked ? "SET" : "RESET";
    const bool open = Port_Einrichten(link, Adapter);
    if (Port_Eingerichtet) {
        Port_Eingerichtet();
    }
    if (!open && !Check1.Checked) { // an adapter that is searched may be plugged in at any time
        kern.Meldung(Fester_Text(kern, Word::ComportMissing), Buttons::Ok, Icon::Exclamation);
    }
    const bool saved = Konfiguration_Speichern(kern, ConfigChoice::Port);
    const bool listSaved = Adapter_Liste_Speichern();
    if (saved && listSaved) {
        dirty_ = false;
        before_.reset();
    } else {
        dirty_ = true;
        before_ = before;
        kern.Meldung(kern.Zeile(Line::SettingsNotSaved), Buttons::Ok, Icon::Exclamation);
    }
}

} // namespace qvm
