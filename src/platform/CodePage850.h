#pragma once

#include <array>
#include <string>
#include <string_view>

namespace qvm {

/// Code page 1252 to code page 850 and back, one byte a character both ways. A character that the other page does not
/// hold becomes "?". The control characters 0x00 to 0x1F and 0x7F stay.
class CodePage850 {
public:
    /// Asks the system's iconv for both tables. Without its code page 850 only ASCII is converted, the rest is "?".
    CodePage850();

    std::string From1252(std::string_view text) const;
    std::string To1252(std::string_view text) const;

private:
    std::array<char, 256> from1252_{};
    std::array<char, 256> to1252_{};
};

} // namespace qvm
