// The card writer: guest cards written, read, refused.

#include "SimBench.h"
#include "WorldFile.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace qvm::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

VirtualWorld CardDesk(const char* adapter = "ENROLLMENT1 desk") {
    VirtualWorld world;
    world.Adapter.Name = adapter;
    world.Desk.Writer.Card = VirtualCard{};
    return world;
}

/// From index 14 on: 23.11.2026 15:00 to 25.11.2026 09:30, room 2 * 256 + 1, one offset of +1:15 from the first default
/// time at place 1 and one of -0:30 from the second at place 4.
Bytes Head(std::uint8_t telegrams, std::uint8_t entries, const Bytes& fiveRows, std::uint8_t mode) {
    return Join({{telegrams, 0, entries, entries, 0x81, 1},
                 {23, 11, 26, 15, 0},
                 {25, 11, 26, 9, 30},
                 {2, 1},
                 {64 + 1, 15, 0, 0, 0, 0, 128 + 32, 30},
                 fiveRows,
                 {mode}});
}
/// Rows 0.0.n.7 for n from `first` to `last`.
Bytes CardRows(int first, int last) {
    Bytes rows;
    for (int n = first; n <= last; ++n) {
        rows.insert(rows.end(), {0, 0, static_cast<std::uint8_t>(n), 7});
    }
    return rows;
}
const Bytes HotelRows = CardRows(20, 24);
const Bytes ReadMarks{0xAA, 0x55, 0xAA, 0x55};

Bytes AskBlock(SimBench& bench, std::uint8_t block) {
    return bench.Ask(0x73, Join({{block}, ReadMarks}));
}

TEST(CardWriterTest, shows_what_a_card_of_one_telegram_says) {
    SimBench bench(CardDesk());
    EXPECT_EQ(bench.Ask(0x6F, Head(1, 4, HotelRows, 128)).at(3), 0xD1);
    EXPECT_THAT(bench.System.Judgements(), IsEmpty());
    const auto state = nlohmann::json::parse(State_ToJson(bench.System))["desk"]["card"];
    EXPECT_EQ(state["mode"], "hotel");
    EXPECT_EQ(state["check_in"], "23.11.2026 15:00");
    EXPECT_EQ(state["check_out"], "25.11.2026 09:30");
    EXPECT_EQ(state["room"], 513);
    EXPECT_EQ(state["slots"], nlohmann::json::array({1, 8}));
    ASSERT_EQ(state["doors"].size(), 5U);
    EXPECT_EQ(state["doors"][0]["serial"], "00.00.14.07");
    EXPECT_EQ(state["doors"][1]["base"], 1);
    EXPECT_EQ(state["doors"][1]["minutes"], 75);
    EXPECT_FALSE(state["doors"][2].contains("base"));
    EXPECT_EQ(state["doors"][4]["base"], 2);
    EXPECT_EQ(state["doors"][4]["minutes"], -30);
    EXPECT_EQ(state["writes"], 1);
}

TEST(CardWriterTest, shows_the_group_of_an_object) {
    SimBench bench(CardDesk("PROGSTATION 1"));
    const Bytes rows = Join({{0, 0, 0, 9}, Fill(12), {0, 0, 8, 7}});
    bench.Ask(0x6F, Head(1, 4, rows, 129));
    const VirtualCard card = bench.System.World().Desk.Writer.Card.value();
    EXPECT_EQ(card.Use, VirtualCard::Mode::Object);
    EXPECT_EQ(card.Group, 9);
    ASSERT_EQ(card.Doors.size(), 1U);
    EXPECT_EQ(card.Doors[0].Place, 4);
}

TEST(CardWriterTest, asks_for_the_second_and_the_third_part) {
    SimBench bench(CardDesk());
    EXPECT_EQ(bench.Ask(0x6F, Head(3, 18, HotelRows, 128)).at(3), 1);
    EXPECT_EQ(bench.System.World().Desk.Writer.Card->Writes, 0);
    EXPECT_EQ(bench.Ask(0x6F, Join({{3, 1}, CardRows(25, 35), {0}})).at(3), 2);
    EXPECT_EQ(bench.Ask(0x6F, Join({{0, 3}, CardRows(36, 37), {0}})).at(3), 0xD1);
    EXPECT_THAT(bench.System.Judgements(), IsEmpty());
    const auto& doors = bench.System.World().Desk.Writer.Card->Doors;
    ASSERT_EQ(doors.size(), 18U);
    for (int n = 0; n < 18; ++n) {
        EXPECT_EQ(doors[static_cast<std::size_t>(n)].Serial,
                  (DeviceAddress{0, 0, static_cast<std::uint8_t>(20 + n), 7}));
    }
}

TEST(CardWriterTest, judges_a_part_that_it_did_not_ask_for_and_leaves_the_card) {
    SimBench bench(CardDesk());
    EXPECT_EQ(bench.Ask(0x6F, Join({{2, 1}, CardRows(25, 25), {0}})).at(3), 0xD4);
    ASSERT_EQ(bench.System.Judgements().size(), 1U);
    EXPECT_EQ(bench.System.Judgements()[0].Kind, Wrong::Order);
    EXPECT_EQ(bench.System.World().Desk.Writer.Card->Writes, 0);
}

TEST(CardWriterTest, judges_a_head_that_does_not_fit_its_entries) {
    SimBench bench(CardDesk());
    bench.Ask(0x6F, Head(2, 4, HotelRows, 128));
    ASSERT_EQ(bench.System.Judgements().size(), 1U);
    EXPECT_THAT(bench.System.Judgements()[0].Text, HasSubstr("4 entries"));
}

