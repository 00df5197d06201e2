#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace qvm {

/// The parts behind one another, in one piece.
inline std::string Zusammen(std::initializer_list<std::string_view> parts) {
    std::size_t size = 0;
    for (const std::string_view part : parts) {
        size += part.size();
    }
    std::string text;
    text.reserve(size);
    for (const std::string_view part : parts) {
        text.append(part);
    }
    return text;
}

} // namespace qvm
