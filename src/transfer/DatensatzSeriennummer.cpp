#include "Dataset.h"
#include "Text.h"

#include <algorithm>

namespace qvm {

std::string Einstellung_AEsn(std::string_view serialText, Address& address) {
    Address bytes{};
    std::string_view rest = Trim(serialText);
    for (std::size_t n = 0; n < bytes.size(); ++n) {
        const bool last = n + 1 == bytes.size();
        const std::size_t point = last ? rest.size() : rest.find('.');
        if (point == std::string_view::npos) {
            return std::string(SerialError);
        }
        const std::int64_t value = HexWert(Trim(rest.substr(0, point)));
        if (value < 0 || value > 0xFF) {
            return std::string(SerialError);
        }
        bytes[n] = static_cast<std::uint8_t>(value);
        rest.remove_prefix(std::min(point + 1, rest.size()));
    }
    address = bytes;
    std::string text;
    for (const std::uint8_t byte : bytes) {
        text += HexText(byte, 2);
    }
    return text;
}

} // namespace qvm
