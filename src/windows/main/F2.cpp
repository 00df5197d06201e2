#include "F2.h"

#include "AdapterScan.h"
#include "AntwortLayouts.h"
#include "AutoRegister.h"
#include "Worte.h"

#include <algorithm>
#include <utility>

namespace qvm {
namespace {

/// Milliseconds of Timer2: at the first open, once the port is ready, between two scans, after a key found no adapter.
constexpr int FirstInterval = 1000, ReadyInterval = 200, ScanInterval = 40000, KeyInterval = 30000;
constexpr int GuardInterval = 2000;
/// A search that is over sooner is not told: at each supervision of a good adapter the keys would flicker.
constexpr int PatienceInterval = 300;
/// How often, and how many milliseconds apart, a port is tried again that may only be out of reach for a moment. Behind
/// these tries it is looked for as often as an adapter is.
constexpr int RetryInterval = 2000, FastRetries = 30;

constexpr int AdapterPictureId = 1;

void Weiterzaehlen(Label& label) {
    label.Text = std::to_string(Zahlwert(label.Text()) + 1);
}

/// Faults that pass by themselves: another program lets go, and a node just plugged gets its rights. What is not there,
/// or no port, is announced by the system when that changes.
bool Voruebergehend(const PortFault& fault) {
    using Kind = PortFault::Kind;
    return fault.What == Kind::Held || fault.What == Kind::HeldByService || fault.What == Kind::NoRight;
}

void Anschluss_Schliessen(const Kern& kern) {
    const SerialPort& port = kern.Welt.Port;
    if (port.IsOpen()) {
        port.SetRts(false);
        port.Close();
    }
}

} // namespace

F2::F2(Link& serialLink, AdapterListe& adapters)
    : link(serialLink), kern(serialLink.kern), Adapter(adapters), Timer1(kern.Welt, GuardInterval),
      Timer2(kern.Welt, FirstInterval), Suchanzeige(kern.Welt, PatienceInterval),
      Wiederholung(kern.Welt, RetryInterval) {
    Timer1.Ticked = [this] { Timer1_Timer(); };
    Timer2.Ticked = [this] { Timer2_Timer(); };
    Suchanzeige.Ticked = [this] { Warten_Zeigen(true); };
    Wiederholung.Ticked = [this] { Wiederholung_Timer(); };
    Label1.ForeColor = Lampe::Rot;
    Picture1.Id = AdapterPictureId;
}

F2::~F2() {
    if (geladen_ && kern.Welt.OnPortChange) {
        kern.Welt.OnPortChange(nullptr);
    }
}

void F2::F2_Laden() {
    for (Label* label : {&Label3, &Label6}) {
        label->Text = std::string("0");
        label->Visible = false;
    }
    Label7.Visible = false;
    Picture1.Visible = false;
    Texte_Setzen();
    Tasten_Freigeben();
    Timer1.Stop();
    Timer2.Stop();
    Timer2.SetInterval(FirstInterval);
    Rufen(Hooks.Lauf_Timer_Anhalten);
    Uebersicht_Lesen();
    Fenster.Visible = true;
    Fenster.Enabled = true;
    if (geladen_) {
        return;
    }
    geladen_ = true;
    if (kern.Welt.OnPortChange) {
        kern.Welt.OnPortChange([this](PortChange change) { Port_Geaendert(change); });
    }
    versuche_ = 0;
    Port_Bereiten();
    if (!Timer2.Running()) {
        Timer2.Start();
    }
}

void F2::F2_Zeigen() {
    if (!geladen_ || beendet_) {
        return;
    }
    ++rueckkehr_;
    Uebersicht_Lesen();
    Fenster.Visible = true;
    Fenster.Enabled = true;
    if (Label1.ForeColor == Lampe::Rot && kern.Welt.Port.IsOpen() && !Lauf_Aktiv()) {
        Port_Einrichten_Anzeigen(); // another window has opened it
        return;
    }
    // A port that was made ready while an editor was open is still to be searched.
    Timer2.Start(Timer2.Interval() == ReadyInterval ? ReadyInterval : ScanInterval);
}

void F2::F2_Freigeben() {
    if (link.Lauf.Chain.Phase == RunPhase::None && (!Hooks.Davor_Offen || !Hooks.Davor_Offen())) {
        kern.Windows.BackToMain();
    }
}

void F2::Timer1_Timer() {
    Timer1.Stop();
    Rufen(Hooks.F9_Schliessen);
    Fenster.Enabled = true;
    kern.Meldung(kern.Zeile(Line::TimeOut), Buttons::Ok, Icon::Exclamation);
}

void F2::Timer2_Timer() {
    if (ScanLaeuft != 0 || Lauf_Aktiv()) {
        return; // it ticks on and finds the line free one day
    }
    Suche_Beginnt();
    Timer2.Stop();
    Timer2.SetInterval(ScanInterval);
    Verbunden = 0;
    Weiterzaehlen(Label6);
    if (Label1.ForeColor != Lampe::Rot) {
        if (!kern.Welt.Port.IsOpen()) {
            Port_Neu(link);
        }
        Suchen();
        if (Label1.ForeColor != Lampe::Rot && Da() && !Timer2.Running()) {
            Timer2.Start();
        }
    }
    Scan_Fertig();
}

void F2::Nachsuchen() {
    Timer2.Stop();
    Timer2.SetInterval(KeyInterval);
    if (Label1.ForeColor == Lampe::Gruen) {
        Suche_Beginnt();
        Port_Neu(link);
        Suchen();
        Scan_Fertig();
    }
    if (Da() && !Timer2.Running()) {
        Timer2.Start();
    }
}

void F2::Scan_Fertig() {
    ScanLaeuft = 0;
    Warten_Zeigen(false);
    Anschluss_Setzen();
    if (std::exchange(schnittstelleWartet_, false) && Da()) {
        F2_Schnittstelle_Click();
    }
}

void F2::Suchen() {
    Adapter_Suchen(link, Adapter);
    if (beendet_) {
        Anschluss_Schliessen(kern);
        return;
    }
    if (Label1.ForeColor == Lampe::Rot) {
        return;
    }
    if (!kern.Welt.Port.IsOpen()) {
        Port_Verloren(Anschlussgrund());
        versuche_ = 0;
        Wiederholung_Starten();
    } else if (Verbunden == 0) {
        Melden(Grund::Stumm);
    }
}

void F2::Adapter_Erkannt() {
    Verbunden = 1;
    AdapterVersion = link.RxByte(RpAdapterKennung::Version.Offset);
    Label1.ForeColor = Lampe::Gruen;
    Weiterzaehlen(Label3);
    Label7.Visible = true;
    Picture1.Visible = true;
    Melden(Grund::Keiner);
}

F2::Grund F2::Anschlussgrund() const {
    if (kern.Welt.Port.IsOpen()) {
        return Grund::Keiner;
    }
    return kern.Config.AdapterModus() && Adapter.PortAnzahl() == 0 ? Grund::KeinAdapter : Grund::Anschluss;
}

void F2::Melden(Grund reason) {
    const SerialPort& port = kern.Welt.Port;
    grund_ = reason;
    fehler_ = port.LastFault ? port.LastFault() : PortFault();
    fehlertext_ = port.LastError();
    Meldezeile_Setzen();
}

void F2::Port_Bereiten() {
    nachholen_ = false;
    Port_Einrichten(link, Adapter);
    Anschluss_Zeigen();
    Rufen(Hooks.Anschluss_Geaendert);
}

void F2::Port_Einrichten_Anzeigen() {
    versuche_ = 0;
    Anschluss_Zeigen();
}

void F2::Wiederholung_Starten() {
    if (Voruebergehend(fehler_)) {
        Wiederholung.Start(versuche_ < FastRetries ? RetryInterval : ScanInterval);
    }
}

void F2::Anschluss_Zeigen() {
    const bool open = kern.Welt.Port.IsOpen();
    Verbunden = 0;
    Label1.ForeColor = open ? Lampe::Gelb : Lampe::Rot;
    Melden(Anschlussgrund());
    Anschluss_Setzen();
    Timer2.Stop();
    if (!nachholen_) {
        Wiederholung.Stop();
    }
    if (!open) {
        Wiederholung_Starten();
    } else {
        Timer2.SetInterval(ReadyInterval);
        if (Da()) {
            Timer2.Start();
        }
    }
}

void F2::Port_Verloren(Grund reason) {
    Timer2.Stop();
    if (kern.Welt.Port.IsOpen()) {
        kern.Welt.Port.Close();
    }
    Verbunden = 0;
    AdapterVersion = 0;
    Label1.ForeColor = Lampe::Rot;
    Label7.Visible = false;
    Picture1.Visible = false;
    Melden(reason);
    Anschluss_Setzen();
}

void F2::Port_Geaendert(PortChange change) {
    const bool arrived = change == PortChange::Arrived;
    if (beendet_) {
        return;
    }
    if (arrived && !kern.Config.AdapterModus()) {
        Rufen(Hooks.Anschluss_Geaendert); // a fixed port is left alone
        return;
    }
    if (Lauf_Aktiv()) {
        // The event may come before the port notices that its device is gone: look again until the run has ended.
        nachholen_ = nachholen_ || arrived;
        versuche_ = 0;
        Wiederholung_Timer();
        Wiederholung.Start(RetryInterval);
        Rufen(Hooks.Anschluss_Geaendert);
        return;
    }
    if (!arrived) {
        Port_Verloren(Grund::KeinAdapter);
    }
    versuche_ = 0;
    Wiederholung.Stop();
    Port_Bereiten();
}

void F2::Wiederholung_Timer() {
    const bool open = kern.Welt.Port.IsOpen();
    if (Lauf_Aktiv()) {
        if (!open && Label1.ForeColor != Lampe::Rot) {
            Port_Verloren(Grund::KeinAdapter);
            nachholen_ = true;
        }
        return;
    }
    if (ScanLaeuft != 0 || Adapter.SucheLaeuft) {
        return;
    }
    if (open && !nachholen_) {
        Wiederholung.Stop();
        if (Label1.ForeColor == Lampe::Rot) {
            Port_Einrichten_Anzeigen(); // another window has opened it
        }
        return;
    }
    if (Fenster.Visible && !Fenster.Enabled) {
        return; // the window in front has the port
    }
    Wiederholung.Stop();
    versuche_ = std::min(versuche_ + 1, FastRetries);
    Port_Bereiten();
}

void F2::Beenden() {
    if (beendet_ || (Hooks.Ende_Erlaubt && !Hooks.Ende_Erlaubt())) {
        return;
    }
    beendet_ = true;
    Timer1.Stop();
    Timer2.Stop();
    Suchanzeige.Stop();
    Wiederholung.Stop();
    ++Adapter.Stand; // a scan under way ends with its present wait
    if (!Herunterfahren(kern)) {
        kern.Meldung(Wort(kern, Line::SettingsNotSaved, u8"Die Einstellungen konnten nicht gespeichert werden!"_w),
                     Buttons::Ok, Icon::Exclamation);
    }
    Fenster.Visible = false;
    Rufen(Hooks.Ende);
}

bool Herunterfahren(Kern& kern) {
    const bool saved = Konfiguration_Speichern(kern);
    Anschluss_Schliessen(kern);
    return saved;
}

} // namespace qvm
