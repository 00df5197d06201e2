#include "Zeilen.h"

namespace qvm {

std::vector<std::string> Zeilen_Lesen(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        lines.emplace_back(line);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return lines;
}

std::string Auf_Breite(std::string_view value, std::size_t width) {
    std::string out(value.substr(0, width));
    out.resize(width, ' ');
    return out;
}

} // namespace qvm
