#include "Historienkette.h"

#include "Laufbedingungen.h"
#include "Laufschritte.h"
#include "RunProgress.h"

#include <algorithm>
#include <array>

namespace qvm {
namespace {

/// Index of a history record's event byte, and the value that ends the reading.
constexpr int HistoryEventIndex = 35;
constexpr std::uint8_t HistoryEndMark = 0xFF;
constexpr std::uint8_t HistoryCode = 0x17;

/// The frame carries the serial of another lock. One without a serial is taken.
bool Fremdes_Schloss(const Programmierlauf& run) {
    constexpr int serialIndex = 7;
    Address serial{};
    for (std::size_t n = 0; n < serial.size(); ++n) {
        serial[n] = run.link.RxByte(serialIndex + static_cast<int>(n));
    }
    return serial != Address{} && serial != run.link.Lauf.Order.LockAddress;
}

bool Historie_Lang_Genug(const Programmierlauf& run) {
    return run.link.Rx.RxLength + 1 >= HistoryEventIndex;
}

/// Replies behind which a lock is erased or written to. No reading of events asks for one.
bool Programmiert(std::uint8_t code) {
    constexpr std::array codes{0x0A, 0x0B, 0x0D, 0x0E, 0x15, 0x19, 0x1B, 0x1F, 0x21, 0x23, 0x25, 0x27,
                               0x2F, 0x32, 0x33, 0x37, 0x3B, 0x3D, 0x40, 0x43, 0x48, 0x49, 0x4A};
    return std::find(codes.begin(), codes.end(), int{code}) != codes.end();
}

/// The reading is over: what came goes to the disk.
void Lesen_Abschliessen(Programmierlauf& run) {
    const ChainState& chain = Kette(run);
    if (chain.HistoryRead && Historie_Sichern(run.link)) {
        Konto_Historie_Fertig(run.Konto);
    }
    Lauf_Tempo_Neu(run);
    const bool single = chain.HistoryOnly != 0 && run.link.Lauf.List.RunRows == 0;
    if (chain.HistoryOnly == 0 || single) {
        run.Ansicht.Status(single ? Line::Completing : 0);
    }
    // There is nothing left to cancel, but it is not the end yet: the session is still to be closed.
    if (single) {
        run.Ansicht.F9_Schliessen_Freigeben();
    }
}

/// The events of the lock are not all there: the session is closed, and nothing is erased.
void Verlieren(Programmierlauf& run, HistoryLoss why) {
    // Behind the end of the reading a wrong reply costs no event any more.
    if (Kette(run).HistoryLost == HistoryLoss::None && !Kette(run).HistoryRead) {
        Kette(run).HistoryLost = why;
    }
    Lesen_Abschliessen(run);
    Noch_Einmal_Trennen(run);
}

} // namespace

bool Historie_Gewuenscht(const Programmierlauf& run) {
    return Kette(run).HistoryOnly != 0 || Kette(run).ReadHistoryFirst != 0;
}

bool Historie_Aussteht(const Programmierlauf& run) {
    const ChainState& chain = Kette(run);
    return chain.HistoryOnly != 0 || (chain.ReadHistoryFirst != 0 && !chain.HistoryRead) ||
           chain.HistoryLost != HistoryLoss::None;
}

bool Gefaehrdet_Ereignisse(const Programmierlauf& run, std::uint8_t code) {
    const bool unit = Kette(run).UnitModus != 0 || Unit_Sitzung(run);
    return Kette(run).Phase == RunPhase::Open && !unit && Programmiert(code) && Historie_Aussteht(run);
}

bool Historie_Kein_Satz(const Programmierlauf& run) {
    return Historie_Gewuenscht(run) && !Kette(run).HistoryRead &&
           (!Historie_Lang_Genug(run) || run.link.TxBuffer[2] != HistoryCode || Fremdes_Schloss(run));
}
bool Historie_Satz(const Programmierlauf& run) {
    return Historie_Lang_Genug(run) && run.link.RxByte(HistoryEventIndex) != HistoryEndMark &&
           Kette(run).HistoryStop == 0;
}
bool Historie_Satz_Zuviel(const Programmierlauf& run) {
    return Historie_Satz(run) && Kette(run).HistoryRecords >= MostHistoryRecords;
}
bool Historie_Ende_Des_Laufs(const Programmierlauf& run) {
    return Kette(run).HistoryOnly != 0 || Kette(run).HistoryLost != HistoryLoss::None;
}

void Historie_Start(Programmierlauf& run) {
    Kette(run).HistoryStop = 0;
    Kette(run).HistoryFileOpen = 0;
    Kette(run).HistoryLost = HistoryLoss::None;
    Kette(run).HistoryRead = false;
    Kette(run).HistoryRecords = 0;
    Kette(run).HistoryDateTold = false;
    run.Ansicht.Historie_Beschriften();
    TelHistorie_Senden(run.link, 0);
}
void Historie_Weiter(Programmierlauf& run) {
    ++Kette(run).HistoryRecords;
    if (!Historie_Eintrag(run.link, run.link.Lauf.Order.LockName, run.Ansicht.Zustand, Lauf_Schloss(run))) {
        Kette(run).HistoryLost = HistoryLoss::Unwritten;
    }
    // A message of the entry lets events in: a cancel may have been honoured meanwhile.
    if (Kette(run).Phase == RunPhase::Open) {
        TelHistorie_Senden(run.link, 2);
    }
}
void Historie_Gebrochen(Programmierlauf& run) {
    Verlieren(run, HistoryLoss::Broken);
}
void Historie_Endlos(Programmierlauf& run) {
    Verlieren(run, HistoryLoss::Endless);
}
void Historie_Beendet(Programmierlauf& run) {
    Kette(run).HistoryRead = true;
    Lesen_Abschliessen(run);
    Noch_Einmal_Trennen(run);
}
void Historie_Vorbei(Programmierlauf& run) {
    Kette(run).HistoryRead = true;
    Lesen_Abschliessen(run);
    // Without its events on the disk the lock is not erased.
    if (Kette(run).HistoryLost == HistoryLoss::None) {
        TelPrioritaet_Senden(run.link);
    } else {
        Noch_Einmal_Trennen(run);
    }
}

} // namespace qvm
