#include "FilePath.h"

#include "Steuerzeichen.h"
#include "Text.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <memory>

namespace qvm {

std::optional<std::string> FilePath_Nativ(std::string_view path) {
    if (path.empty() || path.find('\0') != std::string_view::npos) {
        return std::nullopt;
    }
    std::string name;
    name.reserve(path.size());
    while (!path.empty()) {
        const std::size_t size = Utf8_Laenge(path);
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
