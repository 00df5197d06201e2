#include "Historienkette.h"
#include "Kanal.h"
#include "Laufbedingungen.h"
#include "Laufschritte.h"
#include "Schlosszeile.h"
#include "TelegrammeSitzung.h"

#include <algorithm>
#include <array>

namespace qvm {
namespace {

constexpr int SearchSteps = 12;

/// Who answered the login.
void Geraet_Merken(Link& link) {
    for (int n = 0; n < 4; ++n) {
        link.Device.DeviceAddress[static_cast<std::size_t>(n)] = link.RxByte(3 + n);
        link.Device.Serial[static_cast<std::size_t>(n)] = link.RxByte(7 + n);
    }
    link.Device.Status = link.RxByte(StatusIndex);
}

/// What follows a login: the clock, else the history, else the erase telegram.
void Nach_Verbunden(Programmierlauf& run) {
    if (run.link.Lauf.Values.FlagSetClock == 1) {
        TelDatum_Senden(run.link);
    } else if (Historie_Gewuenscht(run)) {
        Historie_Start(run);
    } else {
        // Without clock and history the priority telegram is not sent: the erase telegram follows the login at once.
        Datenstart_Senden(run);
    }
}

/// Beyond the last channel of a search.
void Suche_Gescheitert(Programmierlauf& run) {
    run.link.Lauf.Chain.KanalSuche = 0;
    Codeaenderung_Gescheitert(run, RunOutcome::NotReached);
    if (Zeile_Fehlgeschlagen(run, RunOutcome::NotReached, run.kern.Zeile(Line::ConnectionFailed))) {
        return;
    }
    run.Ansicht.Wartebox_Text(Line::Cancelled);
    Kanal_Offen(run.kern, run.link.Lauf.Order.LockNumber);
    Mit_Meldung_Enden(run, RunOutcome::NotReached, Line::NotReachable);
}

} // namespace

int Anmeldung_Zeile(std::uint8_t status) {
    constexpr std::array<int, 4> lines{0, Line::CheckCode, Line::CodeNotAccepted, Line::AccessDenied};
    return status < lines.size() ? lines[status] : 0;
}

void Schritt_Angemeldet(Programmierlauf& run) {
    Kette(run).WiederholZaehler = 0;
    Geraet_Merken(run.link);
    Nach_Verbunden(run);
}

void Schritt_Code_Verbunden(Programmierlauf& run) {
    Kette(run).CodeChangePending = 0;
    Kette(run).KanalSuche = 0;
    Geraet_Merken(run.link);
    run.Fenster.Code_Angemeldet();
}

void Schritt_Kanal_Gefunden(Programmierlauf& run) {
    Kette(run).KanalSuche = 0;
    Geraet_Merken(run.link);
    Schritt_Kanal_Lesen(run);
}

void Schritt_Suche_Abgelehnt(Programmierlauf& run) {
    Kette(run).KanalSuche = 0;
    Schritt_Anmeldung_Abgelehnt(run);
}

void Schritt_Anmeldung_Abgelehnt(Programmierlauf& run) {
    Geraet_Merken(run.link);
    const Kern& kern = run.kern;
    const int line = Anmeldung_Zeile(run.link.Device.Status);
    const std::string failed = kern.Zeile(Line::ConnectionFailed);
    Timer_Anhalten(run);
    run.Ansicht.Wartebox_Schliessen();
    if (Zeile_Fehlgeschlagen(run, RunOutcome::Refused,
                             (line != 0 ? kern.Zeile(line) + "  /  " : std::string()) + failed)) {
        return;
    }
    run.Ansicht.Schlossgitter_Freigeben();
    Lauf_Beenden(run, RunOutcome::Refused, line != 0 ? kern.Zeile(line) : failed);
    RxBuffer_Leeren(run.link, 65);
    if (line != 0) {
        Meldung_Zu(kern, Worum(run), kern.Zeile(line), Buttons::Ok, Icon::Exclamation);
    }
    Meldung_Zu(kern, Worum(run), failed, Buttons::Ok, Icon::Exclamation);
    run.Ansicht.Fertig(Line::LoginFailed);
    Port_Neu(run.link);
}

void Schritt_Unit_Abgelehnt(Programmierlauf& run) {
    // The unit's box stays unticked; the units behind it are tried.
    run.UnitGood = false;
    const int line = Anmeldung_Zeile(run.link.RxByte(StatusIndex));
    const int index = run.link.Lauf.Chain.UnitIndex;
    if (index >= 0 && index < static_cast<int>(run.Bericht.Units.size())) {
        UnitReport& unit = run.Bericht.Units[static_cast<std::size_t>(index)];
        unit.End = UnitReport::State::Failed;
        unit.Refused = true;
        unit.Note = run.kern.Zeile(line != 0 ? line : Line::ConnectionFailed);
    }
    run.Timer9.Start(600);
    if (line != 0 && run.link.Lauf.List.RunRows == 0) {
        Meldung_Zu(run.kern, Worum_Unit(run), run.kern.Zeile(line), Buttons::Ok, Icon::Exclamation);
    }
}

void Schritt_Kanal_Weiter(Programmierlauf& run) {
    ChainState& chain = Kette(run);
    if (chain.KanalIndex >= SearchSteps) {
        Suche_Gescheitert(run);
        return;
    }
    run.link.TargetChannel = static_cast<std::uint8_t>(chain.KanalIndex + 1);
    ++chain.KanalIndex;
    run.Ansicht.Wartebox_Balken(100 + 6 * chain.KanalIndex);
    if (chain.CodeChangePending != 0 && chain.KanalIndex == 1) {
        run.Fenster.Code_Gesucht();
    }
    TelVerbinden_Senden(run.link);
}

void Schritt_Kanal_Lesen(Programmierlauf& run) {
    TelKanalLesen_Senden(run.link, run.kern.Config.Funkkanal());
}

void Schritt_Kanal_Gelesen(Programmierlauf& run) {
    const auto channel = static_cast<std::uint8_t>(run.kern.Config.Funkkanal() - 1);
    TelEKeyAktion_Senden(run.link, channel, channel);
    run.Timer8.Start(10);
}

void Schritt_Kanal_Gesetzt(Programmierlauf& run) {
    Kette(run).KanalSuche = 0;
    // From this reply on the lock listens on the system's channel; every later login of the run goes out on it.
    run.link.TargetChannel = static_cast<std::uint8_t>(run.kern.Config.Funkkanal());
    // A 0x29 that answers something else does not say where the lock listens.
    run.Bericht.ChannelUnsaved =
        Konto_Kanal_Gesetzt(run.Konto) && !Kanal_Ausgefuehrt(run.kern, run.link.Lauf.Order.LockNumber);
    run.Ansicht.Wartebox_Schliessen();
    run.Ansicht.F9_Zeigen();
    Nach_Verbunden(run);
}

void Schritt_Zweiter_Durchgang(Programmierlauf& run) {
    ChainState& chain = Kette(run);
    run.Timer6.Stop();
    chain.HistoryOnly = chain.ReadHistoryFirst = chain.TwoPassFlag = 0;
    Konto_Zweiter_Durchgang(run.Konto);
    TelVerbinden_Senden(run.link);
}

void Schritt_Code_Ergebnis(Programmierlauf& run) {
    const Kern& kern = run.kern;
    const std::uint8_t status = run.link.RxByte(StatusIndex);
    run.Fenster.Code_Beantwortet();
    if (status == 4) {
        kern.Meldung(kern.Zeile(Line::NewCodeAccepted), Buttons::Ok, Icon::Information, CodeTitle);
        return;
    }
    const int line = Anmeldung_Zeile(status);
    std::string text = kern.Zeile(line != 0 ? line : Line::CheckCode);
    if (line != 0) {
        text += "  -  Codechange_Error_0x0" + std::to_string(status);
    }
    run.Ansicht.Wartebox_Schliessen();
    run.Ansicht.Schlossgitter_Freigeben();
    kern.Meldung(text, Buttons::Ok, Icon::Exclamation, CodeTitle);
}

void Codeaenderung_Gescheitert(Programmierlauf& run, RunOutcome why) {
    if (Kette(run).CodeChangePending != 0) {
        run.Fenster.Code_Abgelehnt(why);
    } else if (run.link.TxBuffer[2] == TelCodeAendern::Telegram.Code) {
        run.Fenster.Code_Beantwortet();
    }
}

} // namespace qvm
