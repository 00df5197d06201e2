#pragma once

#include "Kern.h"

#include <string>
#include <string_view>

namespace qvm {

/// Catalogue line `line`, or the word of the window's design where the catalogue has none.
inline std::string Wort(const Kern& kern, int line, std::string_view design) {
    const std::string& text = kern.Zeile(line);
    return text.empty() ? std::string(design) : text;
}

/// Lines of the words on keys.
namespace Tastenwort {
inline constexpr int Abbrechen = 83, OK = 84;
}

/// Own lines of the main window, the about box and the language window.
namespace EigeneZeile {
inline constexpr int KeinAdapter = 285, NichtGeoeffnet = 286, NichtGespeichert = 287, DateiFehlt = 288;
}

} // namespace qvm
