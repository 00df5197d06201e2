#include "FilePath.h"

#include "Text.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <memory>

namespace qvm {

namespace {

/// Bytes of the UTF-8 character that `text` begins with; 0 when it begins with none.
std::size_t CharacterSize(std::string_view text) {
    const auto byte = [&](std::size_t n) { return static_cast<unsigned char>(text[n]); };
    const unsigned lead = byte(0);
    const std::size_t size = lead < 0x80   ? 1
                             : lead < 0xC2 ? 0
                             : lead < 0xE0 ? 2
                             : lead < 0xF0 ? 3
                             : lead < 0xF5 ? 4
                                           : 0;
    if (size > text.size()) {
        return 0;
    }
    for (std::size_t n = 1; n < size; ++n) {
        if ((byte(n) & 0xC0) != 0x80) {
            return 0;
        }
    }
    return size;
}

} // namespace

std::optional<std::string> FilePath_Nativ(std::string_view path) {
    if (path.empty() || path.find('\0') != std::string_view::npos) {
        return std::nullopt;
    }
    std::string name;
    name.reserve(path.size());
    while (!path.empty()) {
        const std::size_t size = CharacterSize(path);
        name += size == 0 ? NachUtf8(path.substr(0, 1)) : std::string(path.substr(0, size));
        path.remove_prefix(std::max<std::size_t>(size, 1));
    }
    return name;
}

std::string FilePath_Ziel(const std::string& native) {
    const std::unique_ptr<char, void (*)(void*)> real(::realpath(native.c_str(), nullptr), &std::free);
    return real ? std::string(real.get()) : native;
}

} // namespace qvm
