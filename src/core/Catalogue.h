#pragma once

#include <Lines.h>
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

struct Kern;

/// The words of the program: 301 lines by number, 0 to 300, of which line 0 is never filled.
struct Sprachkatalog {
    static constexpr int Zeilen = 301;
    std::array<std::string, Zeilen> LanguageText;
    /// The eleven day selectors and the two holiday kinds; German until a language file is loaded.
    std::array<std::string, 11> TagTexte{
        "OFF",     "Montag",  "Dienstag",         "Mittwoch",          "Donnerstag",      "Freitag",
        "Samstag", "Sonntag", "Montag - Freitag", "Samstag - Sonntag", "Montag - Sonntag"};
    std::array<std::string, 2> FeiertagsTexte{"Einzelfeiertage", "Perm. Feiertage"};

    /// Line n, `Line::NotReachable` for one; empty for line 0 and outside.
    const std::string& Zeile(int n) const;
};

/// The German labels that stand before the language file is read.
void Sprache_Defaults(Sprachkatalog& katalog);

/// The lines of QVM_<language>.DAT (Kern::Beigabe), line n of the catalogue at index n - 1; there may be fewer of them,
/// or more. Nothing when the file is missing or cannot be read, or when the name would lead to another directory.
std::optional<std::vector<std::string>> Sprachdatei_Lesen(const Kern& kern, std::string_view language);

enum class SprachdateiStatus { Geladen, Fehlt, ZuLang };

/// Reads QVM_<Sprache>.DAT when it exists and fills all lines and the labels from it. Lines end in LF or CR LF;
/// those that the file lacks become empty. A label whose line is empty takes its default. Lines beyond number 300 are
/// dropped and reported as ZuLang. A file that is missing or cannot be read, or a language name that would lead to
/// another directory, changes nothing: at the start all lines are empty and the labels stand at their defaults.
SprachdateiStatus Sprachdatei_Laden(Kern& kern);

} // namespace qvm
