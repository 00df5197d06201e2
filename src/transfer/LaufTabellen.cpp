#include "Antwort_Verteilen.h"
#include "Laufschritte.h"

#include <Lines.h>

namespace qvm {
namespace {

constexpr std::uint8_t StepDone = 0xFF;

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
    TelSchaltuhrA_Senden(run.link, run.Daten.TimerTableA,
                         Naechster_Teil(run.link.Lauf.Chain.TimerPart, LastTimerPartA));
}

void Schritt_Schaltuhr_B(Programmierlauf& run) {
    TelSchaltuhrB_Senden(run.link, run.Daten.TimerTableB,
                         Naechster_Teil(run.link.Lauf.Chain.TimerPart, LastTimerPartB));
}

void Schritt_EinzelFeiertage(Programmierlauf& run) {
    TelEinzelFeiertage_Senden(run.link, run.Daten.HolidayTableA,
                              Naechster_Teil(run.link.Lauf.Chain.HolidayPart, LastHolidayPart));
}

void Schritt_PermFeiertage(Programmierlauf& run) {
    TelPermFeiertage_Senden(run.link, run.Daten.HolidayTableB,
                            Naechster_Teil(run.link.Lauf.Chain.HolidayPart, LastHolidayPart));
}

void Schritt_Daten_Schluss(Programmierlauf& run) {
    TelDatenEnde_Senden(run.link);
    if (run.link.Lauf.Chain.TwoPassFlag != 0) {
        run.Timer6.Start(500);
    } else if (run.Ansicht.Status) {
        run.Ansicht.Status(Line::Completing);
    }
}

void Tick_Timer7(Programmierlauf& run) {
    RunState& lauf = run.link.Lauf;
    run.Timer7.Stop();
    if (lauf.Chain.AnswerSeen || ++lauf.Chain.AnswerTicks > PollingTries) {
        lauf.Chain.AnswerSeen = false;
        lauf.Chain.AnswerTicks = 0;
        if (lauf.Chain.AbbruchWunsch != 0) {
            Abbruch_Ausfuehren(run.link);
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
