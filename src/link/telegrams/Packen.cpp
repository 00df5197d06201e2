#include "SeriellesProtokoll.h"

#include <cmath>

/// Texts and numbers to the bytes that telegrams carry.
namespace qvm {
namespace {

/// A digit's nibble. 0 travels as 0xA, so that a lock can tell it from no digit.
std::uint8_t Ziffer_Packen(char digit, std::uint8_t filler) {
    if (digit >= '1' && digit <= '9') {
        return static_cast<std::uint8_t>(digit - '0');
    }
    return digit == '0' || digit == 'A' ? std::uint8_t{0xA} : filler;
}

std::uint8_t Nibbles(unsigned high, unsigned low) {
    return static_cast<std::uint8_t>((high & 0xF) << 4 | (low & 0xF));
}

} // namespace

std::array<std::uint8_t, 16> SitzungsSchluessel_Neu(Platform& platform) {
    std::array<std::uint8_t, 16> key{};
    for (std::uint8_t& byte : key) {
        byte = static_cast<std::uint8_t>(std::nearbyint(platform.Random() * 254.0) + 1);
    }
    return key;
}

std::array<std::uint8_t, 5> Code_Packen(std::string_view digits, std::uint8_t filler) {
    const auto nibble = [&](std::size_t n) { return n < digits.size() ? Ziffer_Packen(digits[n], filler) : filler; };
    std::array<std::uint8_t, 5> packed{};
    for (std::size_t n = 0; n < packed.size(); ++n) {
        packed[n] = Nibbles(nibble(2 * n), nibble(2 * n + 1));
    }
    return packed;
}

AdminCodeBytes AdminCode_Packen(const std::array<std::uint8_t, 6>& digits) {
    const auto nibble = [&](std::size_t n) { return digits[n] == 0 ? std::uint8_t{0xA} : digits[n]; };
    AdminCodeBytes packed{};
    for (std::size_t n = 0; n < packed.size(); ++n) {
        packed[n] = Nibbles(nibble(2 * n), nibble(2 * n + 1));
    }
    return packed;
}

std::uint8_t Gruppenmaske(std::string_view eight) {
    unsigned mask = 0;
    for (std::size_t n = 0; n < 8; ++n) {
        mask = mask << 1 | (n < eight.size() && eight[n] == 'X' ? 1U : 0U);
    }
    return static_cast<std::uint8_t>(mask);
}

std::uint8_t Wertigkeit(std::string_view right) {
    struct Entry {
        std::string_view Right;
        std::uint8_t Value;
    };
    static constexpr std::array Table{Entry{"1", 0x0C}, Entry{"0", 0},       Entry{"1/2", 6},
                                      Entry{"1/3", 4},  Entry{"ADMI", 0x0D}, Entry{"FS+", 0x0A}};
    for (const Entry& entry : Table) {
        if (entry.Right == right) {
            return entry.Value;
        }
    }
    return 0x0C;
}

std::uint8_t Pegelbyte(std::string_view level) {
    struct Entry {
        std::string_view Level;
        std::uint8_t Value;
    };
    static constexpr std::array Table{Entry{"090", 0x5A}, Entry{"130", 0x82}, Entry{"170", 0xAA}, Entry{"210", 0xD2}};
    for (const Entry& entry : Table) {
        if (entry.Level == level) {
            return entry.Value;
        }
    }
    // Level 5 stands for everything that is no lower level, the units window shows it so.
    return 0xFF;
}

} // namespace qvm
