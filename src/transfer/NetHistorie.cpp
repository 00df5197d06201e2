#include "Historie.h"
#include "NetSchritte.h"

#include <algorithm>

namespace qvm {

bool Net_Historie_Anfordern(Netzlauf& run, std::uint8_t code) {
    namespace H = NetzHistorie;
    Link& link = run.link;
    run.Phase = NetPhase::History;
    Netz_Frist_Setzen(run); // for all blocks together
    Net_Kopf(run, run.HistoryBlock, 1, H::LengthWord, code, NetzClearShort);
    Netz_Festes(link, H::Next);
    Netz_Feld(link, H::AdminCode, link.Lauf.AdminCode);
    Netz_Feld(link, H::Sum, Bereich_Pruefsumme_Tx(link, H::Sum.Offset - NetzPayload, NetzPayload));
    return Net_Telegramm_Senden(run, H::LengthWord, true, 8000, 1);
}

void Net_Historie_Block(Netzlauf& run, std::span<const std::uint8_t> block, int& counter) {
    RunState& lauf = run.link.Lauf;
    if (counter == 1) {
        counter = 2;
        lauf.HistoryFileOpen = 0;
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
        if (!Historie_Schreiben(run.link, record, run.LockName, firstLine)) {
            lauf.HistoryLost = true;
        }
    }
    run.Carry.erase(run.Carry.begin(), run.Carry.begin() + static_cast<std::ptrdiff_t>(at));
}

void Historienblock_Ablegen(Netzlauf& run, std::span<const std::uint8_t> frame) {
    // Behind the payload stand the checksum's place and the closing byte.
    constexpr std::size_t Behind = 2;
    const std::size_t end = frame.size() - std::min(frame.size(), Behind);
    const std::size_t first = std::min<std::size_t>(NetzPayload, end);
    Net_Historie_Block(run, frame.subspan(first, end - first), run.HistoryCounter);
    run.LastBlock.assign(frame.begin(), frame.end());
}

} // namespace qvm
