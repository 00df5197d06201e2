#pragma once

#include "VirtualDevices.h"

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

/// A guest card and the writer that it lies on. Plain data: a test reads and writes it directly.
namespace qvm {

struct CardMoment {
    std::uint8_t Day = 1, Month = 1, Year = 0; ///< two digits
    std::uint8_t Hour = 0, Minute = 0;

    bool operator==(const CardMoment&) const = default;
};

/// A door that the card opens. Only places 1 to 4 have an offset.
struct CardDoor {
    int Place = 0; ///< in the card's list, 0 to 26
    DeviceAddress Serial{};
    int Base = 0;    ///< which default time the offset counts from, 1 or 2; 0: it has none
    int Minutes = 0; ///< from the default time to the door's own; before it when negative

    bool operator==(const CardDoor&) const = default;
};

/// What a guest card says.
struct VirtualCard {
    enum class Mode : std::uint8_t { Hotel, Object };
    Mode Use = Mode::Hotel;
    CardMoment CheckIn, CheckOut;
    std::uint16_t Room = 0;          ///< number of the room, or day of the writing
    std::uint8_t Group = 0;          ///< of the object; a hotel has none
    std::vector<std::uint8_t> Slots; ///< guest slots that hold, 1 to 8
    std::vector<CardDoor> Doors;     ///< in the order of their places
    std::array<std::uint8_t, 4> Battery{};
    int Writes = 0; ///< how often it was written

    bool operator==(const VirtualCard&) const = default;
};

/// The card writer of an adapter.
struct VirtualCardWriter {
    std::optional<VirtualCard> Card;   ///< that lies there
    std::vector<std::uint8_t> Results; ///< sub-codes for the next telegrams of a writing; 0: as it goes by itself
    int TakenAfter = 0;                ///< the card is taken away behind so many of its telegrams; 0: it stays
};

} // namespace qvm
