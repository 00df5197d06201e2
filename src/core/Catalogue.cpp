#include "Catalogue.h"

#include "Kern.h"
#include "Text.h"
#include "Zeilen.h"

#include <algorithm>

namespace qvm {

namespace {

constexpr std::array<int, 11> TagZeilen{
    Line::Off,      Line::Monday, Line::Tuesday,        Line::Wednesday,        Line::Thursday,      Line::Friday,
    Line::Saturday, Line::Sunday, Line::MondayToFriday, Line::SaturdayToSunday, Line::MondayToSunday};
constexpr std::array<int, 2> FeiertagsZeilen{Line::SingleHolidays, Line::PermanentHolidays};

/// The name becomes part of a path: it must not lead elsewhere.
bool Sprachname_Gueltig(std::string_view name) {
    return !name.empty() && std::none_of(name.begin(), name.end(), [](char c) {
        return c == '/' || c == '\\' || c == ':' || static_cast<unsigned char>(c) < 0x20;
    });
}

/// A label whose line is empty keeps its default: eleven equal day texts would all be saved as the same day.
template <std::size_t N>
void Beschriften(std::array<std::string, N>& labels, const std::array<int, N>& lines, const Sprachkatalog& katalog) {
    for (std::size_t n = 0; n < N; ++n) {
        const std::string& text = katalog.Zeile(lines[n]);
        if (!text.empty()) {
            labels[n] = text;
        }
    }
}

} // namespace

const std::string& Sprachkatalog::Zeile(int n) const {
    return n < 1 || n >= Zeilen ? LanguageText[0] : LanguageText[static_cast<std::size_t>(n)];
}

void Sprache_Defaults(Sprachkatalog& katalog) {
    const Sprachkatalog defaults;
    katalog.TagTexte = defaults.TagTexte;
    katalog.FeiertagsTexte = defaults.FeiertagsTexte;
}

std::optional<std::vector<std::string>> Sprachdatei_Lesen(const Kern& kern, std::string_view language) {
    const std::string name(Trim(language));
    std::string bytes;
    if (!Sprachname_Gueltig(name) ||
        kern.Welt.Files.ReadAll(kern.Beigabe("QVM_" + name + ".DAT"), bytes) != ReadStatus::Ok) {
        return std::nullopt;
    }
    return Zeilen_Lesen(bytes);
}

SprachdateiStatus Sprachdatei_Laden(Kern& kern) {
    const auto lines = Sprachdatei_Lesen(kern, kern.Config.Sprache);
    if (!lines) {
        return SprachdateiStatus::Fehlt;
    }
    Sprachkatalog& katalog = kern.Sprache;
    const std::size_t used = std::min<std::size_t>(lines->size(), Sprachkatalog::Zeilen - 1);
    katalog.LanguageText.fill({});
    std::copy_n(lines->begin(), used, katalog.LanguageText.begin() + 1);

    Sprache_Defaults(katalog);
    Beschriften(katalog.TagTexte, TagZeilen, katalog);
    Beschriften(katalog.FeiertagsTexte, FeiertagsZeilen, katalog);
    return used < lines->size() ? SprachdateiStatus::ZuLang : SprachdateiStatus::Geladen;
}

} // namespace qvm
