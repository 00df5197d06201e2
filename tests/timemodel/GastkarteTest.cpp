// The bytes of a guest card.

#include "Gastkarte.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace qvm {
namespace {

using testing::ElementsAre;
using Bytes = std::vector<int>;

/// Door n has the serial 0n.1n.2n.3n in hexadecimal groups, of two digits for its number.
std::string DoorSerial(int n) {
    const std::string two = (n < 10 ? "0" : "") + std::to_string(n);
    return "0A." + two + ".0B." + two;
}
Bytes DoorBytes(int n) {
    const int value = n / 10 * 16 + n % 10;
    return {10, value, 11, value};
}

/// `permanent` doors P and behind them `single` doors X, numbered from 1.
KartenAuftrag Order(int permanent, int single, bool object) {
    KartenAuftrag order;
    for (int n = 1; n <= permanent + single; ++n) {
        order.Tueren.push_back({n <= permanent ? "P" : "X", DoorSerial(n), "", "258"});
        order.Tueren.push_back({"", "FF.FF.FF.FF", "", ""}); // is not meant
    }
    order.Standard = {"09:30", "15:00"};
    order.Zeiten = {"15:05", "09:45"};
    order.CheckIn = {.Year = 2026, .Month = 11, .Day = 23};
    order.CheckOut = {.Year = 2027, .Month = 1, .Day = 2};
    order.Objekt = object;
    order.Gruppe = 7;
    order.SlotMaske = 0x85;
    order.Tag = 9823; // 0x265F
    return order;
}

Bytes Whole(const GastKarte& card) {
    Bytes bytes;
    for (const auto byte : card.Kopf()) {
        bytes.push_back(byte);
    }
    for (int n = 0; n < 5; ++n) {
        for (const auto byte : card.TuerBytes[static_cast<std::size_t>(n)]) {
            bytes.push_back(byte);
        }
    }
    bytes.push_back(card.Betriebsart);
    return bytes;
}

Bytes Part(const GastKarte::Folge& part) {
    Bytes bytes{part.Rows, part.Head[0], part.Head[1]};
    for (const auto byte : part.Bytes) {
        bytes.push_back(byte);
    }
    return bytes;
}

/// The same by other means: the card as one long row of bytes, place 0 first, of which the telegrams are slices.
struct Expected {
    int Entries = 0, Beyond = 0;
    Bytes Image = Bytes(200, 0);

