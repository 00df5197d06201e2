#include "Historienband.h"

#include "Text.h"
#include "TextSlots.h"

#include <algorithm>
#include <array>
#include <utility>

namespace qvm {
namespace {

/// The catalogue lines of the events, with what they do.
constexpr std::array<std::pair<int, BandMark>, 3> BandLines{
    {{16, BandMark::Turns}, {17, BandMark::OneRow}, {20, BandMark::OneRow}}};

} // namespace

Bandtexte::Bandtexte(const Kern& kern) {
    for (const auto& [line, mark] : BandLines) {
        Aufnehmen(kern.Zeile(line), mark);
    }
    for (const std::string_view language : SprachNamen) {
        const auto lines = Sprachdatei_Lesen(kern, language);
        for (const auto& [line, mark] : BandLines) {
            const auto index = static_cast<std::size_t>(line) - 1;
            if (lines && index < lines->size()) {
                Aufnehmen((*lines)[index], mark);
            }
        }
    }
}

/// Without words in use every line is empty: an empty text is no event.
void Bandtexte::Aufnehmen(const std::string& text, BandMark mark) {
    if (!text.empty()) {
        entries_.push_back({text, mark});
    }
}

BandMark Bandtexte::Marke(const HistoryLine& line) const {
    if (Historie_Zeilenart(line) != HistoryLineKind::Event) {
        return BandMark::None;
    }
    const std::string_view text = RTrim(line.Fields.back());
    const auto found =
        std::find_if(entries_.begin(), entries_.end(), [text](const Eintrag& entry) { return entry.Text == text; });
    return found == entries_.end() ? BandMark::None : found->Mark;
}

} // namespace qvm
