#include "SimCard.h"

#include "SimFrame.h"
#include "SimLock.h"

#include <algorithm>
#include <string>

namespace qvm {

namespace {

using CardBytes = std::span<const std::uint8_t>;

constexpr std::uint8_t NoCard = 0x6A;
// Of a first telegram.
constexpr std::size_t HeadAt = 14, RowsAt = 40, ModeAt = 60;
// Of a following one.
constexpr std::size_t MoreAt = 16;
// Within the head.
constexpr std::size_t Telegrams = 0, Entries = 2, MaskEntries = 3, Mask = 4, InAt = 6, OutAt = 11, RoomAt = 16,
                      CodesAt = 18;
constexpr std::size_t RowBytes = 4, FirstRows = 5, SecondRows = 11;
constexpr std::uint8_t ObjectMode = 129, HotelMode = 128;
constexpr int LateBit = 128, FirstBase = 64, SecondBase = 32, HourBits = 31;

CardMoment MomentAt(CardBytes bytes) {
    return {.Day = bytes[0], .Month = bytes[1], .Year = bytes[2], .Hour = bytes[3], .Minute = bytes[4]};
}

void PutMoment(std::vector<std::uint8_t>& frame, std::size_t at, const CardMoment& moment) {
    frame[at] = moment.Day;
    frame[at + 1] = moment.Month;
    frame[at + 2] = moment.Year;
    frame[at + 3] = moment.Hour;
    frame[at + 4] = moment.Minute;
}

/// An offset that counts from a default time names exactly one of the two.
void TakeOffset(CardDoor& door, int hour, int minute, Judge& judge) {
    if (hour == 0 && minute == 0) {
        return;
    }
    const bool first = (hour & FirstBase) != 0, second = (hour & SecondBase) != 0;
    if (first == second || (hour & HourBits) > 23 || minute > 59) {
        judge.Note(Wrong::Range, CardCode::Write,
                   "no offset: " + std::to_string(hour) + ", " + std::to_string(minute) + " at place " +
                       std::to_string(door.Place));
        return;
    }
    const int minutes = 60 * (hour & HourBits) + minute;
    door.Base = first ? 1 : 2;
    door.Minutes = (hour & LateBit) != 0 ? -minutes : minutes;
}

std::vector<std::uint8_t> WriteReply(std::uint8_t result) {
    std::vector<std::uint8_t> reply = NewReply(CardCode::Write, 13);
    reply[3] = result;
    return reply;
}

int OffsetCode(const CardDoor& door) {
    return (door.Minutes < 0 ? LateBit : 0) +
           (door.Base == 1   ? FirstBase
            : door.Base == 2 ? SecondBase
                             : 0) +
           std::abs(door.Minutes) / 60;
}

void PutDoors(std::vector<std::uint8_t>& frame, std::size_t at, const VirtualCard& card, int first, int last) {
    for (const CardDoor& door : card.Doors) {
        if (door.Place >= first && door.Place <= last) {
            const std::size_t place = at + RowBytes * static_cast<std::size_t>(door.Place - first);
            std::copy(door.Serial.begin(), door.Serial.end(), frame.begin() + static_cast<std::ptrdiff_t>(place));
        }
    }
}

/// From index 4 on the words of the telegram that wrote it, from word 16 on. The order is this writer's own choice.
std::vector<std::uint8_t> HeadReply(const VirtualCard& card) {
    constexpr std::size_t at = 4, rows = at + RowsAt - MoreAt, mode = at + ModeAt - MoreAt;
    const auto word = [](std::size_t inHead) { return at + inHead - Entries; };
    std::vector<std::uint8_t> reply = NewReply(CardCode::Read, mode);
    const int last = card.Doors.empty() ? 0 : card.Doors.back().Place;
    reply[word(Entries)] = static_cast<std::uint8_t>(last < 5 ? 4 : last + 1);
    for (const std::uint8_t slot : card.Slots) {
        reply[word(Mask)] = static_cast<std::uint8_t>(reply[word(Mask)] | 1U << (slot - 1U));
    }
    reply[word(MaskEntries)] = card.Slots.empty() ? std::uint8_t{0} : reply[word(Entries)];
    reply[word(Mask) + 1] = 1;
    PutMoment(reply, word(InAt), card.CheckIn);
    PutMoment(reply, word(OutAt), card.CheckOut);
    reply[word(RoomAt)] = static_cast<std::uint8_t>(card.Room >> 8);
    reply[word(RoomAt) + 1] = static_cast<std::uint8_t>(card.Room & 0xFF);
    for (const CardDoor& door : card.Doors) {
        if (door.Place >= 1 && door.Place <= 4) {
            const std::size_t code = word(CodesAt) + 2 * static_cast<std::size_t>(door.Place - 1);
            reply[code] = static_cast<std::uint8_t>(OffsetCode(door));
            reply[code + 1] = static_cast<std::uint8_t>(std::abs(door.Minutes) % 60);
        }
    }
    PutDoors(reply, rows, card, 0, 4);
    if (card.Use == VirtualCard::Mode::Object) {
        reply[rows + 3] = card.Group;
    }
    reply[mode] = card.Use == VirtualCard::Mode::Object ? ObjectMode : HotelMode;
    return reply;
}

std::vector<std::uint8_t> ReadReply(const VirtualCard& card, int block) {
    constexpr std::size_t at = 4;
    constexpr std::uint8_t twelve = 51, ten = 43;
    std::vector<std::uint8_t> reply =
        block == 0 ? HeadReply(card) : NewReply(CardCode::Read, block == 1 ? twelve : ten);
    reply[3] = static_cast<std::uint8_t>(block);
    if (block == 1) {
        PutDoors(reply, at, card, 5, 16);
    } else if (block == 2) {
        PutDoors(reply, at, card, 17, 26);
    }
    return reply;
}

} // namespace

std::vector<std::uint8_t> CardWriter::Take(VirtualCardWriter& writer, CardBytes frame, Judge& judge) {
    if (!writer.Card) {
        Forget();
        return RefusalReply(NoCard);
    }
    std::vector<std::uint8_t> reply;
    if (frame[2] == CardCode::Write) {
        std::uint8_t forced = 0;
        if (!writer.Results.empty()) {
            forced = writer.Results.front();
            writer.Results.erase(writer.Results.begin());
        }
        if (forced != 0) {
            Forget();
        }
        reply = WriteReply(forced != 0 ? forced : Written(frame, *writer.Card, judge));
    } else if (frame[2] == CardCode::Read) {
        reply = ReadReply(*writer.Card, frame[HeadAt]);
    } else {
        reply = NewReply(CardCode::Battery, 7);
        std::copy(writer.Card->Battery.begin(), writer.Card->Battery.end(), reply.begin() + 4);
    }
    if (writer.TakenAfter > 0 && --writer.TakenAfter == 0) {
        writer.Card.reset();
    }
    return reply;
}

std::uint8_t CardWriter::Written(CardBytes frame, VirtualCard& card, Judge& judge) {
    constexpr int third = 3; // the part behind part 1 bears this number
    const int part = frame[HeadAt + 1];
    if (part == 0) {
        return TakeHead(frame, card, judge);
    }
    if (due_ == 0 || part != (due_ == 2 ? third : due_)) {
        judge.Note(Wrong::Order, CardCode::Write, "part " + std::to_string(part) + " was not asked for");
        Forget();
        return CardResult::Failed;
    }
    return TakeMore(frame, card, judge);
}

std::uint8_t CardWriter::TakeHead(CardBytes frame, VirtualCard& card, Judge& judge) {
    rows_ = {};
    std::copy_n(frame.begin() + HeadAt, head_.size(), head_.begin());
    mode_ = frame[ModeAt];
    TakeRows(frame.subspan(RowsAt, FirstRows * RowBytes), 0);
    const int entries = head_[Entries];
    const int telegrams = entries <= 5 ? 1 : entries <= 16 ? 2 : 3;
    if (head_[Telegrams] != telegrams || head_[MaskEntries] != (head_[Mask] == 0 ? 0 : entries)) {
        judge.Note(Wrong::Range, CardCode::Write,
                   "the head does not fit " + std::to_string(entries) + " entries: " + HexBytes(head_));
    }
    due_ = telegrams == 1 ? 0 : 1;
    return telegrams == 1 ? Done(card, judge) : CardResult::Second;
}

std::uint8_t CardWriter::TakeMore(CardBytes frame, VirtualCard& card, Judge& judge) {
    const auto entries = static_cast<std::size_t>(head_[Entries]);
    const bool second = due_ == 1;
    const std::size_t first = second ? FirstRows : FirstRows + SecondRows;
    const std::size_t count = second ? std::min(entries - first, SecondRows) : entries - first;
    const bool more = second && entries > first + count;
    const int telegrams = second ? (more ? 3 : 2) : 0;
    const std::size_t length = MoreAt + RowBytes * count;
    if (frame[1] != length || frame[HeadAt] != telegrams) {
        judge.Note(Wrong::Range, CardCode::Write,
                   "part " + std::to_string(due_) + " does not fit " + std::to_string(entries) + " entries");
    }
    TakeRows(frame.subspan(MoreAt, std::min<std::size_t>(frame[1] - MoreAt, RowBytes * count)), first);
    due_ = more ? 2 : 0;
    return more ? CardResult::Third : Done(card, judge);
}

void CardWriter::TakeRows(CardBytes bytes, std::size_t first) {
    for (std::size_t n = 0; n < bytes.size(); ++n) {
        rows_[first + n / RowBytes][n % RowBytes] = bytes[n];
    }
}

std::uint8_t CardWriter::Done(VirtualCard& card, Judge& judge) {
    const CardBytes head = head_;
    card.CheckIn = MomentAt(head.subspan(InAt));
    card.CheckOut = MomentAt(head.subspan(OutAt));
    card.Room = static_cast<std::uint16_t>(head_[RoomAt] << 8 | head_[RoomAt + 1]);
    card.Use = mode_ == ObjectMode ? VirtualCard::Mode::Object : VirtualCard::Mode::Hotel;
    card.Group = card.Use == VirtualCard::Mode::Object ? rows_[0][3] : std::uint8_t{0};
    if (card.Use == VirtualCard::Mode::Object && (rows_[0][0] | rows_[0][1] | rows_[0][2]) != 0) {
        judge.Note(Wrong::Range, CardCode::Write, "the group's place holds a door: " + HexBytes(rows_[0]));
    }
    card.Slots.clear();
    for (std::uint8_t slot = 1; slot <= 8; ++slot) {
        if ((head_[Mask] >> (slot - 1U) & 1) != 0) {
            card.Slots.push_back(slot);
        }
    }
    card.Doors.clear();
    for (std::size_t place = card.Use == VirtualCard::Mode::Object ? 1 : 0; place < Places; ++place) {
        if (rows_[place] == DeviceAddress{}) {
            continue;
        }
        CardDoor door{.Place = static_cast<int>(place), .Serial = rows_[place]};
        if (place >= 1 && place <= 4) {
            const std::size_t code = CodesAt + 2 * (place - 1);
            TakeOffset(door, head_[code], head_[code + 1], judge);
        }
        card.Doors.push_back(door);
    }
    ++card.Writes;
    return CardResult::Written;
}

} // namespace qvm
