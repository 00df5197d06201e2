#include "Telegramme.h"

#include <array>
#include <gtest/gtest.h>
#include <set>
#include <string>

namespace qvm {
namespace {

constexpr Field First{"first", 14}, Second{"second", 15, 2, Kind::Word}, Rows{"rows", 17, 8, Kind::Rows, 4};

constexpr int Fehler(std::span<const Field> fields, std::uint8_t length, Build how = Build::Kopf,
                     std::uint8_t shortest = 0) {
    return LayoutError(Layout{"T", 1, length, how, fields, shortest});
}

TEST(LayoutError_Test, fields_that_tile_the_payload_are_well) {
    constexpr std::array Fields{First, Second, Rows};
    EXPECT_EQ(Fehler(Fields, 24), -1);
    EXPECT_EQ(Fehler({}, 13), -1);
}

TEST(LayoutError_Test, names_the_field_behind_a_gap) {
    constexpr std::array Fields{First, Rows};
    EXPECT_EQ(Fehler(Fields, 24), 1);
}

TEST(LayoutError_Test, names_the_field_that_overlaps_the_one_before) {
    constexpr std::array Fields{First, Second, Field{"third", 16}};
    EXPECT_EQ(Fehler(Fields, 16), 2);
}

TEST(LayoutError_Test, names_the_first_field_that_does_not_begin_at_14) {
    constexpr std::array Fields{Second};
    EXPECT_EQ(Fehler(Fields, 16), 0);
}

TEST(LayoutError_Test, gives_the_number_of_fields_when_they_do_not_end_at_L) {
    constexpr std::array Fields{First, Second};
    EXPECT_EQ(Fehler(Fields, 17), 2);
    EXPECT_EQ(Fehler(Fields, 15), 2);
    EXPECT_EQ(Fehler(Fields, 16), -1);
}

TEST(LayoutError_Test, wants_two_bytes_of_a_word_and_a_width_of_rows) {
    constexpr std::array Narrow{Field{"word", 14, 1, Kind::Word}};
    constexpr std::array NoRow{Field{"rows", 14, 4, Kind::Rows}};
    constexpr std::array Empty{Field{"nothing", 14, 0}};
    EXPECT_EQ(Fehler(Narrow, 14), 0);
    EXPECT_EQ(Fehler(NoRow, 17), 0);
    EXPECT_EQ(Fehler(Empty, 13), 0);
}

TEST(LayoutError_Test, a_shorter_form_must_lack_whole_rows) {
    constexpr std::array Fields{First, Second, Rows};
    EXPECT_EQ(Fehler(Fields, 24, Build::Direct, 16), -1);
    EXPECT_EQ(Fehler(Fields, 24, Build::Direct, 18), 3);
    EXPECT_EQ(Fehler(Fields, 24, Build::Direct, 12), 3);
}

TEST(LayoutError_Test, a_raw_telegram_begins_at_3) {
    constexpr std::array Fields{Field{"channel", 3}, Field{"address", 4, 4, Kind::Bytes}};
    EXPECT_EQ(Fehler(Fields, 7, Build::Raw), -1);
    EXPECT_EQ(Fehler(Fields, 7, Build::Kopf), 0);
}

TEST(LayoutError_Test, a_reply_may_have_gaps_but_no_overlap) {
    constexpr std::array Gap{Field{"a", 3}, Field{"b", 14}};
    constexpr std::array Overlap{Field{"a", 3, 4, Kind::Bytes}, Field{"b", 6}};
    EXPECT_EQ(Fehler(Gap, 13, Build::Reply), -1);
    EXPECT_EQ(Fehler(Gap, 14, Build::Reply), 2);
    EXPECT_EQ(Fehler(Overlap, 5, Build::Reply), 1);
}

TEST(LaengePasst_Test, a_card_telegram_has_every_length_in_steps_of_a_row) {
    EXPECT_TRUE(LaengePasst(TelKarteSchreiben::Telegram, 0x3C));
    EXPECT_TRUE(LaengePasst(TelKarteSchreiben::Telegram, 0x38));
    EXPECT_TRUE(LaengePasst(TelKarteSchreiben::Telegram, 0x28));
    EXPECT_FALSE(LaengePasst(TelKarteSchreiben::Telegram, 0x24));
    EXPECT_FALSE(LaengePasst(TelKarteSchreiben::Telegram, 0x3A));
    EXPECT_FALSE(LaengePasst(TelKarteSchreiben::Telegram, 0x40));
    EXPECT_TRUE(LaengePasst(TelKarteFolge::Telegram, 0x10));
}

TEST(Telegramme_Test, are_all_well_and_have_names_of_their_own) {
    std::set<std::string_view> names;
    for (const Layout& layout : Telegramme()) {
        EXPECT_EQ(LayoutError(layout), -1) << layout.Name;
        EXPECT_TRUE(names.insert(layout.Name).second) << layout.Name;
    }
    EXPECT_EQ(names.size(), 55U);
}

TEST(Telegramme_Test, stand_in_the_order_of_their_codes) {
    int before = 0;
    for (const Layout& layout : Telegramme()) {
        EXPECT_GE(layout.Code, before) << layout.Name;
        before = layout.Code;
    }
}

/// Code and L tell a telegram, but for the two forms of a card, which their part number tells apart.
TEST(Telegramme_Test, are_told_apart_by_code_and_length) {
    std::set<std::pair<int, int>> keys;
    for (const Layout& layout : Telegramme()) {
        if (layout.Name != "TelKarteFolge") {
            EXPECT_TRUE(keys.insert({layout.Code, layout.L}).second) << layout.Name;
        }
    }
}

TEST(Antworten_Test, are_all_well_and_have_one_layout_a_code) {
    std::set<int> codes;
    for (const Layout& layout : Antworten()) {
        EXPECT_EQ(LayoutError(layout), -1) << layout.Name;
        EXPECT_EQ(layout.How, Build::Reply) << layout.Name;
        EXPECT_TRUE(codes.insert(layout.Code).second) << layout.Name;
    }
}

} // namespace
} // namespace qvm
