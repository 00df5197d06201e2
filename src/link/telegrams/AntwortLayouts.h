#pragma once

#include "TelegrammLayout.h"

#include <array>

/// The bytes of each reply that the program reads. What else a device puts into a reply is not known.
namespace qvm {

/// What a cancel leaves of the frame at hand; nothing that comes from a device under this code is acted on.
namespace RpNeustart {
inline constexpr Layout Reply{
    "RpNeustart", 0x00, 0x01, Build::Reply, {}, 0, "Stands in index 2 behind a cancel; from a device it does nothing."};
static_assert(LayoutError(Reply) == -1);
} // namespace RpNeustart

namespace RpVerbunden {
inline constexpr Field DeviceAddress{"address", 3, 4, Kind::Bytes}, Serial{"serial", 7, 4, Kind::Bytes};
inline constexpr Field Status{"status", 14};
inline constexpr std::array Fields{DeviceAddress, Serial, Status};
inline constexpr Layout Reply{"RpVerbunden", 0x04, 0x0D, Build::Reply, Fields, 0, "Status 4: fully registered."};
static_assert(LayoutError(Reply) == -1);
} // namespace RpVerbunden

namespace RpLeben {
inline constexpr Layout Reply{"RpLeben", 0x06, 0x01, Build::Reply, {}};
inline constexpr Layout Reply8{"RpLeben", 0x08, 0x01, Build::Reply, {}};
static_assert(LayoutError(Reply) == -1 && LayoutError(Reply8) == -1);
} // namespace RpLeben

namespace RpBenutzerSlot {
inline constexpr Field UserSlot{"user slot", 14, 2, Kind::Word};
inline constexpr std::array Fields{UserSlot};
inline constexpr Layout Reply{"RpBenutzerSlot", 0x0A, 0x0E, Build::Reply, Fields, 0, "Valid from 1 to 2999."};
static_assert(LayoutError(Reply) == -1);
} // namespace RpBenutzerSlot

namespace RpCodeErgebnis {
inline constexpr Field Status{"status", 14};
inline constexpr std::array Fields{Status};
inline constexpr Layout Reply{"RpCodeErgebnis", 0x12, 0x0D, Build::Reply, Fields, 0, "Status 4: done."};
static_assert(LayoutError(Reply) == -1);
} // namespace RpCodeErgebnis

namespace RpHistorieSatz {
inline constexpr Field Day{"day", 14}, Month{"month", 15}, Year{"year", 16};
inline constexpr Field Hour{"hour", 17}, Minute{"minute", 18}, UserName{"name", 19, 16, Kind::Text};
inline constexpr Field Event{"event", 35};
inline constexpr std::array Fields{Day, Month, Year, Hour, Minute, UserName, Event};
inline constexpr Layout Reply{"RpHistorieSatz", 0x17, 0x22, Build::Reply, Fields, 0, "Event 255: no record."};
static_assert(LayoutError(Reply) == -1);
} // namespace RpHistorieSatz

namespace RpBlockQuittung {
inline constexpr Field Status{"status", 14};
inline constexpr std::array Fields{Status};
inline constexpr Layout Reply{"RpBlockQuittung", 0x4A, 0x0D, Build::Reply, Fields};
static_assert(LayoutError(Reply) == -1);
} // namespace RpBlockQuittung

namespace RpUnitGefunden {
inline constexpr Field Address1{"address byte 1", 3}, Signal{"signal", 4}, Address3{"address byte 3", 6};
inline constexpr Field Serial{"serial", 7, 4, Kind::Bytes};
inline constexpr std::array Fields{Address1, Signal, Address3, Serial};
inline constexpr Layout Reply{
    "RpUnitGefunden", 0x4B, 0x09, Build::Reply, Fields, 0, "Index 4 is an address byte as well."};
static_assert(LayoutError(Reply) == -1);
} // namespace RpUnitGefunden

namespace RpAdapterKennung {
/// Smallest length of a valid reply. A shorter one is an echo.
inline constexpr int ValidLength = 0x0F;
/// Where the adapter puts its version is not known; the last byte that a valid reply always has is taken.
inline constexpr Field Version{"version", 15};
inline constexpr std::array Fields{Version};
inline constexpr Layout Reply{
    "RpAdapterKennung", 0x68, 0x0E, Build::Reply, Fields, 0, "Valid from a length of 0x0F on."};
inline constexpr Layout Reply6A{"RpAdapterKennung", 0x6A, 0x0E, Build::Reply, Fields, 0, Reply.Note};
static_assert(LayoutError(Reply) == -1 && LayoutError(Reply6A) == -1);
} // namespace RpAdapterKennung

namespace RpAblehnung {
inline constexpr Field Reason{"reason", 3};
inline constexpr std::array Fields{Reason};
inline constexpr Layout Reply{"RpAblehnung", 0x69, 0x02, Build::Reply, Fields};
static_assert(LayoutError(Reply) == -1);
} // namespace RpAblehnung

namespace RpAdapterDaten {
/// Length of a complete record.
inline constexpr int CompleteLength = 0x2E;
inline constexpr Field AdapterAddress{"address", 3, 4, Kind::Bytes}, AdapterName{"name", 8, 20, Kind::Text};
inline constexpr Field Key{"transfer key", 30, 16, Kind::Secret};
inline constexpr std::array Fields{AdapterAddress, AdapterName, Key};
inline constexpr Layout Reply{"RpAdapterDaten", 0x6C, 0x2C, Build::Reply, Fields, 0, "Complete with a length of 0x2E."};
static_assert(LayoutError(Reply) == -1);
} // namespace RpAdapterDaten

namespace RpAdapterName {
inline constexpr Field AdapterName{"name", 8, 20, Kind::Text};
inline constexpr std::array Fields{AdapterName};
inline constexpr Layout Reply{"RpAdapterName", 0x6D, 0x1A, Build::Reply, Fields};
static_assert(LayoutError(Reply) == -1);
} // namespace RpAdapterName

namespace RpKarte {
inline constexpr Field SubCode{"sub-code", 3};
inline constexpr std::array Fields{SubCode};
inline constexpr Layout Reply{"RpKarte", 0x6F, 0x02, Build::Reply, Fields};
static_assert(LayoutError(Reply) == -1);
} // namespace RpKarte

namespace RpKarteStart {
inline constexpr Field Card{"card bytes", 4, 4, Kind::Secret};
inline constexpr std::array Fields{Card};
inline constexpr Layout Reply{"RpKarteStart", 0x72, 0x06, Build::Reply, Fields};
static_assert(LayoutError(Reply) == -1);
} // namespace RpKarteStart

namespace RpKarteBlock {
inline constexpr Field Block{"block", 3};
inline constexpr std::array Fields{Block};
inline constexpr Layout Reply{"RpKarteBlock", 0x73, 0x02, Build::Reply, Fields};
static_assert(LayoutError(Reply) == -1);
} // namespace RpKarteBlock

namespace RpEKey {
inline constexpr Field Id{"identification", 14, 4, Kind::Secret}, IdData{"identification data", 18, 16, Kind::Secret};
inline constexpr std::array Fields{Id, IdData};
inline constexpr Layout Reply{"RpEKey", 0x81, 0x20, Build::Reply, Fields};
static_assert(LayoutError(Reply) == -1);
} // namespace RpEKey

namespace RpFingerStatus {
inline constexpr Field Step{"step", 13};
inline constexpr std::array Fields{Step};
inline constexpr Layout Reply{"RpFingerStatus", 0xA1, 0x0C, Build::Reply, Fields};
static_assert(LayoutError(Reply) == -1);
} // namespace RpFingerStatus

namespace RpFingerDaten {
inline constexpr Field Piece{"piece", 3}, Count{"count", 4};
/// Where the piece's bytes stand.
inline constexpr std::uint8_t Data = 5;
inline constexpr std::array Fields{Piece, Count};
inline constexpr Layout Reply{"RpFingerDaten",
                              0xA2,
                              0x03,
                              Build::Reply,
                              Fields,
                              0,
                              "Piece 1 is the first. The bytes stand from index 5 on (hidden).",
                              Data};
static_assert(LayoutError(Reply) == -1);
} // namespace RpFingerDaten

namespace RpFingerKennung {
inline constexpr Field Slot{"slot", 3}, Id{"identification", 4, 10, Kind::Secret};
inline constexpr Field IdData{"identification data", 14, 16, Kind::Secret};
inline constexpr std::array Fields{Slot, Id, IdData};
inline constexpr Layout Reply{"RpFingerKennung", 0xA3, 0x1C, Build::Reply, Fields};
static_assert(LayoutError(Reply) == -1);
} // namespace RpFingerKennung

inline constexpr std::string_view QuittungName = "RpQuittung";
/// Codes of the replies that are a plain acknowledge, without a field.
inline constexpr std::array<std::uint8_t, 28> QuittungCodes{0x03, 0x05, 0x07, 0x09, 0x0B, 0x0D, 0x0E, 0x15, 0x19, 0x1B,
                                                            0x1F, 0x21, 0x23, 0x25, 0x27, 0x28, 0x29, 0x2F, 0x32, 0x33,
                                                            0x37, 0x3B, 0x3D, 0x40, 0x43, 0x48, 0x49, 0x66};

} // namespace qvm
