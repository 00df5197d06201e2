#include "NetSchritte.h"

#include <algorithm>

namespace qvm {

void Finger_Sammeln(Netzlauf& run) {
    run.Finger.clear();
    for (const ProgSlot& slot : run.Daten.Slots) {
        if (!slot.Template.empty()) {
            run.Finger.push_back(static_cast<std::uint8_t>(slot.FingerNumber >> 8U));
            run.Finger.push_back(static_cast<std::uint8_t>(slot.FingerNumber & 0xFFU));
            run.Finger.push_back(slot.PrFlag);
            run.Finger.insert(run.Finger.end(), slot.Template.begin(), slot.Template.end());
        }
    }
    run.TemplateBytes = static_cast<int>(run.Finger.size());
}

bool Net_Fingerprint_Senden(Netzlauf& run) {
    const int whole = static_cast<int>(run.Finger.size());
    const int count = std::min(run.TemplateBytes, NetzFingerBytes);
    if (count <= 0 || run.TemplateBytes > whole) {
        return false;
    }
    run.Phase = NetPhase::Fingers;
    ++run.BlockNumber;
    const auto first = static_cast<std::size_t>(whole - run.TemplateBytes);
    Net_Kopf(run, run.BlockNumber, run.BlockCount, 0, NetzCode::Finger, NetzClearBlock);
    for (int n = 0; n < count; ++n) {
        run.link.TxBuffer[static_cast<std::size_t>(Gruppen_Index(n))] = run.Finger[first + static_cast<std::size_t>(n)];
    }
    const int length = Gruppen_Summen(run.link, count);
    Net_Feld(run.link, NetzKopf::Length, static_cast<unsigned>(length));
    run.TemplateBytes -= count;
    return Net_Block_Senden(run, length);
}

} // namespace qvm
