#pragma once

#include "Zeit.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What a guest card is to say, and the bytes that say it.
namespace qvm {

/// Marks of a door.
namespace DoorMark {
inline constexpr std::string_view Single = "X";    ///< for this card only
inline constexpr std::string_view Permanent = "P"; ///< for every card until it is taken away
} // namespace DoorMark

/// A door of the list, as far as a card needs it.
struct KartenTuer {
    std::string Mark;     ///< one of DoorMark; any other text: it is not meant
    std::string Serial;   ///< four hexadecimal groups joined by points
    std::string OffsetId; ///< empty: none
    std::string Room;     ///< number in decimal; empty: none
};

/// An offset as its file has it.
struct KartenOffset {
    std::string Id, Time, Base; ///< times "hh:mm"
};
inline constexpr std::size_t KartenOffsets = 4;

/// All that a card is made of.
struct KartenAuftrag {
    std::vector<KartenTuer> Tueren; ///< in the order of the list
    std::array<KartenOffset, KartenOffsets> Offsets;
    std::array<std::string, 2> Standard; ///< default times that the offsets' bases are compared with
    Datum CheckIn, CheckOut;
    std::array<std::string, 2> Zeiten; ///< of check-in and check-out on this card, "hh:mm"
    bool Objekt = false;               ///< mode "OBJEKT", otherwise "HOTEL"
    std::uint8_t Gruppe = 0;           ///< of the object; only in that mode
    std::uint8_t SlotMaske = 0;        ///< bit n-1: guest slot n holds
    std::int64_t Tag = 0;              ///< days from 01.01.2000 to today
};

/// The data of one card, held for the length of the exchange.
struct GastKarte {
    /// Doors that fit, and places: a following telegram sends one byte of the place behind the last.
    static constexpr int MostEntries = 26;
    static constexpr std::size_t Places = 28;
    using Row = std::array<std::uint8_t, 4>;

    int Eintraege = 0; ///< KartenEintraege
    std::uint8_t SlotMaske = 0, Betriebsart = 0;
    int RaumCode = 0; ///< room or day number, 0 to 65535
    std::array<std::uint8_t, KartenOffsets> OffsetStunde{}, OffsetMinute{};
    std::array<Row, Places> TuerBytes{};
    Datum CheckIn, CheckOut;
    std::array<int, 2> Minuten{}; ///< times of check-in and check-out, since midnight

    int Uebergangen = 0;                 ///< marked doors beyond the limit
    std::optional<std::size_t> OhneRaum; ///< index of the first single door, which lacks its room: there is no card

    /// How many telegrams it takes, 1 to 3.
    int Telegramme() const { return Eintraege <= 5 ? 1 : Eintraege <= 16 ? 2 : 3; }
    /// Indexes 14 to 39 of the first telegram. Its rows are places 0 to 4, the byte behind them Betriebsart.
    std::array<std::uint8_t, 26> Kopf() const;

    /// A following telegram: indexes 14 and 15, `Rows` whole places, and the bytes from index 16 on, one more than they
    /// have.
    struct Folge {
        std::array<std::uint8_t, 2> Head{};
        int Rows = 0;
        std::vector<std::uint8_t> Bytes;
    };
    Folge Zweites() const;
    Folge Drittes() const;

private:
    Folge Folge_Ab(std::size_t first, int rows, std::array<std::uint8_t, 2> head) const;
};

/// The code of an offset that counts from the first (`which` 0) or second default time `from`, as hour and minute byte;
/// both 0 when a text is no time. `time`: the offset's.
std::array<std::uint8_t, 2> Offset_Code(std::string_view from, std::string_view time, int which);

/// The card. At least one door should be marked DoorMark::Single: without one its place is empty.
GastKarte Karte_Bauen(const KartenAuftrag& auftrag);

} // namespace qvm
