#include "Words.h"

#include "Text.h"
#include "TextSlots.h"

#include <WordTable.h>
#include <algorithm>

namespace qvm {

std::string_view Wort(Word which, std::string_view language) {
    const auto* const name = std::find(SprachNamen.begin(), SprachNamen.end(), Trim(language));
    const auto column = name == SprachNamen.end() ? 0 : static_cast<std::size_t>(name - SprachNamen.begin());
    return WordTable.at(static_cast<std::size_t>(which)).at(column);
}

std::string Wort(const Kern& kern, Word which) {
    return std::string(Wort(which, kern.Config.Sprache));
}

std::string Wort(const Kern& kern, Word which, std::initializer_list<std::string_view> places) {
    return Ausfuellen(Wort(which, kern.Config.Sprache), places);
}

std::string Fester_Text(const Kern& kern, Word which, std::string_view separator) {
    std::string text(Wort(which, SprachNamen.front()));
    if (const std::string_view translated = Wort(which, kern.Config.Sprache); translated != text) {
        text.append(separator).append(translated);
    }
    return text;
}

std::string Fenstertitel(std::string_view purpose) {
    return std::string(SystemTitle) + (purpose.empty() ? "" : " - ") + std::string(purpose);
}

std::string Ausfuellen(std::string_view pattern, std::initializer_list<std::string_view> places) {
    std::string text;
    while (!pattern.empty()) {
        const bool place = pattern.size() > 1 && pattern[0] == '%' && pattern[1] >= '1' && pattern[1] <= '9';
        if (place) {
            const auto number = static_cast<std::size_t>(pattern[1] - '1');
            text += number < places.size() ? places.begin()[number] : std::string_view();
        } else {
            text += pattern.front();
        }
        pattern.remove_prefix(place ? 2 : 1);
    }
    return text;
}

} // namespace qvm
