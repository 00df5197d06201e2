#include "F11.h"

#include "AdapterScan.h"
#include "Adapterklasse.h"
#include "Schlosszeile.h"
#include "Text.h"
#include "Words.h"

#include <array>

namespace qvm {
namespace {

constexpr int CutoffDays = 20;
constexpr std::string_view NoCutoff = "-- -- . -- -- . -- --";
/// What is offered, 0 for never, and which of them stands at first.
constexpr std::array Patience = {30, 60, 120, 300, 600, 0};
constexpr int UsualPatience = 1;

} // namespace

F11::F11(Programmierlauf& programmierlauf, F9& progress, F18& wait, AdapterListe& adapters)
    : run(programmierlauf), kern(programmierlauf.kern), f9(progress), f18(wait), Adapter(adapters),
      Fokus(programmierlauf.kern.Welt, 500) {
    Fokus.Ticked = [this] {
        Fokus.Stop();
        Rufen(Text1.SetFocus);
    };
}

void F11::F11_Laden(F11Opener opener, const std::string& adapterName) {
    opener_ = opener;
    Eingabe_Leeren();
    Texte_Setzen();
    Check1.Checked = true;

    const bool history = run.link.Lauf.Order.What != RunTask::Program;
    Stichtag_Setzen(history ? std::optional(Datum_Plus(Heute(kern.Welt.Now()), -CutoffDays)) : std::nullopt);

    const bool fromGrid = opener == F11Opener::F13;
    Check1.Enabled = fromGrid;
    CutoffText.Enabled = fromGrid && history;
    CutoffDate.Enabled = fromGrid && history;
    Adapter_Fuellen(opener, adapterName);
    Geduld_Anbieten();
    Fenster.Visible = true;
    Fokus.Start(500);
}

void F11::Texte_Setzen() {
    Fenster.Title = kern.Zeile(Line::StartTransfer);
    OK.Text = kern.Zeile(Line::Ok);
    Cancel.Text = kern.Zeile(Line::Cancel);
    Prompt.Text = kern.Zeile(Line::AdminCode);
    Schloss.Text = Schlosszeile();
    CutoffText.Text = kern.Zeile(Line::HistoryFrom);
    Check1.Text = kern.Zeile(Line::KeepFingerprints);
    GeduldText.Text = Wort(kern, Word::SilentRow);
    std::vector<std::string> choices;
    choices.reserve(Patience.size());
    for (const int seconds : Patience) {
        choices.push_back(seconds == 0 ? Wort(kern, Word::SilentRowNever) : Ziffern(seconds) + " s");
    }
    Geduld.Entries = choices;
}

void F11::Geduld_Anbieten() {
    const bool list = run.link.Lauf.List.RunRows > 0;
    GeduldText.Visible = list;
    Geduld.Visible = list;
    Geduld.Selected = UsualPatience;
}

int F11::Geduld_Sekunden() const {
    const int chosen = Geduld.Selected;
    const bool offered = chosen >= 0 && chosen < static_cast<int>(Patience.size());
    return Patience[static_cast<std::size_t>(offered ? chosen : UsualPatience)];
}

std::string F11::Schlosszeile() const {
    return run.link.Lauf.List.RunRows == 0 ? Lauf_Schloss(run) : std::string();
}

void F11::Adapter_Fuellen(F11Opener opener, const std::string& adapterName) {
    Combo1.Visible = kern.Config.AdapterModus();
    std::vector<std::string> entries;
    offered_.clear();
    int remembered = -1;
    int station = -1;
    for (const AdapterSatz& adapter : Adapter.Saetze) {
        const bool wanted = opener == F11Opener::F13 ? !adapter.Name.starts_with(EnrolmentClass)
                                                     : adapter.Name.starts_with(ProgrammingClass);
        if (!wanted) {
            continue;
        }
        const int index = static_cast<int>(entries.size());
        if (!adapterName.empty() && remembered < 0 && (adapter.Adresse == adapterName || adapter.Name == adapterName)) {
            remembered = index;
        }
        if (adapter.Name.starts_with(ProgrammingClass)) {
            station = index;
        }
        entries.push_back(adapter.Name + " [" + adapter.Adresse + "]");
        offered_.push_back(adapter.Adresse);
    }
    Combo1.Entries = entries;
    Combo1.Selected = remembered >= 0 ? remembered : station;
}

const AdapterSatz* F11::Gewaehlter_Adapter() const {
    const int selected = Combo1.Selected;
    if (selected < 0 || selected >= static_cast<int>(offered_.size())) {
        return nullptr;
    }
    return Adapter_Finden(Adapter, offered_[static_cast<std::size_t>(selected)]);
}

void F11::Text1_KeyPress(int key) {
    Fokus.Stop(); // it has the keyboard, and whoever goes on from it is not to be fetched back
    if (key == Key::Enter) {
        if (code_.Vollstaendig()) {
            OK_Click();
        }
    } else if (code_.Taste(key)) {
        Anzahl.Text = Ziffern(code_.Stellen());
    }
}

void F11::Eingabe_Leeren() {
    code_.Leeren();
    Anzahl.Text = std::string("0");
}

Datum F11::Letzter_Tag() const {
    return Heute(kern.Welt.Now());
}

void F11::Datum_Waehlen(const Datum& date) {
    if (CutoffDate.Enabled && Datum_Gueltig(date) && date <= Letzter_Tag()) {
        Stichtag_Setzen(date);
    }
}

void F11::Stichtag_Setzen(const std::optional<Datum>& day) {
    stichtag_ = day;
    CutoffDate.Text = day ? Datum_Text(*day) : std::string(NoCutoff);
}

bool F11::Port_Bereitmachen(bool& network) {
    Link& link = run.link;
    network = false;
    int number = link.PortNummer;
    if (kern.Config.AdapterModus() && Combo1.Selected >= 0) {
        Fenster.Enabled = false;
        Adapter_Bereithalten(link, Adapter);
        Fenster.Enabled = true;
        const AdapterSatz* adapter = Gewaehlter_Adapter();
        if (adapter == nullptr) {
            // It was pulled out since it was chosen. Another one is not the one that was chosen.
            Meldung_Zu(kern, Schlosszeile(),
                       kern.Zeile(Line::AssignedNotFound) + "\r\n" + kern.Zeile(Line::CheckAssignment), Buttons::Ok,
                       Icon::Exclamation);
            return false;
        }
        number = static_cast<int>(Zahlwert(adapter->Port));
        link.Lauf.SitzungsSchluessel = adapter->TransferKey;
        network = Adapter_Test && Adapter_Test(*adapter);
    }
    // A port that cannot be opened shows at the first telegram.
    Port_Oeffnen(link, number);
    return true;
}

void F11::OK_Click() {
    f9.Status_Zeigen(0);
    if (run.link.Lauf.List.RunRows > 0) {
        if (Liste_Beauftragen()) {
            Rufen(F13_Verbergen);
            Rufen(Liste_Starten);
        }
        return;
    }
    if (opener_ != F11Opener::F13) {
        Suche_Beauftragen();
        return;
    }
    bool network = false;
    if (!Port_Bereitmachen(network)) {
        return;
    }
    if (!network) {
        Direkt_Starten();
    } else if (Liste_Beauftragen()) {
        Rufen(Netzlauf_Starten);
    }
}

std::optional<RunOrder> F11::Auftrag_Vollenden() {
    std::optional<RunOrder> order;
    if (code_.Vollstaendig()) {
        order = run.link.Lauf.Order;
        order->AdminCode = code_.Gepackt();
        order->HistoryCutoff = stichtag_ ? Datum_Text(*stichtag_) : std::string();
        // Who clears the box has been told of the fingers that the lock holds.
        order->EraseOption = Check1.Checked ? 0 : 1;
    } else {
        Meldung_Zu(kern, Schlosszeile(), kern.Zeile(Line::EnterSixDigitCode), Buttons::Ok, Icon::Exclamation);
    }
    Eingabe_Leeren();
    return order;
}

bool F11::Liste_Beauftragen() {
    const auto order = Auftrag_Vollenden();
    if (order) {
        ListState& list = run.link.Lauf.List;
        list.Wish = *order;
        list.NetMode = NetMode_Von(order->What);
        Schliessen();
    }
    return order.has_value();
}

void F11::Direkt_Starten() {
    if (Marke_Loeschen) {
        Marke_Loeschen(LockRowOfGrid);
    }
    Rufen(Antworttabelle_Leeren);
    // Assembly resets its total to 4000 at its end; the dataset's own value was stored aside.
    const bool historyOnly = run.link.Lauf.Order.What == RunTask::HistoryOnly;
    f9.F9_Vorbereiten(historyOnly ? run.Daten.ProgressTotal : run.Daten.ProgressStored);
    const auto order = Auftrag_Vollenden();
    if (!order) {
        return;
    }
    Schliessen();
    if (order->Search) {
        f18.F18_Zeigen();
    } else {
        f9.F9_Zeigen();
    }
    Lauf_Beginnen(run, *order);
}

void F11::Suche_Beauftragen() {
    bool network = false; // it has another route for the data of a lock alone
    if (!Port_Bereitmachen(network)) {
        return;
    }
    const auto order = Auftrag_Vollenden();
    if (order) {
        Schliessen();
        if (Suche_Beauftragt) {
            Suche_Beauftragt(*order);
        }
    }
}

void F11::Schliessen() {
    Fokus.Stop();
    Fenster.Visible = false;
}

void F11::Cancel_Click() {
    Eingabe_Leeren();
    // A list that was not begun must not go with whatever opens the dialog next.
    run.link.Lauf.List = {};
    Schliessen();
    Rufen(opener_ == F11Opener::F13 ? Zurueck : Suche_Verworfen);
}

} // namespace qvm