TEST(CardWriterTest, judges_a_following_part_of_another_length_than_its_entries) {
    SimBench bench(CardDesk());
    bench.Ask(0x6F, Head(2, 7, HotelRows, 128));
    bench.Ask(0x6F, Join({{2, 1}, CardRows(25, 25), {0}}));
    ASSERT_EQ(bench.System.Judgements().size(), 1U);
    EXPECT_THAT(bench.System.Judgements()[0].Text, HasSubstr("part 1 does not fit 7 entries"));
}

TEST(CardWriterTest, judges_an_offset_that_counts_from_both_default_times) {
    SimBench bench(CardDesk());
    Bytes head = Head(1, 4, HotelRows, 128);
    head[18] = 64 + 32;
    bench.Ask(0x6F, head);
    ASSERT_EQ(bench.System.Judgements().size(), 1U);
    EXPECT_THAT(bench.System.Judgements()[0].Text, HasSubstr("no offset"));
}

TEST(CardWriterTest, gives_the_results_that_it_is_told_one_a_telegram) {
    VirtualWorld world = CardDesk();
    world.Desk.Writer.Results = {0xD2, 0, 0xD3};
    SimBench bench(world);
    EXPECT_EQ(bench.Ask(0x6F, Head(2, 6, HotelRows, 128)).at(3), 0xD2);
    EXPECT_EQ(bench.Ask(0x6F, Head(2, 6, HotelRows, 128)).at(3), 1);
    EXPECT_EQ(bench.Ask(0x6F, Join({{2, 1}, CardRows(25, 25), {0}})).at(3), 0xD3);
    EXPECT_EQ(bench.System.World().Desk.Writer.Card->Writes, 0);
    EXPECT_EQ(bench.Ask(0x6F, Head(1, 4, HotelRows, 128)).at(3), 0xD1);
}

TEST(CardWriterTest, refuses_with_0x6A_when_no_card_lies_there_or_it_was_taken_away) {
    VirtualWorld world = CardDesk();
    world.Desk.Writer.TakenAfter = 1;
    SimBench bench(world);
    EXPECT_EQ(bench.Ask(0x6F, Head(2, 6, HotelRows, 128)).at(3), 1);
    const Bytes frame = bench.Ask(0x6F, Join({{2, 1}, CardRows(25, 25), {0}}));
    EXPECT_EQ(frame.at(2), 0x69);
    EXPECT_EQ(frame.at(3), 0x6A);
    EXPECT_EQ(AskBlock(bench, 0).at(3), 0x6A);
}

TEST(CardWriterTest, reads_out_what_was_written) {
    VirtualWorld world = CardDesk();
    world.Desk.Writer.Card->Battery = {1, 2, 3, 4};
    SimBench bench(world);
    const Bytes head = Head(3, 18, HotelRows, 128);
    bench.Ask(0x6F, head);
    bench.Ask(0x6F, Join({{3, 1}, CardRows(25, 35), {0}}));
    bench.Ask(0x6F, Join({{0, 3}, CardRows(36, 37), {0}}));
    Bytes block = AskBlock(bench, 0);
    EXPECT_EQ(block.at(3), 0);
    EXPECT_EQ(Bytes(block.begin() + 4, block.begin() + 49), Bytes(head.begin() + 2, head.end()));
    block = AskBlock(bench, 1);
    EXPECT_EQ(Bytes(block.begin() + 3, block.begin() + 52), Join({{1}, CardRows(25, 36)}));
    block = AskBlock(bench, 2);
    EXPECT_EQ(Bytes(block.begin() + 3, block.begin() + 8), Join({{2}, CardRows(37, 37)}));
    block = bench.Ask(0x72, Join({{1}, ReadMarks}));
    EXPECT_EQ(Bytes(block.begin() + 4, block.begin() + 8), (Bytes{1, 2, 3, 4}));
    EXPECT_THAT(bench.System.Judgements(), IsEmpty());
}

TEST(CardWriterTest, forgets_a_half_written_card_when_it_is_pulled) {
    SimBench bench(CardDesk());
    bench.Ask(0x6F, Head(2, 6, HotelRows, 128));
    bench.System.Plug();
    EXPECT_EQ(bench.Ask(0x6F, Join({{2, 1}, CardRows(25, 25), {0}})).at(3), 0xD4);
}

TEST(CardWriterTest, comes_back_from_the_world_file) {
    VirtualWorld world = CardDesk();
    SimBench bench(world);
    bench.Ask(0x6F, Head(1, 4, HotelRows, 128));
    const std::string text = World_ToJson(bench.System.World());
    VirtualWorld again;
    std::string fault;
    ASSERT_TRUE(World_FromJson(text, again, fault)) << fault;
    EXPECT_EQ(again.Desk.Writer.Card, bench.System.World().Desk.Writer.Card);
    EXPECT_FALSE(World_FromJson(R"({"desk": {"card": {"check_in": "24.12.26 15:00"}}})", again, fault));
    EXPECT_THAT(fault, HasSubstr("desk.card.check_in: must be a moment"));
    EXPECT_FALSE(World_FromJson(R"({"desk": {"card": {"slots": [2, 1]}}})", again, fault));
    EXPECT_FALSE(
        World_FromJson(R"({"desk": {"card": {"doors": [{"place": 27, "serial": "01.02.03.04"}]}}})", again, fault));
}

} // namespace
} // namespace qvm::test
