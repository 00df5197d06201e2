#include "Dataset.h"
#include "Text.h"
#include "Zeitgruppen.h"

#include <algorithm>

namespace qvm {
namespace {

constexpr std::string_view LongMark = "-ID#";
constexpr std::size_t LongMarkAt = 3; // 1-based, behind "#" and the group digit
constexpr std::size_t LongValuesAt = 7;
constexpr std::size_t PlainValues = 4;

/// A decimal byte with blanks around it; 0 when it is none.
std::uint8_t Dezimalbyte(std::string_view piece) {
    // A template has five hundred of these, with one blank each: taken here they cost half of a general trim.
    while (piece.ends_with(' ')) {
        piece.remove_suffix(1);
    }
    while (piece.starts_with(' ')) {
        piece.remove_prefix(1);
    }
    unsigned value = 0;
    for (const char c : piece) {
        if (c < '0' || c > '9') {
            return 0;
        }
        value = value * 10 + static_cast<unsigned>(c - '0');
        if (value > 0xFF) {
            return 0;
        }
    }
    return static_cast<std::uint8_t>(value);
}

/// The text behind "-ID#", wherever a group number of more than one digit has moved it.
std::string_view Lange_Werte(std::string_view keyId) {
    const std::size_t mark = keyId.find(LongMark);
    return mark == std::string_view::npos ? Mid(keyId, LongValuesAt) : keyId.substr(mark + LongMark.size());
}

void Uebernehmen(KeyForm& form, std::string_view text, std::size_t count) {
    const std::vector<std::uint8_t> values = Dezimalwerte(text, count);
    std::copy(values.begin(), values.end(), form.Values.begin());
}

} // namespace

std::vector<std::uint8_t> Dezimalwerte(std::string_view text, std::size_t count) {
    std::vector<std::uint8_t> values(count, 0);
    for (std::size_t n = 0; n < count && !text.empty(); ++n) {
        const std::size_t colon = std::min(text.find(':'), text.size());
        values[n] = Dezimalbyte(text.substr(0, colon));
        text.remove_prefix(std::min(colon + 1, text.size()));
    }
    return values;
}

int Template_Laenge(std::string_view templateText) {
    const std::vector<std::uint8_t> length = Dezimalwerte(templateText, 2);
    return length[0] + length[1] * 256;
}

KeyForm Schluessel_Zerlegen(std::string_view keyId) {
    KeyForm form;
    keyId = RTrim(keyId);
    if (keyId.empty()) {
        return form;
    }
    if (keyId.front() != '#' && Mid(keyId, LongMarkAt, LongMark.size()) != LongMark) {
        form.Kind = KeyForm::Form::Plain;
        Uebernehmen(form, keyId, PlainValues);
        return form;
    }
    form.Kind = KeyForm::Form::Long;
    form.GroupDigit = Dezimalbyte(Mid(keyId, 2, 1));
    Uebernehmen(form, Lange_Werte(keyId), form.Values.size());
    return form;
}

std::uint8_t Timer_Auswahl(const std::string& timerMode, const ProgSlot& slot) {
    if (timerMode == TimerPB_UT) {
        return slot.TimerBits[0];
    }
    if (timerMode != Timer_A_B) {
        return 0;
    }
    if (slot.TimerName == TimerA_PbId) {
        return 1;
    }
    return slot.TimerName == TimerB_PbId ? 2 : 0;
}

} // namespace qvm
