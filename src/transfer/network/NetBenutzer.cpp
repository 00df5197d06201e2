#include "NetSchritte.h"

#include <algorithm>

namespace qvm {
namespace {

std::uint8_t Timernummer(const RunState& lauf, const ProgSlot& slot) {
    return lauf.Values.TimerMode == Timer_A_B ? Timer_Auswahl(lauf.Values.TimerMode, slot) : std::uint8_t{0};
}

void Masken(Link& link, const NetzFeld& first, const ProgSlot& slot, int base) {
    // Third mask first.
    for (std::size_t n = 0; n < slot.TimerBits.size(); ++n) {
        link.TxBuffer[static_cast<std::size_t>(base + first.Offset) + n] =
            slot.TimerBits[slot.TimerBits.size() - 1 - n];
    }
}

void Fingerbenutzer(Link& link, const ProgSlot& slot, int base) {
    namespace F = NetzFingerBenutzer;
    Net_Feld(link, F::Art, F::Art.Detail, base);
    Net_Feld(link, F::UserName, slot.Name, base);
    Net_Feld(link, F::Number, slot.FingerNumber, base);
    Net_Feld(link, F::Timer, Timernummer(link.Lauf, slot), base);
    Masken(link, F::TimerBits3, slot, base);
    Net_Feld(link, F::Function, Wertigkeit(slot.Funktion), base);
    Net_Feld(link, F::Premium, slot.PrFlag, base);
    const std::span<const std::uint8_t> bytes = slot.Template;
    Net_Feld(link, F::Template, bytes.subspan(std::min<std::size_t>(bytes.size(), F::FirstTemplateByte)), base);
}

void Schluessel(Link& link, const ProgSlot& slot, int base) {
    namespace C = NetzCodeBenutzer;
    constexpr std::uint8_t NoKey = 1, PlainKey = 2, LongKey = 3;
    const KeyForm key = Schluessel_Zerlegen(slot.TransponderA);
    const bool isLong = key.Kind == KeyForm::Form::Long;
    if (key.Kind == KeyForm::Form::None) {
        Net_Feld(link, C::Art, NoKey, base);
        return;
    }
    Net_Feld(link, C::Art, isLong ? LongKey : PlainKey, base);
    if (isLong) {
        Net_Feld(link, C::LongGroup, key.GroupDigit, base);
    }
    Net_Feld(link, isLong ? C::LongId : C::PlainId, key.Values, base);
    Net_Feld(link, isLong ? C::LongData : C::PlainData, Dezimalwerte(slot.TransponderB, C::PlainData.Width), base);
}

void Codebenutzer(Link& link, const ProgSlot& slot, int base) {
    namespace C = NetzCodeBenutzer;
    Net_Feld(link, C::UserName, slot.Name, base);
    Net_Feld(link, C::Code, Code_Packen(slot.CodeDigits), base);
    Net_Feld(link, C::Timer, Timernummer(link.Lauf, slot), base);
    Masken(link, C::TimerBits3, slot, base);
    Net_Feld(link, C::Function, Wertigkeit(slot.Funktion), base);
    Schluessel(link, slot, base);
}

} // namespace

void Net_Benutzer(Link& link, const ProgSlot& slot, int base) {
    if (!slot.Template.empty() && slot.CodeDigits == "EEEEEE") {
        Fingerbenutzer(link, slot, base);
    } else {
        Codebenutzer(link, slot, base);
    }
}

} // namespace qvm
