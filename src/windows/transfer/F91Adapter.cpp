// Which adapter a row has, and adapters that come and go while the list is open.

#include "AdapterScan.h"
#include "AutoRegister.h"
#include "F91.h"
#include "ListMark.h"
#include "Text.h"

#include <algorithm>

namespace qvm {
namespace {

/// A node that was just plugged needs a moment until it may be opened.
constexpr int SearchDelay = 200;

} // namespace

void F91::Anschluss_Geaendert() {
    if (!running_) {
        return;
    }
    portsNew_ = true;
    Suche_Abbrechen(run.link, Adapter);
    if (work_ == Work::None) {
        Adaptersuche.Start(SearchDelay);
    }
}

void F91::Tick_Adaptersuche() {
    if (Adapter.SucheLaeuft) {
        return; // once that is over
    }
    Adaptersuche.Stop();
    if (work_ == Work::None) {
        Adapter_Nachsuchen();
    }
}

void F91::Adapter_Nachsuchen() {
    do {
        portsNew_ = false;
        if (kern.Config.AdapterModus()) {
            Ports_Ermitteln(kern, Adapter);
        }
        Adapter_Suchen(run.link, Adapter);
    } while (portsNew_ && running_);
    Adaptersuche.Stop();
    if (running_) {
        Adapter_Merken();
        Adapter_Melden();
    }
}

void F91::Adapter_Merken() {
    adapterSeen_.resize(static_cast<std::size_t>(FGK91.Rows()));
    for (int row = 1; row < FGK91.Rows(); ++row) {
        if (Adapter_Der_Zeile(Adapter, FGK91, row) != nullptr) {
            adapterSeen_[static_cast<std::size_t>(row)] = true;
        }
    }
}

bool F91::War_Da(int row) const {
    const auto at = static_cast<std::size_t>(row);
    return at < adapterSeen_.size() && adapterSeen_[at];
}

void F91::Adapter_Melden() {
    bool gone = !kern.Config.AdapterModus() && !kern.Welt.Port.IsOpen();
    for (int row = std::max(1, run.link.Lauf.List.RunRow); row <= run.link.Lauf.List.RunRows; ++row) {
        const std::string& mark = FGK91.Text(row, F91Column::Mark);
        const bool over = mark == ListMark::PassedOver || mark == ListMark::Failed || mark == ListMark::Programmed;
        gone = gone || (!over && War_Da(row) && Adapter_Der_Zeile(Adapter, FGK91, row) == nullptr);
    }
    if (gone != adapterGone_) {
        adapterGone_ = gone;
        Hinweis_Zeigen(gone ? Word::AdapterGone : Word::AdapterBack);
    }
}

void F91::Adapter_Gut() {
    if (hint_ == Word::AdapterBack) {
        Hinweis_Zeigen({});
    }
}

F91::Anschluss F91::Anschluss_Oeffnen(int row) {
    Link& link = run.link;
    kern.Welt.Port.Close();
    const AdapterSatz* adapter = Adapter_Der_Zeile(Adapter, FGK91, row);
    int port = kern.Config.AdapterModus() ? KeinPort : link.PortNummer;
    if (adapter != nullptr) {
        Adapter_Test(netz, {adapter->Adresse, adapter->Name});
        netz.TransferKey = adapter->TransferKey;
        link.Lauf.SitzungsSchluessel = adapter->TransferKey;
        if (kern.Config.AdapterModus()) {
            port = static_cast<int>(Zahlwert(adapter->Port));
        }
    } else if (War_Da(row)) {
        return Anschluss::Keiner; // which route it takes is not known without it
    } else {
        Adapter_Test(netz, {});
    }
    if (port > HighestPort && port != KeinPort) {
        return Anschluss::ZuHoch;
    }
    if (port < LowestPort || port > HighestPort) {
        return Anschluss::Keiner;
    }
    return Port_Oeffnen(link, port) ? Anschluss::Offen : Anschluss::Zu;
}

bool F91::Adapter_Waehlen(int& runRow) {
    const bool searched = portsNew_;
    if (searched) {
        Adapter_Nachsuchen();
    }
    Anschluss found = running_ ? Anschluss_Oeffnen(runRow) : Anschluss::Keiner;
    const bool missing = found == Anschluss::Zu || (found == Anschluss::Keiner && War_Da(runRow));
    if (running_ && missing && !searched) {
        Adapter_Nachsuchen();
        found = running_ ? Anschluss_Oeffnen(runRow) : Anschluss::Keiner;
    }
    if (!running_) {
        return false;
    }
    if (found == Anschluss::Keiner && War_Da(runRow)) {
        const bool untouched = Unberuehrt(runRow);
        Zeile_Uebergehen(runRow, ListMark::Failed,
                         {.End = untouched ? RunOutcome::NoPort : RunOutcome::NotReached,
                          .Text = kern.Zeile(untouched ? Line::PortNotOpened : Line::ConnectionFailed)});
        return false;
    }
    if (found == Anschluss::Keiner || found == Anschluss::ZuHoch) {
        const int line = found == Anschluss::ZuHoch ? Line::PortOutOfRange : Line::AdapterNotFound;
        Zeile_Uebergehen(runRow, ListMark::PassedOver, {.End = RunOutcome::PassedOver, .Text = kern.Zeile(line)});
        return false;
    }
    // A port that cannot be opened shows at the first telegram.
    return true;
}

} // namespace qvm
