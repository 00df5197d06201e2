#pragma once

#include "VirtualCard.h"
#include "WorldCodecs.h"

#include <string>

/// A guest card in the world file.
namespace qvm::world {

/// "24.12.2026 15:00".
struct CardMomentText {
    CardMoment& Value;
    static constexpr bool Required = false;

    std::string Load(const Json& json) {
        const std::string text = json.is_string() ? json.get<std::string>() : std::string{};
        const std::string shape = "00.00.2000 00:00";
        bool whole = text.size() == shape.size() && text.compare(6, 2, "20") == 0;
        for (std::size_t n = 0; whole && n < shape.size(); ++n) {
            const bool digit = text[n] >= '0' && text[n] <= '9';
            whole = shape[n] == '0' || shape[n] == '2' ? digit : text[n] == shape[n];
        }
        if (!whole) {
            return ": must be a moment as 24.12.2026 15:00";
        }
        const auto two = [&text](std::size_t at) {
            return static_cast<std::uint8_t>((text[at] - '0') * 10 + (text[at + 1] - '0'));
        };
        Value = {.Day = two(0), .Month = two(3), .Year = two(8), .Hour = two(11), .Minute = two(14)};
        return {};
    }
    Json Save() const {
        const auto two = [](int value) { return (value < 10 ? "0" : "") + std::to_string(value); };
        return two(Value.Day) + "." + two(Value.Month) + ".20" + two(Value.Year) + " " + two(Value.Hour) + ":" +
               two(Value.Minute);
    }
};

/// Slots as an array of numbers.
struct CardSlots {
    std::vector<std::uint8_t>& Value;
    static constexpr bool Required = false;

    std::string Load(const Json& json) {
        std::vector<std::uint8_t> slots;
        for (const Json& item : json) {
            std::uint8_t slot = 0;
            if (!Number<std::uint8_t>{slot, 1, 8}.Load(item).empty() || (!slots.empty() && slot <= slots.back())) {
                return ": must be rising numbers from 1 to 8";
            }
            slots.push_back(slot);
        }
        if (!json.is_array()) {
            return ": must be an array";
        }
        Value = std::move(slots);
        return {};
    }
    Json Save() const {
        Json json = Json::array();
        for (const std::uint8_t slot : Value) {
            json.push_back(static_cast<int>(slot));
        }
        return json;
    }
};

template <typename Archive>
void CardDoorFields(Archive& archive, CardDoor& door) {
    constexpr int lastPlace = 26, longest = 24 * 60 - 1;
    archive("place", Number<int>{door.Place, 0, lastPlace, true});
    archive("serial", Serial{door.Serial, true});
    archive("base", Number<int>{door.Base, 0, 2, false, true});
    archive("minutes", Number<int>{door.Minutes, -longest, longest, false, true});
}

/// Doors as an array of records.
struct CardDoors {
    std::vector<CardDoor>& Value;
    static constexpr bool Required = false;

    std::string Load(const Json& json) {
        if (!json.is_array()) {
            return ": must be an array";
        }
        std::vector<CardDoor> doors;
        for (const Json& item : json) {
            Reader reader(item);
            CardDoorFields(reader, doors.emplace_back());
            if (const std::string fault = reader.Fault(); !fault.empty()) {
                return "[" + std::to_string(doors.size() - 1) + "]" + fault;
            }
        }
        Value = std::move(doors);
        return {};
    }
    Json Save() const {
        Json json = Json::array();
        for (CardDoor& door : Value) {
            Writer writer;
            CardDoorFields(writer, door);
            json.push_back(writer.Take());
        }
        return json;
    }
};

template <typename Archive>
void CardFields(Archive& archive, VirtualCard& card) {
    archive("mode", Keyword<VirtualCard::Mode, 2>{card.Use, {"hotel", "object"}});
    archive("check_in", CardMomentText{card.CheckIn});
    archive("check_out", CardMomentText{card.CheckOut});
    archive("room", Number<std::uint16_t>{card.Room, 0, 65535});
    archive("group", Number<std::uint8_t>{card.Group, 0, 255, false, true});
    archive("slots", CardSlots{card.Slots});
    archive("doors", CardDoors{card.Doors});
    archive("battery", HexBytesField<4>{card.Battery});
    archive("writes", Number<int>{card.Writes, 0, INT32_MAX, false, true});
}

/// The card that may lie on the writer.
struct MaybeCard {
    std::optional<VirtualCard>& Value;
    static constexpr bool Required = false;

    std::string Load(const Json& json) {
        VirtualCard card;
        Reader reader(json);
        CardFields(reader, card);
        std::string fault = reader.Fault();
        if (fault.empty()) {
            Value = std::move(card);
        }
        return fault;
    }
    Json Save() const {
        Writer writer;
        if (Value) {
            CardFields(writer, *Value);
        }
        return Value ? writer.Take() : Json();
    }
};

} // namespace qvm::world
