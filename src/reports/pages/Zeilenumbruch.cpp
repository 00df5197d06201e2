#include "Seiten.h"

#include <algorithm>

namespace qvm {
namespace {

/// Takes from `rest` what fits on a line, at least one character.
std::string Zeile_Nehmen(std::string_view& rest, Milli width, int size, bool bold) {
    Milli used = 0;
    std::size_t fits = 0;
    std::size_t blank = std::string_view::npos; // the last one within the line, or just behind it
    while (fits < rest.size()) {
        used += Zeichenbreite(static_cast<unsigned char>(rest[fits]), bold) * size;
        if (rest[fits] == ' ') {
            blank = fits;
        }
        if (used > width && fits > 0) {
            break;
        }
        ++fits;
    }
    const bool whole = fits == rest.size();
    const bool atBlank = !whole && blank != std::string_view::npos && blank > 0;
    const std::size_t length = atBlank ? blank : fits;
    std::string line(rest.substr(0, length));
    std::replace(line.begin(), line.end(), FastBlank, ' ');
    rest.remove_prefix(length);
    while (!rest.empty() && rest.front() == ' ') {
        rest.remove_prefix(1);
    }
    return line;
}

} // namespace

std::vector<std::string> Text_Umbrechen(std::string_view text, Milli width, int size, bool bold) {
    const std::string drawn = Drucktext(text);
    std::string_view rest = drawn;
    std::vector<std::string> lines;
    do {
        lines.push_back(Zeile_Nehmen(rest, width, size, bold));
    } while (!rest.empty());
    return lines;
}

} // namespace qvm