    Expected(int permanent, int single, bool object) {
        const int fits = permanent > 26 ? 26 : permanent;
        const int front = (fits > 4 ? fits : 4) + (object ? 1 : 0);
        const int room = 26 - front < 0 ? 0 : 26 - front;
        const int taken = single > room ? room : single;
        for (int n = 1; n <= fits; ++n) {
            Put(n, DoorBytes(n));
        }
        for (int k = 0; k < taken; ++k) {
            Put(k == 0 && !object ? 0 : front + k, DoorBytes(permanent + k + 1));
        }
        if (object) {
            Put(0, {0, 0, 0, 7});
        }
        Entries = permanent < 4 && front + taken == 5 ? 4 : front + taken;
        Beyond = permanent - fits + single - taken;
        code = taken == 0 ? 0 : object ? 9823 : 258;
    }
    int Telegrams() const { return Entries > 16 ? 3 : Entries > 5 ? 2 : 1; }
    Bytes First(bool object) const {
        Bytes bytes{Telegrams(), 0, Entries, Entries,    0x85,       1, 23, 11, 26, 15, 5, 2, 1,
                    27,          9, 45,      code / 256, code % 256, 0, 0,  0,  0,  0,  0, 0, 0};
        bytes.insert(bytes.end(), Image.begin(), Image.begin() + 20);
        bytes.push_back(object ? 129 : 128);
        return bytes;
    }
    Bytes Slice(int rows, int head1, int head2, int place) const {
        Bytes bytes{rows, head1, head2};
        bytes.insert(bytes.end(), Image.begin() + 4 * place, Image.begin() + 4 * (place + rows) + 1);
        return bytes;
    }

private:
    void Put(int place, const Bytes& bytes) { std::copy(bytes.begin(), bytes.end(), Image.begin() + 4 * place); }
    int code = 0;
};

TEST(Gastkarte, has_the_bytes_of_every_number_of_doors_in_both_modes) {
    for (const bool object : {false, true}) {
        for (int permanent = 0; permanent <= 29; ++permanent) {
            for (int single = 1; single <= 29; ++single) {
                SCOPED_TRACE(std::to_string(permanent) + " P, " + std::to_string(single) + " X, object " +
                             std::to_string(object));
                const GastKarte card = Karte_Bauen(Order(permanent, single, object));
                const Expected expected(permanent, single, object);
                ASSERT_EQ(card.Eintraege, expected.Entries);
                ASSERT_EQ(card.Uebergangen, expected.Beyond);
                ASSERT_EQ(Whole(card), expected.First(object));
                if (expected.Telegrams() >= 2) {
                    const bool three = expected.Telegrams() == 3;
                    ASSERT_EQ(Part(card.Zweites()),
                              expected.Slice(three ? 11 : expected.Entries - 5, three ? 3 : 2, 1, 5));
                }
                if (expected.Telegrams() == 3) {
                    ASSERT_EQ(Part(card.Drittes()), expected.Slice(expected.Entries - 16, 0, 3, 16));
                }
            }
        }
    }
}

TEST(Gastkarte, one_single_door_of_a_hotel_is_entry_0_of_four_in_one_telegram) {
    const GastKarte card = Karte_Bauen(Order(0, 1, false));
    EXPECT_EQ(card.Eintraege, 4);
    EXPECT_EQ(card.Telegramme(), 1);
    EXPECT_THAT(card.TuerBytes[0], ElementsAre(0x0A, 0x01, 0x0B, 0x01));
}

TEST(Gastkarte, four_permanent_doors_and_a_single_one_stay_five_entries) {
    const GastKarte card = Karte_Bauen(Order(4, 1, false));
    EXPECT_EQ(card.Eintraege, 5);
    EXPECT_EQ(card.Telegramme(), 1);
}

TEST(Gastkarte, rows_beyond_26_entries_are_ignored_and_counted) {
    const GastKarte card = Karte_Bauen(Order(26, 3, false));
    EXPECT_EQ(card.Eintraege, 26);
    EXPECT_EQ(card.Uebergangen, 3);
    EXPECT_THAT(card.TuerBytes[0], ElementsAre(0, 0, 0, 0));
    EXPECT_EQ(Karte_Bauen(Order(26, 1, true)).Eintraege, 27);
}

TEST(Gastkarte, without_a_guest_slot_no_entry_counts_under_the_mask) {
    KartenAuftrag order = Order(0, 1, false);
    order.SlotMaske = 0;
    EXPECT_EQ(Karte_Bauen(order).Kopf()[3], 0);
}

TEST(Gastkarte, only_the_first_single_door_of_a_hotel_needs_a_room) {
    KartenAuftrag order = Order(1, 3, false);
    order.Tueren[4].Room = ""; // second X
    EXPECT_FALSE(Karte_Bauen(order).OhneRaum);
    for (const char* room : {"", "   ", "65536", "-1", "9x", "99999999999"}) {
        order.Tueren[2].Room = room;
        EXPECT_EQ(Karte_Bauen(order).OhneRaum, 2U) << room;
    }
    order.Objekt = true;
    EXPECT_FALSE(Karte_Bauen(order).OhneRaum);
}

TEST(Gastkarte, a_door_that_does_not_fit_any_more_needs_no_room) {
    KartenAuftrag order = Order(26, 2, false);
    order.Tueren[2 * 26].Room = "";
    const GastKarte card = Karte_Bauen(order);
    EXPECT_FALSE(card.OhneRaum);
    EXPECT_EQ(card.Uebergangen, 2);
}

TEST(Gastkarte, a_damaged_serial_gives_zeros_and_no_more_than_four_bytes) {
    KartenAuftrag order = Order(0, 1, false);
    const std::array<std::pair<const char*, std::array<std::uint8_t, 4>>, 4> texts{{
        {"", {0, 0, 0, 0}},
        {"1.G1.100.FF", {1, 0, 0, 255}},
        {"01.02", {1, 2, 0, 0}},
        {"01.02.03.04.05", {1, 2, 3, 4}},
    }};
    for (const auto& [text, bytes] : texts) {
        order.Tueren[0].Serial = text;
        EXPECT_EQ(Karte_Bauen(order).TuerBytes[0], bytes) << text;
    }
}

// ---- offsets

TEST(Gastkarte, an_offset_is_the_way_from_the_window_s_time_to_its_own) {
    // By hand: 15:05 to 16:20 is 1:15 later, to 14:00 is 1:05 earlier, to 15:05 nothing.
    EXPECT_THAT(Offset_Code("15:05", "16:20", 0), ElementsAre(64 + 1, 15));
    EXPECT_THAT(Offset_Code("15:05", "14:00", 0), ElementsAre(128 + 64 + 1, 5));
    EXPECT_THAT(Offset_Code("15:05", "15:05", 1), ElementsAre(32, 0));
    EXPECT_THAT(Offset_Code("23:59", "00:00", 1), ElementsAre(128 + 32 + 23, 59));
    EXPECT_THAT(Offset_Code("15:05", "", 0), ElementsAre(0, 0));
    EXPECT_THAT(Offset_Code("", "15:05", 0), ElementsAre(0, 0));
    EXPECT_THAT(Offset_Code("24:00", "15:05", 0), ElementsAre(0, 0));
}

KartenAuftrag WithOffsets() {
    KartenAuftrag order = Order(5, 1, false);
    order.Offsets = {{{"OFST0x01", "16:20", "09:30"},
                      {"OFST0x02", "10:00", "15:00"},
                      {"OFST0x03", "10:00", "08:00"},
                      {"OFST0x04", "10:00", "     "}}};
    for (const int door : {0, 1, 2, 3, 4}) {
        order.Tueren[2 * static_cast<std::size_t>(door)].OffsetId = "OFST0x0" + std::to_string(door % 4 + 1);
    }
    return order;
}

TEST(Gastkarte, offsets_of_the_first_four_permanent_doors_count_from_their_default_time) {
    const GastKarte card = Karte_Bauen(WithOffsets());
    EXPECT_THAT(card.OffsetStunde, ElementsAre(64 + 1, 32 + 0, 0, 0));
    EXPECT_THAT(card.OffsetMinute, ElementsAre(15, 15, 0, 0));
}

TEST(Gastkarte, offsets_whose_base_was_set_before_the_default_times_changed_give_no_code) {
    KartenAuftrag order = WithOffsets();
    order.Standard = {"09:31", "15:01"};
    EXPECT_THAT(Karte_Bauen(order).OffsetStunde, ElementsAre(0, 0, 0, 0));
    EXPECT_THAT(Karte_Bauen(order).OffsetMinute, ElementsAre(0, 0, 0, 0));
}

TEST(Gastkarte, an_empty_base_is_not_like_a_default_time_that_is_not_set) {
    KartenAuftrag order = WithOffsets();
    order.Standard = {"     ", ""};
    EXPECT_THAT(Karte_Bauen(order).OffsetStunde, ElementsAre(0, 0, 0, 0));
}

TEST(Gastkarte, a_door_without_an_offset_takes_no_nameless_one) {
    KartenAuftrag order = WithOffsets();
    order.Offsets[0].Id = "";
    order.Tueren[0].OffsetId = "";
    EXPECT_EQ(Karte_Bauen(order).OffsetStunde[0], 0);
}

} // namespace
} // namespace qvm
