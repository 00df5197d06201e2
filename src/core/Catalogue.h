#pragma once

#include <array>
#include <cstddef>
#include <string>

namespace qvm {

struct Kern;

/// The words of the program: 301 lines by number, 0 to 300, of which line 0 is never filled.
struct Sprachkatalog {
    static constexpr int Zeilen = 301;
    std::array<std::string, Zeilen> LanguageText;
    /// The eleven day selectors and the two holiday kinds; German until a language file is loaded.
    std::array<std::string, 11> TagTexte;
    std::array<std::string, 2> FeiertagsTexte;

    const std::string& Zeile(int n) const;
};

/// The German labels that stand before the language file is read.
void Sprache_Defaults(Sprachkatalog& katalog);

enum class SprachdateiStatus { Geladen, Fehlt, ZuLang };

/// Reads AppPath/QVM_<Sprache>.DAT when it exists and fills the labels from it. Lines end in LF or CR LF. A missing file
/// leaves every line empty and the labels as they are. Lines beyond number 300 are dropped and reported as ZuLang.
SprachdateiStatus Sprachdatei_Laden(Kern& kern);

} // namespace qvm
