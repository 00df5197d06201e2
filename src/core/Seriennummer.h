#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Serial numbers of locks, units and adapters: four bytes, shown as four hexadecimal pairs joined by points.
namespace qvm {

/// The four bytes of a serial number, the highest first. They are also what a telegram addresses the device by.
using Address = std::array<std::uint8_t, 4>;

/// The bytes as one number. What it says of the device stands in Modelle.h.
constexpr std::uint32_t Serie_Zahl(const Address& bytes) {
    std::uint32_t number = 0;
    for (const std::uint8_t byte : bytes) {
        number = number << 8U | byte;
    }
    return number;
}

/// Takes a serial's text apart: four parts joined by points, each hexadecimal digits of a value up to FF. Blanks around
/// the text and around a part do not count, small letters and single digits are taken. Nothing for any other text.
std::optional<Address> Serie_Zerlegen(std::string_view text);

/// The text as it is shown, "0A.1B.2C.3D".
std::string Serie_Text(const Address& bytes);

} // namespace qvm
