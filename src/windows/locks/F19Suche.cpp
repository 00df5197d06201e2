#include "F19Suche.h"

#include "AdapterScan.h"
#include "LinkHooks.h"
#include "PortFault.h"
#include "Seriennummer.h"
#include "Telegramme.h"
#include "Text.h"
#include "Words.h"

#include <cstddef>

namespace qvm {

F19Suche::F19Suche(ChannelScan& channelScan, AdapterListe& adapters, F12& locks, F19& found, F20& units)
    : scan(channelScan), kern(channelScan.run.kern), Adapter(adapters), f12(locks), f19(found), f20(units) {
    scan.Fortschritt = [this] { Zeigen(); };
    scan.Beendet = [this](ScanEnd how) { Beendet(how); };
}

int F19Suche::Version() const {
    const int searched = Adapter.ProgVersion;
    return searched != 0 || !AdapterVersion ? searched : AdapterVersion();
}

RunOrder F19Suche::Auftrag(int lock) const {
    return {.LockNumber = lock, .LockName = f12.FGK12.Text(lock, LockColumn::Name)};
}

// ---- begin

void F19Suche::Schloss_Suchen(int lock) {
    opener_ = F19Opener::Locks;
    target_ = lock;
    Anmeldung_Oeffnen(lock);
}

void F19Suche::Unit_Suchen(int row) {
    opener_ = F19Opener::Units;
    target_ = row;
    Anmeldung_Oeffnen(f20.Lock);
}

bool F19Suche::Belegt() {
    // The device may have its new code, and what it says of it would be lost.
    const bool changing = scan.run.link.AnswerDue == TelCodeAendern::Telegram.Code;
    const bool busy = changing || !scan.run.Gesamtende || scan.Laeuft;
    if (busy) {
        Hinweis().Text = Wort(kern, Word::ScanBusy);
    }
    return busy;
}

void F19Suche::Anmeldung_Oeffnen(int lock) {
    if (!Anmelden || Belegt()) {
        return;
    }
    Programmierlauf& run = scan.run;
    run.link.Lauf.List = {};
    run.link.Lauf.Order = Auftrag(lock);
    Fenster().Enabled = false;
    Anmelden(opener_, f12.FGK12.Text(lock, LockColumn::AdapterId));
}

void F19Suche::Keypad_Suchen(int row) {
    opener_ = F19Opener::Units;
    target_ = row;
    if (Belegt()) {
        return;
    }
    Fenster().Enabled = false;
    const bool known = Adapter_Port_Oeffnen(scan.run.link, Adapter, &AdapterListe::ProgStationPort);
    Freigeben();
    if (!known) {
        kern.Meldung(kern.Zeile(Line::NoSuitableAdapter), Buttons::Ok, Icon::Exclamation);
    } else if (Version() < ScanningVersion) {
        kern.Meldung(kern.Zeile(Line::NeedsCurrentAdapter), Buttons::Ok, Icon::Exclamation);
    } else {
        Beginnen(ScanWay::Units, Auftrag(f20.Lock));
    }
}

void F19Suche::Beginnen(ScanWay way, const RunOrder& order) {
    if (opener_ == F19Opener::Units) {
        Freigeben(); // its cancel key ends the scan
    }
    if (!Kanaele_Absuchen(scan, way, order, opener_ == F19Opener::Units ? "F20" : "")) {
        Freigeben();
        Hinweis().Text = Wort(kern, Word::ScanBusy);
    }
}

// ---- on the way

void F19Suche::Zeigen() {
    const int channel = scan.Kanal();
    if (opener_ == F19Opener::Units) {
        f20.Suche_Zeigen(channel, Stand());
        return;
    }
    if (channel == 1) {
        Rufen(Wartebox_Zeigen);
    }
    if (Wartebox_Stand) {
        Wartebox_Stand(channel, Stand());
    }
}

std::string F19Suche::Stand() const {
    int found = 0;
    int last = 0;
    for (int channel = 1; channel <= UnitScan::Channels; ++channel) {
        if (scan.Funde.Entries[static_cast<std::size_t>(channel)].Status != ScanEntry::Nothing) {
            ++found;
            last = channel;
        }
    }
    const std::string asked = Ziffern(scan.Kanal());
    if (found == 0) {
        return Wort(kern, Word::ScanNothing, {asked});
    }
    const std::string serial = Serie_Text(scan.Funde.Entries[static_cast<std::size_t>(last)].Serial);
    return Wort(kern, Word::ScanFound, {asked, Ziffern(found), serial, Ziffern(last)});
}

// ---- end

void F19Suche::Beendet(ScanEnd how) {
    if (opener_ == F19Opener::Units) {
        f20.Suche_Endet(std::string());
    } else {
        Rufen(Wartebox_Schliessen);
    }
    if (how == ScanEnd::Done) {
        Fenster().Enabled = false;
        f19.F19_FormLaden(scan.Funde, opener_, target_);
    } else {
        Freigeben();
        Melden(how);
    }
}

void F19Suche::Melden(ScanEnd how) {
    if (how == ScanEnd::Cancelled) {
        Hinweis().Text = Wort(kern, Word::ScanCancelled);
    } else if (how == ScanEnd::NoPort) {
        const SerialPort& port = kern.Welt.Port;
        const std::string reason = PortFault_Text(kern, port.LastFault ? port.LastFault() : PortFault());
        kern.Meldung(reason.empty() ? kern.Zeile(Line::PortNotOpened) : reason, Buttons::Ok, Icon::Exclamation);
    } else {
        kern.Meldung(Wort(kern, Word::AdapterPulled), Buttons::Ok, Icon::Exclamation);
    }
}

} // namespace qvm
