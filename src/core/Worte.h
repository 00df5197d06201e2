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

} // namespace qvm
