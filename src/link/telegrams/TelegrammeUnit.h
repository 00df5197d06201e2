#pragma once

#include "TelegrammLayout.h"

#include <array>

/// Telegrams to wireless units, to the enrolment and card devices, and to the adapter itself.
namespace qvm {

namespace TelUnitEinstellung {
inline constexpr Field Setting{"serial of the lock", 14, 4, Kind::Bytes};
inline constexpr std::array Fields{Setting};
inline constexpr Layout Telegram{"TelUnitEinstellung", 0x3D, 0x11, Build::Kopf, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelUnitEinstellung

namespace TelUnitSchluessel {
inline constexpr Field Key{"session key", 14, 16, Kind::Secret};
inline constexpr std::array Fields{Key};
inline constexpr Layout Telegram{"TelUnitSchluessel", 0x48, 0x1D, Build::Kopf, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelUnitSchluessel

namespace TelUnitOeffnen {
inline constexpr Field Setting{"serial of the lock", 14, 4, Kind::Bytes};
inline constexpr std::array Fields{Setting};
inline constexpr Layout Telegram{"TelUnitOeffnen", 0x49, 0x11, Build::Kopf, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelUnitOeffnen

namespace TelUnitBlock {
/// First index of the inner sum; its last is the one before it.
inline constexpr int SumStart = 13;
inline constexpr Field Head{"mark", 14, 1, Kind::Fixed, 1};
inline constexpr Field Rows{"count of rows", 15, 2, Kind::Word}, Row{"row", 17, 2, Kind::Word};
inline constexpr Field Piece{"piece", 19}, Type{"row type", 20}, Address{"row address", 21, 2, Kind::Word};
inline constexpr Field Data{"enciphered data", 23, 32, Kind::Secret};
inline constexpr Field Sum{"inner checksum", 55, 1, Kind::Secret};
inline constexpr std::array Fields{Head, Rows, Row, Piece, Type, Address, Data, Sum};
inline constexpr Layout Telegram{
    "TelUnitBlock",
    0x4A,
    0x37,
    Build::Direct,
    Fields,
    0,
    "Rows are counted from 1, pieces from 0. The sum at 55 is taken over 13 to 54 before the data are enciphered."};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelUnitBlock

namespace TelUnitSuche {
inline constexpr Layout Telegram{
    "TelUnitSuche", 0x4B, 0x0D, Build::Kopf, {}, 0, "Goes out with the address 0 at 3 to 6 and mode 1 at 8."};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelUnitSuche

namespace TelUnitVerbinden {
inline constexpr Field AdminCode{"administrator code", 14, 3, Kind::AdminCode};
inline constexpr Field Filler{"filler", 17, 2, Kind::Fixed, 0xEE};
inline constexpr Field Mark1{"mark", 19, 1, Kind::Fixed, 0xAA}, Mark2{"mark", 20, 1, Kind::Fixed, 0x55};
inline constexpr std::array Fields{AdminCode, Filler, Mark1, Mark2};
inline constexpr Layout Telegram{"TelUnitVerbinden", 0xFE, 0x14, Build::Direct, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelUnitVerbinden

namespace TelEKeyAktion {
inline constexpr Field Param1{"parameter 1", 14};
inline constexpr std::array Fields{Param1};
inline constexpr Layout Telegram{
    "TelEKeyAktion", 0x66, 0x0E, Build::Kopf2, Fields, 0, "The second parameter gives way to the checksum."};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelEKeyAktion

namespace TelEKeyLesen {
inline constexpr Field Param1{"radio channel", 14}, Param2{"mode", 15};
inline constexpr std::array Fields{Param1, Param2};
inline constexpr Layout Telegram{"TelEKeyLesen", 0x67, 0x0F, Build::Kopf2, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelEKeyLesen

/// As adapters before version 4 want it.
namespace TelEKeyLesenAlt {
inline constexpr Field Param1{"radio channel", 14};
inline constexpr std::array Fields{Param1};
inline constexpr Layout Telegram{"TelEKeyLesenAlt",
                                 0x67,
                                 0x0E,
                                 Build::Kopf2,
                                 Fields,
                                 0,
                                 "For adapters before version 4; without a second parameter."};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelEKeyLesenAlt

namespace TelFingerLoeschen {
inline constexpr Field Slot{"slot", 14};
inline constexpr std::array Fields{Slot};
inline constexpr Layout Telegram{
    "TelFingerLoeschen", 0x70, 0x0E, Build::Kopf2, Fields, 0, "The second parameter gives way to the checksum."};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelFingerLoeschen

namespace TelFingerAnlernen {
inline constexpr Layout Telegram{"TelFingerAnlernen", 0xA1, 0x0D, Build::Kopf2, {}, 0, "No parameter goes out."};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelFingerAnlernen

namespace TelFingerAbfrage {
inline constexpr Layout Telegram{"TelFingerAbfrage", 0xA3, 0x0D, Build::Kopf2, {}, 0, "No parameter goes out."};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelFingerAbfrage

/// First telegram of a guest card. The fields up to the rows are the card's head.
namespace TelKarteSchreiben {
inline constexpr Field Telegrams{"telegrams", 14}, Part{"part", 15, 1, Kind::Fixed, 0};
inline constexpr Field Entries{"entry count", 16}, MaskEntries{"entries under the mask", 17};
inline constexpr Field SlotMask{"slot mask", 18}, Mark{"mark", 19, 1, Kind::Fixed, 1};
inline constexpr Field CheckInDate{"check-in date", 20, 3, Kind::Bytes};
inline constexpr Field CheckInTime{"check-in time", 23, 2, Kind::Bytes};
inline constexpr Field CheckOutDate{"check-out date", 25, 3, Kind::Bytes};
inline constexpr Field CheckOutTime{"check-out time", 28, 2, Kind::Bytes};
inline constexpr Field RoomCode{"room code", 30, 2, Kind::Word};
inline constexpr Field TimeCodes{"time codes", 32, 8, Kind::Bytes};
inline constexpr Field Rows{"entries", 40, 20, Kind::Rows, 4}, Mode{"mode", 60};
inline constexpr std::array Fields{Telegrams,   Part,         Entries,      MaskEntries, SlotMask,  Mark, CheckInDate,
                                   CheckInTime, CheckOutDate, CheckOutTime, RoomCode,    TimeCodes, Rows, Mode};
inline constexpr Layout Telegram{"TelKarteSchreiben", 0x6F, 0x3C, Build::Direct, Fields, 0x28};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelKarteSchreiben

/// Second and third telegram of a guest card.
namespace TelKarteFolge {
inline constexpr Field Telegrams{"telegrams", 14}, Part{"part", 15};
inline constexpr Field Rows{"entries", 16, 44, Kind::Rows, 4}, Tail{"next entry", 60};
inline constexpr std::array Fields{Telegrams, Part, Rows, Tail};
inline constexpr Layout Telegram{
    "TelKarteFolge",
    0x6F,
    0x3C,
    Build::Direct,
    Fields,
    0x10,
    "The last byte is the first one of the entry behind; its others give way to the checksum."};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelKarteFolge

namespace TelKarteStart {
inline constexpr Field Head{"mark", 14, 1, Kind::Fixed, 1};
inline constexpr Field Mark1{"mark", 15, 1, Kind::Fixed, 0xAA}, Mark2{"mark", 16, 1, Kind::Fixed, 0x55};
inline constexpr Field Mark3{"mark", 17, 1, Kind::Fixed, 0xAA}, Mark4{"mark", 18, 1, Kind::Fixed, 0x55};
inline constexpr std::array Fields{Head, Mark1, Mark2, Mark3, Mark4};
inline constexpr Layout Telegram{"TelKarteStart", 0x72, 0x12, Build::Direct, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelKarteStart

namespace TelKarteLesen {
inline constexpr Field Block{"block", 14};
inline constexpr std::array Fields{Block, TelKarteStart::Mark1, TelKarteStart::Mark2, TelKarteStart::Mark3,
                                   TelKarteStart::Mark4};
inline constexpr Layout Telegram{"TelKarteLesen", 0x73, 0x12, Build::Direct, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelKarteLesen

namespace TelAdapterKennung {
inline constexpr Field Probe{"probe", 3, 5, Kind::Bytes}, Unused{"unused", 8, 7, Kind::Fixed, 0};
inline constexpr std::array Fields{Probe, Unused};
inline constexpr Layout Telegram{"TelAdapterKennung", 0x68, 0x0E, Build::Raw, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelAdapterKennung

namespace TelAdapterKanal {
inline constexpr Field Channel{"radio channel", 3}, Address{"address", 4, 4, Kind::Bytes};
inline constexpr Field Unused{"unused", 8, 7, Kind::Fixed, 0};
inline constexpr std::array Fields{Channel, Address, Unused};
inline constexpr Layout Telegram{"TelAdapterKanal", 0x6B, 0x0E, Build::Raw, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelAdapterKanal

namespace TelAdapterDaten {
inline constexpr Field Mark1{"mark", 3, 1, Kind::Fixed, 0xAA}, Mark2{"mark", 4, 1, Kind::Fixed, 0xBB};
inline constexpr Field Mark3{"mark", 5, 1, Kind::Fixed, 0xCC}, Mark4{"mark", 6, 1, Kind::Fixed, 0xDD};
inline constexpr Field Mark5{"mark", 7, 1, Kind::Fixed, 0xEE}, Unused{"unused", 8, 7, Kind::Fixed, 0};
inline constexpr std::array Fields{Mark1, Mark2, Mark3, Mark4, Mark5, Unused};
inline constexpr Layout Telegram{"TelAdapterDaten", 0x6C, 0x0E, Build::Raw, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelAdapterDaten

namespace TelAdapterName {
inline constexpr Field AdapterName{"name", 3, 20, Kind::Text}, Unused{"unused", 23, 2, Kind::Fixed, 0};
inline constexpr std::array Fields{AdapterName, Unused};
inline constexpr Layout Telegram{"TelAdapterName", 0x6D, 0x18, Build::Raw, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelAdapterName

namespace TelAdapterZiel {
inline constexpr Field Channel{"radio channel", 3}, Mode{"address mode", 4}, Address{"address", 5, 4, Kind::Bytes};
inline constexpr Field Unused{"unused", 9, 6, Kind::Fixed, 0};
inline constexpr std::array Fields{Channel, Mode, Address, Unused};
inline constexpr Layout Telegram{"TelAdapterZiel", 0x6F, 0x0E, Build::Raw, Fields};
static_assert(LayoutError(Telegram) == -1);
} // namespace TelAdapterZiel

} // namespace qvm
