#include "Laufbedingungen.h"
#include "Laufschritte.h"
#include "Modelle.h"

namespace qvm {
namespace {

/// The part to send now, and the counter behind it. A counter beyond the last part sends the last one again.
std::uint8_t Naechster_Teil(std::uint8_t& counter, std::uint8_t last) {
    const std::uint8_t part = counter < last ? counter : last;
    counter = part == last ? StepDone : static_cast<std::uint8_t>(part + 1);
    return part;
}

constexpr std::uint8_t LastTimerPartA = 2, LastTimerPartB = 1, LastHolidayPart = 2;
constexpr int PollingTries = 10;

} // namespace

void Schritt_Zeitfenster(Programmierlauf& run) {
    const Dataset& daten = run.Daten;
    // The record's third character goes first, its second one second.
    TelZeitfenster_Senden(run.link, daten.Reserved1 == "1" ? 1 : 0, daten.AlwaysOn == "1" ? 1 : 0, daten.ListenSeconds);
}

void Schritt_ReaderEinstellung(Programmierlauf& run) {
    TelReaderEinstellung_Senden(run.link, Pegelbyte(run.Daten.RssiLevel), run.Daten.SignalFlag == "1");
}

void Schritt_Schaltuhr_A(Programmierlauf& run) {
    TelSchaltuhrA_Senden(run.link, run.Daten.TimerTableA, Naechster_Teil(Kette(run).TimerPart, LastTimerPartA));
}

void Schritt_Schaltuhr_B(Programmierlauf& run) {
    TelSchaltuhrB_Senden(run.link, run.Daten.TimerTableB, Naechster_Teil(Kette(run).TimerPart, LastTimerPartB));
}

void Schritt_Schaltuhr_B_Beginnen(Programmierlauf& run) {
    Kette(run).TimerPart = 0;
    Schritt_Schaltuhr_B(run);
}

void Schritt_Schaltuhr_B_Kurz(Programmierlauf& run) {
    TelSchaltuhrBKurz_Senden(run.link, run.Daten.TimerTableB);
}

void Schritt_EinzelFeiertage(Programmierlauf& run) {
    TelEinzelFeiertage_Senden(run.link, run.Daten.HolidayTableA,
                              Naechster_Teil(Kette(run).HolidayPart, LastHolidayPart));
}

void Schritt_EinzelFeiertage_Beginnen(Programmierlauf& run) {
    Kette(run).TimerPart = 0;
    Kette(run).HolidayPart = 0;
    Schritt_EinzelFeiertage(run);
}

void Schritt_PermFeiertage(Programmierlauf& run) {
    TelPermFeiertage_Senden(run.link, run.Daten.HolidayTableB, Naechster_Teil(Kette(run).HolidayPart, LastHolidayPart));
}

void Schritt_PermFeiertage_Beginnen(Programmierlauf& run) {
    Kette(run).HolidayPart = 0;
    Schritt_PermFeiertage(run);
}

void Zeit_Tabellen_Start(Programmierlauf& run) {
    Kette(run).TimerPart = 0;
    Kette(run).HolidayPart = 0;
    const std::string& mode = run.link.Lauf.Values.TimerMode;
    if (mode == TimerPB_UT) {
        Schritt_Schaltuhr_A(run);
    } else if (mode == Timer_ERROR) {
        Schritt_EinzelFeiertage(run);
    } else {
        TelSchaltuhrAKurz_Senden(run.link, run.Daten.TimerTableA);
    }
}

void Datenstart_Senden(Programmierlauf& run) {
    const RunOrder& order = run.link.Lauf.Order;
    if (BereichZ(order.SerialValue) && !Blocktransfer(run)) {
        Kette(run).AnswerSeen = false;
        Kette(run).AnswerTicks = 0;
        run.Timer7.Start(2000);
    }
    TelDatenStart_Senden(run.link, order.EraseOption);
}

void Abfrage_Stoppen(Programmierlauf& run) {
    run.Timer7.Stop();
    run.Timer8.Stop();
}

void Schritt_Geloescht(Programmierlauf& run) {
    Abfrage_Stoppen(run);
    TelKalenderFlag_Senden(run.link);
}

void Schritt_Lebenszeichen(Programmierlauf& run) {
    Kette(run).AnswerSeen = true;
}

void Schritt_Daten_Schluss(Programmierlauf& run) {
    TelDatenEnde_Senden(run.link);
    if (Kette(run).TwoPassFlag != 0) {
        run.Timer6.Start(500);
    } else {
        run.Ansicht.Status(Line::Completing);
    }
}

void Tick_Timer7(Programmierlauf& run) {
    ChainState& chain = Kette(run);
    run.Timer7.Stop();
    if (chain.AnswerSeen || ++chain.AnswerTicks > PollingTries) {
        chain.AnswerSeen = false;
        chain.AnswerTicks = 0;
        if (chain.AbbruchWunsch != 0) {
            Abbruch_Ausfuehren(run);
        } else {
            TelKalenderFlag_Senden(run.link);
        }
    } else {
        // Under a cancel, too: what a deaf lock is sent in its place is lost, and the session stays open.
        run.Timer7.Start(1000);
        TelLebenszeichen_Senden(run.link);
    }
}

} // namespace qvm
