#include "Historienkette.h"

#include "Antwort_Verteilen.h"
#include "Laufbedingungen.h"
#include "SeriellesProtokoll.h"

#include <algorithm>
#include <array>

namespace qvm {
namespace {

/// Index of a history record's event byte, and the value that ends the reading.
constexpr int HistoryEventIndex = 35;
constexpr std::uint8_t HistoryEndMark = 0xFF;
constexpr std::uint8_t HistoryCode = 0x17;

/// The frame carries the serial of another lock. One without a serial is taken.
bool Fremdes_Schloss(const Link& l) {
    constexpr int serialIndex = 7;
    Address serial{};
    for (std::size_t n = 0; n < serial.size(); ++n) {
        serial[n] = l.RxByte(serialIndex + static_cast<int>(n));
    }
    return serial != Address{} && serial != l.Lauf.Order.LockAddress;
}

bool Historie_Lang_Genug(const Link& l) {
    return l.Rx.RxLength + 1 >= HistoryEventIndex;
}

/// Replies behind which a lock is erased or written to. No reading of events asks for one.
bool Programmiert(std::uint8_t code) {
    constexpr std::array codes{0x0A, 0x0B, 0x0D, 0x0E, 0x15, 0x19, 0x1B, 0x1F, 0x21, 0x23, 0x25, 0x27,
                               0x2F, 0x32, 0x33, 0x37, 0x3B, 0x3D, 0x40, 0x43, 0x48, 0x49, 0x4A};
    return std::find(codes.begin(), codes.end(), int{code}) != codes.end();
}

} // namespace

bool Historie_Gewuenscht(const Link& link) {
    return link.Lauf.Chain.HistoryOnly != 0 || link.Lauf.Chain.ReadHistoryFirst != 0;
}

bool Historie_Aussteht(const Link& link) {
    const RunState& lauf = link.Lauf;
    return lauf.Chain.HistoryOnly != 0 || (lauf.Chain.ReadHistoryFirst != 0 && !lauf.Chain.HistoryRead) ||
           lauf.Chain.HistoryLost != HistoryLoss::None;
}

bool Gefaehrdet_Ereignisse(const Link& l, std::uint8_t code) {
    const bool unit = l.Lauf.Chain.UnitModus != 0 || Unit_Sitzung(l);
    return l.Lauf.Chain.Phase == RunPhase::Open && !unit && Programmiert(code) && Historie_Aussteht(l);
}

bool Historie_Kein_Satz(const Link& l) {
    return Historie_Gewuenscht(l) && !l.Lauf.Chain.HistoryRead &&
           (!Historie_Lang_Genug(l) || l.TxBuffer[2] != HistoryCode || Fremdes_Schloss(l));
}
bool Historie_Satz(const Link& l) {
    return Historie_Lang_Genug(l) && l.RxByte(HistoryEventIndex) != HistoryEndMark && l.Lauf.Chain.HistoryStop == 0;
}
bool Historie_Satz_Zuviel(const Link& l) {
    return Historie_Satz(l) && l.Lauf.Chain.HistoryRecords >= MostHistoryRecords;
}
bool Historie_Ende_Des_Laufs(const Link& l) {
    return l.Lauf.Chain.HistoryOnly != 0 || l.Lauf.Chain.HistoryLost != HistoryLoss::None;
}

void Historie_Start(Link& l) {
    l.Lauf.Chain.HistoryStop = 0;
    l.Lauf.Chain.HistoryFileOpen = 0;
    l.Lauf.Chain.HistoryLost = HistoryLoss::None;
    l.Lauf.Chain.HistoryRead = false;
    l.Lauf.Chain.HistoryRecords = 0;
    l.Lauf.Chain.HistoryDateTold = false;
    Rufen(l.Hooks.Historie_Anzeigen);
    TelHistorie_Senden(l, 0);
}
void Historie_Weiter(Link& l) {
    ++l.Lauf.Chain.HistoryRecords;
    Rufen(l.Hooks.Historie_Eintrag);
    // A message of the entry lets events in: a cancel may have been honoured meanwhile.
    if (l.Lauf.Chain.Phase == RunPhase::Open) {
        TelHistorie_Senden(l, 2);
    }
}
void Historie_Verlieren(Link& l, HistoryLoss why) {
    // Behind the end of the reading a wrong reply costs no event any more.
    if (l.Lauf.Chain.HistoryLost == HistoryLoss::None && !l.Lauf.Chain.HistoryRead) {
        l.Lauf.Chain.HistoryLost = why;
    }
    Rufen(l.Hooks.Historie_Fertig);
    Noch_Einmal_Trennen(l);
}
void Historie_Beendet(Link& l) {
    l.Lauf.Chain.HistoryRead = true;
    Rufen(l.Hooks.Historie_Fertig);
    Noch_Einmal_Trennen(l);
}
void Historie_Vorbei(Link& l) {
    l.Lauf.Chain.HistoryRead = true;
    Rufen(l.Hooks.Historie_Fertig);
    // The hook puts the events on the disk. Without them there the lock is not erased.
    if (l.Lauf.Chain.HistoryLost == HistoryLoss::None) {
        TelPrioritaet_Senden(l);
    } else {
        Noch_Einmal_Trennen(l);
    }
}

} // namespace qvm
