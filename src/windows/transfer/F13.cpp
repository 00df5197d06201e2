#include "F13.h"

#include "AdapterScan.h"
#include "FileLook.h"
#include "Kanal.h"
#include "Schlosszeile.h"
#include "Seriennummer.h"
#include "Text.h"
#include "UserRecords.h"
#include "Words.h"

namespace qvm {
namespace {

std::string_view Schalter(const std::string& cell) {
    return Trim(cell);
}

bool Zieht_Um(const KanalStand& channel) {
    return channel.ChangePending || channel.Channel != channel.Target;
}

} // namespace

F13::F13(Programmierlauf& programmierlauf, F11& start, AdapterListe& adapters)
    : run(programmierlauf), kern(programmierlauf.kern), f11(start), Adapter(adapters),
      Filter(kern, FGK13, {F13Column::Name, F13Column::Serial}), Auswahl(FGK13, GridSelection::Unit::Rows, &Filter),
      Sprung(kern.Welt, FGK13, F13Column::Name, &Filter), Timer1(kern.Welt, 10), Timer2(kern.Welt, 800) {
    kern.Windows.Open["F13"] = [this] { F13_FormLaden(); };
    Command1.Visible = false;
    Filter.Changed = [this] {
        Auswahl.FilterChanged();
        Marken_Zaehlen();
    };
    Timer1.Ticked = [this] { Maus_Verfolgen(); };
    Timer2.Ticked = [this] {
        Timer2.SetInterval(20);
        Maus_Verfolgen();
    };
}

void F13::Datum_Uhrzeit_akt(int row) {
    run.Daten.Values.FlagSetClock = Schalter(FGK13.Text(row, F13Column::SetClock)).empty() ? 0 : 1;
}

int F13::Adapter_Port(int row, bool& stop) {
    stop = false;
    if (!kern.Config.AdapterModus()) {
        return run.link.PortNummer;
    }
    if (FGK13.Text(row, F13Column::AdapterId).empty()) {
        Meldung_Zu(kern, Schloss(row), kern.Zeile(Line::NoAdapterAssigned), Buttons::Ok, Icon::Exclamation);
        stop = true;
        return KeinPort;
    }
    Fenster.Enabled = false;
    Adapter_Bereithalten(run.link, Adapter);
    Fenster.Enabled = true;
    const AdapterSatz* adapter = Adapter_Der_Zeile(Adapter, FGK13, row);
    // An entry without a usable port number is as good as none.
    const int port = adapter == nullptr ? KeinPort : static_cast<int>(Zahlwert(adapter->Port));
    return port < LowestPort ? KeinPort : port;
}

bool F13::Port_Vorbereiten(int row) {
    bool stop = false;
    const int port = Adapter_Port(row, stop);
    if (stop) {
        return false;
    }
    if (port == KeinPort) {
        Meldung_Zu(kern, Schloss(row), kern.Zeile(Line::AssignedNotFound) + "\r\n" + kern.Zeile(Line::CheckAssignment),
                   Buttons::Ok, Icon::Exclamation);
        return false;
    }
    if (port > HighestPort) {
        Meldung_Zu(kern, Schloss(row), kern.Zeile(Line::PortOutOfRange), Buttons::Ok, Icon::Exclamation);
        return false;
    }
    // A port that cannot be opened shows at the first telegram.
    Port_Oeffnen(run.link, port);
    return true;
}

void F13::FGK13_Click(int row, int column) {
    if (row < 1 || !Fenster.Enabled || !FGK13.Holds(row, column) || FGK13.At(row, column).BackColor == White) {
        return;
    }
    if (column != F13Column::Mark && !Konfiguration_Verlangen(kern)) {
        return;
    }
    Lauf_Ruecksetzen(run);
    run.link.Lauf.List = {};
    FGK13.Row = row;
    FGK13.Column = column;
    f11.LockRowOfGrid = row;
    if (!Port_Vorbereiten(row)) {
        return;
    }
    run.link.Lauf.Order = {.LockNumber = row, .LockName = FGK13.Text(row, F13Column::Name)};
    switch (column) {
    case F13Column::Program:
        Programmieren(row);
        break;
    case F13Column::History:
        Historie(row);
        break;
    case F13Column::Code:
        Code_Aendern(row);
        break;
    case F13Column::Mark:
        Marke_Umschalten(row);
        break;
    default:
        break;
    }
}

bool F13::Serie_Gueltig(int row) const {
    return Serie_Zerlegen(FGK13.Text(row, F13Column::Serial)).has_value();
}

void F13::Beauftragen(int row, RunTask what, int channel, bool search) {
    const RunOrder wish{.TargetChannel = static_cast<std::uint8_t>(channel), .Search = search, .What = what};
    if (const auto order = Lauf_Auftrag(wish, Gitterzeile_Lesen(FGK13, row), run.Daten)) {
        Lauf_Vorbereiten(run, *order);
    }
}

std::string F13::Schloss(int row) const {
    return Schloss_Zeile(kern, row, FGK13.Text(row, F13Column::Name));
}

bool F13::Historie_Fragen(bool& first, const std::string& about) {
    const Answer answer = Meldung_Zu(kern, about, kern.Zeile(Line::HistoryFirstQuestion), Buttons::YesNoCancel,
                                     Icon::Question, kern.Zeile(Line::Programming), 2);
    first = answer == Answer::Yes;
    return answer != Answer::Cancel;
}

std::vector<FileTrouble> F13::Dateien_Pruefen(int row) const {
    return Datensatz_Dateien_Pruefen(kern, Gitterzeile_Lesen(FGK13, row));
}

bool F13::Lesbar(const std::vector<FileTrouble>& troubles) const {
    const auto unread = Unlesbare(troubles);
    if (!unread.empty()) {
        Meldung_Zu(kern, Lauf_Schloss(run), Wort(kern, Word::FilesUnreadable, {Dateimaengel_Text(kern, unread)}),
                   Buttons::Ok, Icon::Exclamation);
    }
    return unread.empty();
}

bool F13::Kanaele_Lesbar() const {
    const auto trouble = Satzdatei_Pruefen(ChannelRecord::Record, kern.Welt.Files, kern.DatPfad());
    return !trouble || Lesbar({*trouble});
}

bool F13::Dateien_Hinnehmen(int row) const {
    const std::vector<FileTrouble> troubles = Dateien_Pruefen(row);
    if (!Lesbar(troubles)) {
        return false;
    }
    return troubles.empty() || run.SchadenHinnehmen ||
           Meldung_Zu(kern, Schloss(row), Wort(kern, Word::FilesDamagedAsk, {Dateimaengel_Text(kern, troubles)}),
                      Buttons::YesNo, Icon::Question, SystemTitle, 2) == Answer::Yes;
}

bool F13::Datensatz(int row) {
    if (!Dateien_Hinnehmen(row) || Datensatz_Laden(kern, run.Daten, Gitterzeile_Lesen(FGK13, row),
                                                   DatasetVariant::Direct) != DatasetStatus::Good) {
        Fenster.Enabled = true;
        return false;
    }
    return true;
}

void F13::F11_Oeffnen(int row) {
    Fenster.Enabled = false;
    // By address first, as the port is found.
    const std::string& id = FGK13.Text(row, F13Column::AdapterId);
    f11.F11_Laden(F11Opener::F13,
                  Adapter_Finden(Adapter, id) != nullptr ? id : FGK13.Text(row, F13Column::AdapterName));
}

void F13::Programmieren(int row) {
    Marke_Umschalten(row);
    const KanalStand channel = Kanal_Stand(kern, row);
    const bool moves = Zieht_Um(channel);
    bool first = false;
    // A lock that stays on its channel is asked for before its dataset is gathered, the others after it.
    if (!moves && !Historie_Fragen(first, Schloss(row))) {
        return;
    }
    if (!Serie_Gueltig(row) || !Datensatz(row)) {
        return;
    }
    if (moves && !Historie_Fragen(first, Schloss(row))) {
        return;
    }
    Beauftragen(row, first ? RunTask::HistoryFirst : RunTask::Program,
                moves ? channel.Channel : kern.Config.Funkkanal(), moves);
    F11_Oeffnen(row);
}

void F13::Historie(int row) {
    // A lock whose channel is not known would be searched, and moved.
    if (!Serie_Gueltig(row) || !Kanaele_Lesbar()) {
        return;
    }
    if (Meldung_Zu(kern, Schloss(row), kern.Zeile(Line::HistoryNowQuestion), Buttons::OkCancel, Icon::Question) !=
        Answer::Ok) {
        return;
    }
    const bool moves = Zieht_Um(Kanal_Stand(kern, row));
    Marke_Umschalten(row);
    run.Daten = {};
    Datum_Uhrzeit_akt(row);
    run.Daten.ProgressTotal = 4000;
    Beauftragen(row, RunTask::HistoryOnly, kern.Config.Funkkanal(), moves);
    F11_Oeffnen(row);
}

void F13::Code_Aendern(int row) {
    if (!Serie_Gueltig(row)) {
        return;
    }
    run.Daten = {};
    Beauftragen(row, RunTask::Program, kern.Config.Funkkanal(), Zieht_Um(Kanal_Stand(kern, row)));
    if (run.link.AddressMode != 1) {
        TelAdapterKanal_Senden(run.link);
    }
    Fenster.Enabled = false;
    Rufen(F17_Oeffnen);
}

void F13::F13_Verbergen() {
    kept_.clear();
    for (const int row : Markierte_Zeilen()) {
        kept_.emplace_back(row, FGK13.Text(row, F13Column::Serial));
    }
    Timer1.Stop();
    Timer2.Stop();
    Aufrufer = 0;
    Fenster.Visible = false;
}

void F13::Fuer_Netzlauf_Verbergen() {
    Marke_Setzen(f11.LockRowOfGrid, false);
    F13_Verbergen();
}

void F13::Hinter_Lauf_Freigeben() {
    RFk_IconLoad();
    F13_Freigeben();
}

void F13::F13_Schliessen() {
    F13_Verbergen();
    kept_.clear();
    kern.Windows.BackToMain();
}

void F13::Toolbar1_ButtonClick(std::string_view key) {
    if (key == u8"Zurück"_w) {
        if (Marken_Hinnehmen()) {
            F13_Schliessen();
        }
    } else if (key == "Prog.") {
        Liste(false);
    } else if (key == "SaveHistory") {
        Liste(true);
    }
}

} // namespace qvm
