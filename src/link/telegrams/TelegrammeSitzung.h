#pragma once

#include "TelegrammLayout.h"

#include <array>

/// Telegrams that open, keep and close a session with a lock or a unit, and those that set the device as a whole.
namespace qvm {

namespace TelUnitTrennen {
inline constexpr Layout Telegram{"TelUnitTrennen", 0x03, 0x0D, Build::Kopf, {}};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelUnitTrennen

namespace TelVerbinden {
inline constexpr Field AdminCode{"administrator code", 14, 3, Kind::AdminCode};
inline constexpr Field Filler{"filler", 17, 1, Kind::Fixed, 0xEE};
inline constexpr Field Channel{"radio channel", 18};
inline constexpr Field Mark1{"mark", 19, 1, Kind::Fixed, 0xAA};
inline constexpr Field Mark2{"mark", 20, 1, Kind::Fixed, 0x55};
inline constexpr std::array Fields{AdminCode, Filler, Channel, Mark1, Mark2};
inline constexpr Layout Telegram{"TelVerbinden", 0x04, 0x14, Build::Direct, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelVerbinden

/// The login to a unit.
namespace TelVerbindenKurz {
inline constexpr Field AdminCode{"administrator code", 14, 3, Kind::AdminCode};
inline constexpr Field Filler{"filler", 17, 1, Kind::Fixed, 0xEE};
inline constexpr Field Channel{"radio channel", 18};
inline constexpr std::array Fields{AdminCode, Filler, Channel};
inline constexpr Layout Telegram{"TelVerbindenKurz", 0x04, 0x12, Build::Direct, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelVerbindenKurz

namespace TelTrennen {
inline constexpr Layout Telegram{"TelTrennen", 0x05, 0x0D, Build::Kopf, {}};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelTrennen

namespace TelDatum {
inline constexpr Field Day{"day", 14}, Month{"month", 15}, Year{"year", 16};
inline constexpr std::array Fields{Day, Month, Year};
inline constexpr Layout Telegram{"TelDatum", 0x07, 0x10, Build::Kopf, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelDatum

namespace TelLebenszeichen {
inline constexpr Layout Telegram{"TelLebenszeichen", 0x08, 0x0D, Build::Kopf, {}};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelLebenszeichen

namespace TelUhrzeit {
inline constexpr Field Hour{"hour", 14}, Minute{"minute", 15}, Second{"second", 16};
inline constexpr std::array Fields{Hour, Minute, Second};
inline constexpr Layout Telegram{"TelUhrzeit", 0x09, 0x10, Build::Kopf, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelUhrzeit

namespace TelCodeAendern {
inline constexpr Field Head{"mark", 14, 2, Kind::Fixed, 0x33};
inline constexpr Field OldCode{"old code", 16, 3, Kind::AdminCode};
inline constexpr Field OldFiller{"filler", 19, 2, Kind::Fixed, 0xEE};
inline constexpr Field NewCode{"new code", 21, 3, Kind::AdminCode};
inline constexpr Field NewFiller{"filler", 24, 2, Kind::Fixed, 0xEE};
inline constexpr std::array Fields{Head, OldCode, OldFiller, NewCode, NewFiller};
inline constexpr Layout Telegram{"TelCodeAendern", 0x12, 0x19, Build::Direct, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelCodeAendern

namespace TelDatenEnde {
inline constexpr Layout Telegram{"TelDatenEnde", 0x15, 0x0D, Build::Kopf, {}};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelDatenEnde

namespace TelHistorie {
inline constexpr Field Which{"record", 14};
inline constexpr std::array Fields{Which};
inline constexpr Layout Telegram{
    "TelHistorie",
    0x17,
    0x0E,
    Build::Kopf2,
    Fields,
    0,
    "0 for the first record, 2 for the next. The second parameter gives way to the checksum."};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelHistorie

namespace TelSperrTimerFlag {
inline constexpr Field Flag{"lock timer flag", 14};
inline constexpr std::array Fields{Flag};
inline constexpr Layout Telegram{"TelSperrTimerFlag", 0x23, 0x0E, Build::Kopf, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelSperrTimerFlag

namespace TelKalenderFlag {
inline constexpr Field Flag{"calendar flag", 14};
inline constexpr std::array Fields{Flag};
inline constexpr Layout Telegram{"TelKalenderFlag", 0x25, 0x0E, Build::Kopf, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelKalenderFlag

namespace TelDatenStart {
inline constexpr Field Option{"erase option", 14};
inline constexpr std::array Fields{Option};
inline constexpr Layout Telegram{"TelDatenStart", 0x27, 0x0E, Build::Kopf, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelDatenStart

namespace TelKanalLesen {
inline constexpr Field Channel{"radio channel less 1", 14};
inline constexpr std::array Fields{Channel};
inline constexpr Layout Telegram{"TelKanalLesen", 0x28, 0x0E, Build::Kopf, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelKanalLesen

namespace TelKanalSetzen {
inline constexpr Field Channel{"radio channel less 1", 14};
inline constexpr std::array Fields{Channel};
inline constexpr Layout Telegram{"TelKanalSetzen", 0x29, 0x0E, Build::Kopf, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelKanalSetzen

namespace TelPrioritaet {
inline constexpr Field Priority{"priority", 14};
inline constexpr std::array Fields{Priority};
inline constexpr Layout Telegram{"TelPrioritaet", 0x2F, 0x0E, Build::Kopf, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelPrioritaet

namespace TelSchlossModus {
inline constexpr Field Mode{"lock mode", 14};
inline constexpr std::array Fields{Mode};
inline constexpr Layout Telegram{"TelSchlossModus", 0x32, 0x0E, Build::Kopf, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelSchlossModus

namespace TelZeitfenster {
inline constexpr Field First{"first option", 14}, Second{"second option", 15};
inline constexpr Field High{"seconds, high", 16}, Low{"seconds, low", 17};
inline constexpr Field Unused{"unused", 18, 1, Kind::Fixed, 0};
inline constexpr std::array Fields{First, Second, High, Low, Unused};
inline constexpr Layout Telegram{"TelZeitfenster",
                                 0x33,
                                 0x12,
                                 Build::Kopf,
                                 Fields,
                                 0,
                                 "16 is the listen time in seconds halved eight times, ties to even."};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelZeitfenster

namespace TelReaderEinstellung {
inline constexpr Field Head{"mark", 14, 1, Kind::Fixed, 1};
inline constexpr Field Level{"level", 15}, Pair1{"flag pair 1", 16}, Pair2{"flag pair 2", 17};
inline constexpr std::array Fields{Head, Level, Pair1, Pair2};
inline constexpr Layout Telegram{"TelReaderEinstellung",
                                 0x3B,
                                 0x11,
                                 Build::Kopf,
                                 Fields,
                                 0,
                                 "16, 17 are 3, 1 with the flag set and 0, 0 without it."};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelReaderEinstellung

} // namespace qvm
