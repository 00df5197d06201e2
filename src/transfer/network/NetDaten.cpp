#include "NetSchritte.h"

#include <algorithm>

namespace qvm {
namespace {

constexpr int MostBlocks = 0xFF;
constexpr std::size_t HolidaysSent = 20;

/// Records of `count` users from `first` on, behind `before` bytes of payload. Gives the bytes of the payload.
int Benutzer(Netzlauf& run, int first, int count, int before) {
    const std::span<const ProgSlot> slots = run.Daten.Slots;
    const auto from = std::min(static_cast<std::size_t>(first), slots.size());
    int bytes = before;
    for (const ProgSlot& slot : slots.subspan(from, std::min(static_cast<std::size_t>(count), slots.size() - from))) {
        Net_Benutzer(run.link, slot, Gruppen_Index(bytes));
        bytes += NetzRecord;
    }
    return bytes;
}

void Werte(Netzlauf& run) {
    namespace D = NetzDaten;
    Link& link = run.link;
    const RunState& lauf = link.Lauf;
    const Dataset& daten = run.Daten;
    Net_Feld(link, D::Code1, lauf.Order.AdminCode);
    Net_Feld(link, D::Code2, lauf.Order.AdminCode);
    Net_Feld(link, D::Channel, static_cast<unsigned>(run.kern.Config.Funkkanal() - 1));
    Net_Feld(link, D::Mode, lauf.Values.LockMode);
    Net_Feld(link, D::CalendarFlag, lauf.Values.FlagCalendar);
    Net_Feld(link, D::TimerFlag, lauf.Values.FlagLockTimer);
    Net_Feld(link, D::Priority, lauf.Values.PriorityCode);
    if (daten.SignalFlag == "1") {
        Net_Feld(link, D::Pair1, 3);
        Net_Feld(link, D::Pair2, 1);
    }
    if (daten.UnitMode == "3") {
        Net_Feld(link, D::AlwaysOn, daten.AlwaysOn == "1" ? 1 : 0);
        Net_Feld(link, D::Seconds, static_cast<unsigned>(daten.ListenSeconds));
    }
    Net_Feld(link, D::Erase, lauf.Order.EraseOption);
}

template <class Table>
void Zeilen(Link& link, const NetzFeld& field, const Table& table, std::size_t rows) {
    auto at = link.TxBuffer.begin() + field.Offset;
    for (std::size_t n = 0; n < rows; ++n) {
        at = std::copy(table[n].begin(), table[n].end(), at);
    }
}

void Tabellen(Netzlauf& run) {
    const Dataset& daten = run.Daten;
    Zeilen(run.link, NetzDaten::TimerA, daten.TimerTableA, daten.TimerTableA.size());
    Zeilen(run.link, NetzDaten::TimerB, daten.TimerTableB, daten.TimerTableB.size());
    Zeilen(run.link, NetzDaten::HolidayA, daten.HolidayTableA, HolidaysSent);
    Zeilen(run.link, NetzDaten::HolidayB, daten.HolidayTableB, HolidaysSent);
}

int Bloecke(int count, int each) {
    return (count + each - 1) / each;
}

/// How many blocks the row has. False with too many.
bool Zaehlen(Netzlauf& run, int users) {
    Finger_Sammeln(run);
    run.DataBlocks = 1 + Bloecke(std::max(users - NetzFirstUsers, 0), NetzUsers);
    // The blocks that are really sent: a few lengths need one more than their bytes seem to.
    run.BlockCount = run.DataBlocks + Bloecke(run.TemplateBytes, NetzFingerBytes);
    return run.BlockCount <= MostBlocks;
}

/// Length word of a block with `payload` bytes; `more`: it is not the only one, or not the last.
int Laenge(int payload, bool more) {
    return more ? NetzFullLength : NetzPayload + payload + Bloecke(payload, NetzGroup);
}

bool Erster_Block(Netzlauf& run, int users) {
    constexpr int Before = NetzUserIndex - NetzPayload - (NetzUserIndex - NetzPayload) / NetzGroupStep;
    if (!Zaehlen(run, users)) {
        return false;
    }
    run.Phase = NetPhase::Data;
    run.BlockNumber = 1;
    const int sent = std::min(users, NetzFirstUsers);
    const int length = Laenge(Before + sent * NetzRecord, run.BlockCount > 1);
    Net_Kopf(run, run.BlockNumber, run.BlockCount, length, NetzCode::Data, NetzClearBlock);
    Net_Festes(run.link, NetzDaten::Layout);
    Net_Feld(run.link, NetzDaten::Users, static_cast<unsigned>(users));
    Werte(run);
    Tabellen(run);
    Gruppen_Summen(run.link, Benutzer(run, 0, sent, Before));
    return Net_Block_Senden(run, length);
}

bool Folgeblock(Netzlauf& run, int users) {
    if (run.BlockNumber < 1 || run.BlockNumber >= run.DataBlocks) {
        return false;
    }
    const int first = NetzFirstUsers + NetzUsers * (run.BlockNumber - 1);
    const int sent = std::clamp(users - first, 0, NetzUsers);
    ++run.BlockNumber;
    const int length = Laenge(sent * NetzRecord, run.BlockNumber < run.DataBlocks);
    Net_Kopf(run, run.BlockNumber, run.BlockCount, length, NetzCode::Data, NetzClearBlock);
    Gruppen_Summen(run.link, Benutzer(run, first, sent, 0));
    return Net_Block_Senden(run, length);
}

} // namespace

bool Net_Daten_Senden(Netzlauf& run, int mode, int users) {
    const int held = std::clamp(users, 0, static_cast<int>(run.Daten.Slots.size()));
    return mode == 0 ? Erster_Block(run, held) : Folgeblock(run, held);
}

} // namespace qvm
