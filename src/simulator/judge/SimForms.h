#pragma once

#include <cstdint>
#include <span>

/// The telegrams that the devices take, written down from the device's point of view: which code comes with which
/// length, and what each byte may hold.
namespace qvm {

enum class Check : std::uint8_t {
    Any,
    Exactly,     ///< every byte is A
    Between,     ///< every byte is A to B
    Text,        ///< begins with a character; 0x00 or 0x20 and up
    AdminCode,   ///< nibbles 1 to 9 and A
    UserCode,    ///< the same, and E from the end of the code on
    Weighting,   ///< one of the six weightings
    Level,       ///< one of the five reader levels
    LockMode,    ///< 0x0A or 0x14
    ReaderPair,  ///< 3, 1 or 0, 0
    NotZero,     ///< every byte 1 to 255
    Date,        ///< day, month, two-digit year
    Time,        ///< hour, minute, second
    TimerRows,   ///< day selector 0 to 10 and two times of day, five bytes a row; the rows from A on are zero
    HolidayRows, ///< two dates, six bytes a row; none behind an empty one
    YearlyRows,  ///< two dates of six bytes a row, years as the lock's class wants them
    KeyWish,     ///< 0, 1 or 0x64
    Probe,       ///< 0xAA, 0xBB, 0xCC, 0xDD, 0xEE
};

/// Bytes of a telegram, first and last index included.
struct FormPart {
    const char* Name;
    int First;
    int Last;
    Check How = Check::Any;
    std::uint8_t A = 0;
    std::uint8_t B = 0;
};

struct Form {
    const char* Name;
    std::uint8_t Code;
    std::uint8_t Length; ///< index of the last byte under the checksum
    bool Raw;            ///< to the adapter itself: no header
    std::span<const FormPart> Parts;
};

/// All forms. A code can have several; those with a part number have one a part.
std::span<const Form> Forms();

/// Code of the telegram that searches the units of a channel.
inline constexpr std::uint8_t SearchCode = 0x4B;

/// First index behind what every telegram of this kind begins with: 3 (raw) or 14.
constexpr int FirstPayload(const Form& form) {
    return form.Raw ? 3 : 14;
}

struct FormChoice {
    const Form* Found = nullptr; ///< the form that fits code, length and part number
    bool CodeKnown = false;
    bool LengthKnown = false; ///< for this code
};
/// `frame` runs from the start byte to the checksum.
FormChoice FindForm(std::span<const std::uint8_t> frame);

} // namespace qvm
