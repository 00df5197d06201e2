#include "Seriennummer.h"

#include "Text.h"

#include <algorithm>
#include <cstddef>

namespace qvm {

std::optional<Address> Serie_Zerlegen(std::string_view text) {
    Address bytes{};
    std::string_view rest = Trim(text);
    for (std::size_t n = 0; n < bytes.size(); ++n) {
        const bool last = n + 1 == bytes.size();
        const std::size_t point = last ? rest.size() : rest.find('.');
        if (point == std::string_view::npos) {
            return std::nullopt;
        }
        const std::int64_t value = HexWert(Trim(rest.substr(0, point)));
        if (value < 0 || value > 0xFF) {
            return std::nullopt;
        }
        bytes[n] = static_cast<std::uint8_t>(value);
        rest.remove_prefix(std::min(point + 1, rest.size()));
    }
    return bytes;
}

std::string Serie_Text(const Address& bytes) {
    std::string text;
    for (const std::uint8_t byte : bytes) {
        text += (text.empty() ? "" : ".") + HexText(byte, 2);
    }
    return text;
}

} // namespace qvm
