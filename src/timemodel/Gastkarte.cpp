#include "Gastkarte.h"

#include "Gastzeiten.h"
#include "Text.h"

#include <algorithm>

namespace qvm {
namespace {

constexpr int EarlierBit = 128, FirstBaseBit = 64, SecondBaseBit = 32;
/// Places 1 to 4 belong to permanent doors, whether there are as many or not: only they have offsets.
constexpr int PermanentPlaces = 4;
constexpr std::int32_t HighestRoom = 0xFFFF;

std::uint8_t Byte_Von(int value) {
    return static_cast<std::uint8_t>(value & 0xFF);
}

GastKarte::Row Serie_Bytes(std::string_view serial) {
    GastKarte::Row row{};
    for (std::uint8_t& byte : row) {
        const std::size_t end = std::min(serial.find('.'), serial.size());
        const std::int64_t value = HexWert(Trim(serial.substr(0, end)));
        byte = value >= 0 && value <= 0xFF ? static_cast<std::uint8_t>(value) : std::uint8_t{0};
        serial.remove_prefix(std::min(end + 1, serial.size()));
    }
    return row;
}

/// Nothing for a text that is no number of a room.
std::optional<int> Raum_Lesen(std::string_view room) {
    const std::string_view text = Trim(room);
    const bool digits = std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
    const std::int32_t value = Zahlwert(text);
    return text.empty() || !digits || value > HighestRoom ? std::nullopt : std::optional<int>(value);
}

void Offset_Setzen(GastKarte& card, const KartenAuftrag& auftrag, const std::string& id, int place) {
    const auto offset = std::find_if(auftrag.Offsets.begin(), auftrag.Offsets.end(),
                                     [&id](const KartenOffset& candidate) { return candidate.Id == id; });
    // An empty base would be like a default time that is not set.
    if (id.empty() || offset == auftrag.Offsets.end() || Trim(offset->Base).empty()) {
        return;
    }
    for (int which = 0; which < 2; ++which) {
        const auto n = static_cast<std::size_t>(which);
        if (offset->Base == auftrag.Standard[n]) {
            const auto code = Offset_Code(auftrag.Zeiten[n], offset->Time, which);
            card.OffsetStunde[static_cast<std::size_t>(place - 1)] = code[0];
            card.OffsetMinute[static_cast<std::size_t>(place - 1)] = code[1];
            return;
        }
    }
}

/// Places the permanent doors from 1 on; gives how many.
int Dauertueren(GastKarte& card, const KartenAuftrag& auftrag) {
    int count = 0;
    for (const KartenTuer& door : auftrag.Tueren) {
        if (door.Mark != DoorMark::Permanent) {
            continue;
        }
        if (count == GastKarte::MostEntries) {
            ++card.Uebergangen;
            continue;
        }
        ++count;
        if (count <= PermanentPlaces) {
            Offset_Setzen(card, auftrag, door.OffsetId, count);
        }
        card.TuerBytes[static_cast<std::size_t>(count)] = Serie_Bytes(door.Serial);
    }
    return count;
}

/// Places the single doors: the first one of a hotel at 0, all others behind the permanent ones. `counter` counts on.
void Einzeltueren(GastKarte& card, const KartenAuftrag& auftrag, int& counter) {
    bool first = true;
    for (std::size_t n = 0; n < auftrag.Tueren.size(); ++n) {
        const KartenTuer& door = auftrag.Tueren[n];
        if (door.Mark != DoorMark::Single) {
            continue;
        }
        if (counter >= GastKarte::MostEntries) {
            ++card.Uebergangen;
            continue;
        }
        const std::optional<int> room = first && !auftrag.Objekt ? Raum_Lesen(door.Room) : std::optional<int>(0);
        if (!room) {
            card.OhneRaum = n;
            return;
        }
        ++counter;
        if (first) {
            card.RaumCode = auftrag.Objekt ? static_cast<int>(auftrag.Tag & HighestRoom) : *room;
        }
        const int place = first && !auftrag.Objekt ? 0 : counter - 1;
        card.TuerBytes[static_cast<std::size_t>(place)] = Serie_Bytes(door.Serial);
        first = false;
    }
}

} // namespace

std::array<std::uint8_t, 2> Offset_Code(std::string_view from, std::string_view time, int which) {
    const std::optional<int> base = Uhrzeit_Lesen(Trim(from)), own = Uhrzeit_Lesen(Trim(time));
    if (!base || !own) {
        return {};
    }
    constexpr int hour = 60;
    const bool earlier = *base > *own;
    const int difference = earlier ? *base - *own : *own - *base;
    const int bits = (earlier ? EarlierBit : 0) + (which == 0 ? FirstBaseBit : SecondBaseBit);
    return {Byte_Von(bits + difference / hour), Byte_Von(difference % hour)};
}

GastKarte Karte_Bauen(const KartenAuftrag& auftrag) {
    GastKarte card;
    card.SlotMaske = auftrag.SlotMaske;
    card.Betriebsart = auftrag.Objekt ? GuestMode::Object : GuestMode::Hotel;
    card.CheckIn = auftrag.CheckIn;
    card.CheckOut = auftrag.CheckOut;
    for (std::size_t n = 0; n < card.Minuten.size(); ++n) {
        card.Minuten[n] = Uhrzeit_Lesen(Trim(auftrag.Zeiten[n])).value_or(0);
    }
    const int permanent = Dauertueren(card, auftrag);
    // The group of an object takes the place of the first door, and counts.
    int counter = std::max(permanent, PermanentPlaces) + (auftrag.Objekt ? 1 : 0);
    Einzeltueren(card, auftrag, counter);
    if (auftrag.Objekt) {
        card.TuerBytes[0] = {0, 0, 0, auftrag.Gruppe};
    }
    const bool onlyOne = permanent < PermanentPlaces && counter == PermanentPlaces + 1;
    card.Eintraege = onlyOne ? PermanentPlaces : counter;
    return card;
}

std::array<std::uint8_t, 26> GastKarte::Kopf() const {
    constexpr int hour = 60, century = 2000;
    std::array<std::uint8_t, 26> head{Byte_Von(Telegramme()),
                                      0,
                                      Byte_Von(Eintraege),
                                      SlotMaske != 0 ? Byte_Von(Eintraege) : std::uint8_t{0},
                                      SlotMaske,
                                      1};
    std::size_t at = 6;
    const auto put = [&](int value) { head[at++] = Byte_Von(value); };
    const std::array<const Datum*, 2> days{&CheckIn, &CheckOut};
    for (std::size_t n = 0; n < days.size(); ++n) {
        put(days[n]->Day);
        put(days[n]->Month);
        put(days[n]->Year - century);
        put(Minuten[n] / hour);
        put(Minuten[n] % hour);
    }
    put(RaumCode >> 8);
    put(RaumCode);
    for (std::size_t n = 0; n < KartenOffsets; ++n) {
        put(OffsetStunde[n]);
        put(OffsetMinute[n]);
    }
    return head;
}

GastKarte::Folge GastKarte::Folge_Ab(std::size_t first, int rows, std::array<std::uint8_t, 2> head) const {
    Folge part{.Head = head, .Rows = std::max(rows, 0), .Bytes = {}};
    const std::size_t bytes = 4 * static_cast<std::size_t>(part.Rows) + 1;
    for (std::size_t n = 0; n < bytes && first + n / 4 < Places; ++n) {
        part.Bytes.push_back(TuerBytes[first + n / 4][n % 4]);
    }
    return part;
}

GastKarte::Folge GastKarte::Zweites() const {
    const bool three = Telegramme() == 3;
    return Folge_Ab(5, three ? 11 : Eintraege - 5, {std::uint8_t(three ? 3 : 2), 1});
}

GastKarte::Folge GastKarte::Drittes() const {
    return Folge_Ab(16, Eintraege - 16, {0, 3});
}

} // namespace qvm
