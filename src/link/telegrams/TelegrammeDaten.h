#pragma once

#include "TelegrammLayout.h"

#include <array>

/// Telegrams that carry the tables and the users of a lock.
namespace qvm {

namespace TelSchaltuhrA {
inline constexpr Field Rows{"rows", 14, 40, Kind::Rows, 5}, Part{"part", 54};
inline constexpr std::array Fields{Rows, Part};
inline constexpr Layout Telegram{"TelSchaltuhrA", 0x19, 0x36, Build::Kopf, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelSchaltuhrA

namespace TelSchaltuhrAKurz {
inline constexpr Field Rows{"rows", 14, 40, Kind::Rows, 5};
inline constexpr std::array Fields{Rows};
inline constexpr Layout Telegram{"TelSchaltuhrAKurz", 0x19, 0x35, Build::Kopf, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelSchaltuhrAKurz

namespace TelSchaltuhrB {
inline constexpr Field Rows{"rows", 14, 40, Kind::Rows, 5}, Part{"part", 54};
inline constexpr std::array Fields{Rows, Part};
inline constexpr Layout Telegram{"TelSchaltuhrB", 0x1B, 0x36, Build::Kopf, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelSchaltuhrB

namespace TelSchaltuhrBKurz {
inline constexpr Field Rows{"rows", 14, 40, Kind::Rows, 5};
inline constexpr std::array Fields{Rows};
inline constexpr Layout Telegram{"TelSchaltuhrBKurz", 0x1B, 0x35, Build::Kopf, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelSchaltuhrBKurz

namespace TelEinzelFeiertage {
inline constexpr Field Part{"part", 14}, Rows{"rows", 15, 42, Kind::Rows, 6};
inline constexpr std::array Fields{Part, Rows};
inline constexpr Layout Telegram{"TelEinzelFeiertage", 0x1F, 0x38, Build::Kopf, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelEinzelFeiertage

namespace TelPermFeiertage {
/// 41 bytes for seven rows of six: the last byte gives way to the checksum. It is an end year, a filler in permanent
/// days.
inline constexpr Field Part{"part", 14}, Rows{"rows", 15, 41, Kind::Rows, 6};
inline constexpr std::array Fields{Part, Rows};
inline constexpr Layout Telegram{"TelPermFeiertage",
                                 0x21,
                                 0x37,
                                 Build::Kopf,
                                 Fields,
                                 0,
                                 "The last byte of the seventh row gives way to the checksum."};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelPermFeiertage

namespace TelBenutzerBeginn {
inline constexpr Layout Telegram{"TelBenutzerBeginn", 0x0A, 0x0D, Build::Kopf, {}};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelBenutzerBeginn

namespace TelBenutzerName1 {
inline constexpr Field UserName{"user name", 14, 16, Kind::Text};
inline constexpr std::array Fields{UserName};
inline constexpr Layout Telegram{"TelBenutzerName1", 0x0B, 0x1D, Build::Kopf, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelBenutzerName1

namespace TelBenutzerName2 {
inline constexpr Field UserSlot{"user slot", 14, 2, Kind::Word}, UserName{"user name", 16, 16, Kind::Text};
inline constexpr std::array Fields{UserSlot, UserName};
inline constexpr Layout Telegram{"TelBenutzerName2", 0x0D, 0x1F, Build::Kopf, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelBenutzerName2

namespace TelBenutzerDaten {
inline constexpr Field UserSlot{"user slot", 14, 2, Kind::Word}, Code{"user code", 16, 5, Kind::UserCode};
inline constexpr Field TimerSelector{"timer selector", 21}, Weighting{"weighting", 22};
inline constexpr Field WithId{"identification follows", 23};
inline constexpr std::array Fields{UserSlot, Code, TimerSelector, Weighting, WithId};
inline constexpr Layout Telegram{"TelBenutzerDaten", 0x0E, 0x17, Build::Kopf, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelBenutzerDaten

/// The same with a transponder's identification behind it.
namespace TelBenutzerDatenLang {
using TelBenutzerDaten::Code;
using TelBenutzerDaten::TimerSelector;
using TelBenutzerDaten::UserSlot;
using TelBenutzerDaten::Weighting;
using TelBenutzerDaten::WithId;
inline constexpr Field Id{"identification", 24, 4, Kind::Secret}, IdData{"identification data", 28, 16, Kind::Secret};
inline constexpr std::array Fields{UserSlot, Code, TimerSelector, Weighting, WithId, Id, IdData};
inline constexpr Layout Telegram{"TelBenutzerDatenLang", 0x0E, 0x2B, Build::Kopf, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelBenutzerDatenLang

namespace TelBenutzerZeitgruppen {
inline constexpr Field UserSlot{"user slot", 14, 2, Kind::Word};
inline constexpr Field TimerBits3{"mask of slots 17 to 24", 16}, TimerBits2{"mask of slots 9 to 16", 17};
inline constexpr Field TimerBits1{"mask of slots 1 to 8", 18};
inline constexpr std::array Fields{UserSlot, TimerBits3, TimerBits2, TimerBits1};
inline constexpr Layout Telegram{"TelBenutzerZeitgruppen", 0x37, 0x12, Build::Kopf, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelBenutzerZeitgruppen

namespace TelBenutzerVorlage {
inline constexpr Field Number{"finger number", 14, 2, Kind::Word}, UserName{"user name", 16, 16, Kind::Text};
/// The slice has 29 bytes; its last one gives way to the weighting.
inline constexpr Field Slice{"template bytes 70 to 97", 32, 28, Kind::Secret}, Weighting{"weighting", 60};
inline constexpr std::array Fields{Number, UserName, Slice, Weighting};
inline constexpr Layout Telegram{
    "TelBenutzerVorlage", 0x40, 0x3C, Build::Kopf, Fields, 0, "Template byte 98 gives way to the weighting."};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelBenutzerVorlage

namespace TelIdDaten1 {
inline constexpr Field Head{"mark", 14, 1, Kind::Fixed, 1}, Part{"part", 15, 1, Kind::Fixed, 1};
inline constexpr Field GroupDigit{"group digit", 16}, Data{"identification data", 17, 16, Kind::Secret};
inline constexpr std::array Fields{Head, Part, GroupDigit, Data};
inline constexpr Layout Telegram{"TelIdDaten1", 0x43, 0x20, Build::Kopf, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelIdDaten1

namespace TelIdDaten2 {
inline constexpr Field Head{"mark", 14, 1, Kind::Fixed, 1}, Part{"part", 15, 1, Kind::Fixed, 2};
inline constexpr Field GroupDigit{"group digit", 16}, UserSlot{"user slot", 17, 2, Kind::Word};
inline constexpr Field Id{"identification", 19, 11, Kind::Secret};
inline constexpr std::array Fields{Head, Part, GroupDigit, UserSlot, Id};
inline constexpr Layout Telegram{
    "TelIdDaten2", 0x43, 0x1D, Build::Kopf, Fields, 0, "Goes out with the device class 0xC3 at index 7."};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelIdDaten2

} // namespace qvm
