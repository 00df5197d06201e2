#include "Historie.h"
#include "NetSchritte.h"

#include <algorithm>

namespace qvm {
namespace {

/// Behind the payload stand the checksum's place and the closing byte.
constexpr std::size_t BehindPayload = 2;

void Verloren(RunState& lauf, HistoryLoss why) {
    if (lauf.Chain.HistoryLost == HistoryLoss::None) {
        lauf.Chain.HistoryLost = why;
    }
}

/// The block goes on where the one before it ended. With which number an adapter begins is not known. No number is 0,
/// which behind the start byte would be taken for a stuffed byte: 1 follows 255.
bool Folgt(const Netzlauf& run, std::uint8_t number) {
    return run.HistoryBlocks == 0 || number == run.HistoryBlock % 0xFF + 1;
}

/// Whether what is left behind the last whole record is the beginning of one more. Bytes of one value fill a block up.
/// Whether a checksum stands behind a last group that is not full is not known, so that the last byte may be any.
bool Angefangener_Satz(std::span<const std::uint8_t> rest) {
    return rest.size() > 1 &&
           std::any_of(rest.begin(), rest.end() - 1, [&rest](std::uint8_t byte) { return byte != rest.front(); });
}

} // namespace

bool Net_Historie_Anfordern(Netzlauf& run, std::uint8_t code) {
    namespace H = NetzHistorie;
    Link& link = run.link;
    run.Phase = NetPhase::History;
    Net_Frist_Setzen(run); // for all blocks together
    Net_Kopf(run, run.HistoryBlock, 1, H::LengthWord, code, NetzClearShort);
    Net_Festes(link, H::Next);
    Net_Feld(link, H::AdminCode, link.Lauf.Order.AdminCode);
    Net_Feld(link, H::Sum, Bereich_Pruefsumme_Tx(link, H::Sum.Offset - NetzPayload, NetzPayload));
    return Net_Telegramm_Senden(run, H::LengthWord, true, 8000, 1);
}

void Net_Historie_Block(Netzlauf& run, std::span<const std::uint8_t> block, int& counter) {
    RunState& lauf = run.link.Lauf;
    if (counter == 1) {
        counter = 2;
        lauf.Chain.HistoryFileOpen = 0;
        run.Carry.clear();
    }
    for (std::size_t n = 0; n < block.size(); ++n) {
        if (n % NetzGroupStep != NetzGroup) {
            run.Carry.push_back(block[n]);
        }
    }
    const std::string firstLine = run.LockName + "  /  SNA : " + run.SerialText;
    std::size_t at = 0;
    for (; run.Carry.size() - at >= HistoryRecordLength; at += HistoryRecordLength) {
        const std::span<const std::uint8_t> bytes = run.Carry;
        const HistoryRecord record =
            Historie_Zerlegen(run.kern.Welt, bytes.subspan(at).first<std::size_t{HistoryRecordLength}>());
        if (++lauf.Chain.HistoryRecords > MostHistoryRecords) {
            Verloren(lauf, HistoryLoss::Endless);
            break;
        }
        if (!Historie_Schreiben(run.link, record, run.LockName, firstLine)) {
            Verloren(lauf, HistoryLoss::Unwritten);
        }
    }
    run.Carry.erase(run.Carry.begin(), run.Carry.begin() + static_cast<std::ptrdiff_t>(at));
}

void Historienblock_Ablegen(Netzlauf& run, std::span<const std::uint8_t> frame, bool last) {
    RunState& lauf = run.link.Lauf;
    if (frame.size() < NetzPayload + BehindPayload || !Folgt(run, frame[NetzKopf::Block.Offset])) {
        Verloren(lauf, HistoryLoss::Broken);
        return;
    }
    // Blocks without an end are a history without end, too, when there is nothing in them.
    if (++run.HistoryBlocks > MostHistoryRecords) {
        Verloren(lauf, HistoryLoss::Endless);
        return;
    }
    Net_Historie_Block(run, frame.subspan(NetzPayload, frame.size() - NetzPayload - BehindPayload), run.HistoryCounter);
    run.LastBlock.assign(frame.begin(), frame.end());
    run.HistoryBlock = frame[NetzKopf::Block.Offset];
    if (last && Angefangener_Satz(run.Carry)) {
        Verloren(lauf, HistoryLoss::Broken);
    }
}

} // namespace qvm
