#include "SimBench.h"

#include <gmock/gmock.h>

namespace qvm::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t LockSerial = 0x00002C10, UnitSerial = 0x00003D20;
const Bytes LockBytes{0x00, 0x00, 0x2C, 0x10};

VirtualWorld LockAndUnit(int type) {
    VirtualWorld world = OneLock(LockSerial);
    VirtualUnit unit;
    unit.Type = type;
    unit.Serial = AddressOf(UnitSerial);
    unit.AdminCode = {0x1A, 0x42, 0x12};
    unit.Channel = 5;
    world.Units.push_back(unit);
    return world;
}

/// The lock's own session is over, the PC turns to the unit.
struct UnitBench : SimBench {
    explicit UnitBench(const VirtualWorld& world) : SimBench(world) {
        LogIn();
        Ask(0x05);
        To = AddressOf(UnitSerial);
        if (Unit().Type == 2) {
            Mode = 1;
        }
    }
    VirtualUnit& Unit() { return System.World().Units[0]; }
    void Do(std::uint8_t code, const Bytes& payload = {}) {
        const Bytes reply = Ask(code, payload);
        ASSERT_GE(reply.size(), 3U);
        EXPECT_EQ(reply[2], code);
    }
    void Tune(std::uint8_t channel) {
        EXPECT_THAT(SayRaw(0x6F, {channel, 1, 0x00, 0x00, 0x3D, 0x20, 0, 0, 0, 0, 0, 0}), IsEmpty());
    }
    /// Key bytes 1 to 16.
    static Bytes Key() {
        Bytes key;
        for (std::uint8_t n = 1; n <= 16; ++n) {
            key.push_back(n);
        }
        return key;
    }
    void Connect() {
        Tune(5);
        Do(0x28, {4});
        EXPECT_THAT(Say(0x66, {4}), IsEmpty());
        Do(0x29, {4});
        Do(0x49, LockBytes);
        Do(0x48, Key());
        const Bytes reply = Ask(0xFE, {0x1A, 0x42, 0x12, 0xEE, 0xEE, 0xAA, 0x55});
        ASSERT_GE(reply.size(), 15U);
        EXPECT_EQ(reply[2], 0x04);
        EXPECT_EQ(reply[14], 4);
    }
    /// The payload of a block: head and inner sum over index 13 (0) to 54, then the data xored with the key.
    static Bytes Block(std::uint8_t rows, std::uint8_t row, std::uint8_t piece, std::uint8_t type, std::uint8_t address,
                       const Bytes& data) {
        Bytes block{0, 1, 0, rows, 0, row, piece, type, 0, address};
        block.insert(block.end(), data.begin(), data.end());
        block.push_back(RotateSum(block));
        for (std::size_t n = 0; n < 32; ++n) {
            block[10 + n] = static_cast<std::uint8_t>(block[10 + n] ^ Key()[n % 16]);
        }
        block.erase(block.begin());
        return block;
    }
    int SendBlock(const Bytes& block) {
        const Bytes reply = Ask(0x4A, block);
        return reply.size() > 14 && reply[2] == 0x4A ? reply[14] : -1;
    }
};

/// A template of this length as its pieces hold it: the length, low byte first, 0x77, zeros.
Bytes Template(std::size_t length, std::size_t padded) {
    Bytes bytes(length, 0x77);
    bytes[0] = static_cast<std::uint8_t>(length & 0xFF);
    bytes[1] = static_cast<std::uint8_t>(length >> 8);
    bytes.resize(padded, 0);
    return bytes;
}
Bytes Piece(const Bytes& bytes, std::size_t number) {
    return {bytes.begin() + static_cast<std::ptrdiff_t>(32 * number),
            bytes.begin() + static_cast<std::ptrdiff_t>(32 * number + 32)};
}

TEST(UnitType1, is_logged_into_told_of_its_lock_and_closed) {
    UnitBench bench(LockAndUnit(1));
    EXPECT_EQ(bench.Ask(0x04, {0x1A, 0x42, 0x12, 0xEE, 5})[14], 4);
    bench.Do(0x3D, LockBytes);
    bench.Do(0x05);
    EXPECT_EQ(bench.System.JudgementLines(), "");
    EXPECT_EQ(bench.Unit().Lock, AddressOf(LockSerial));
    EXPECT_EQ(bench.Unit().Sessions, 1);
}

TEST(UnitType1, refuses_a_wrong_code_and_then_everything_else) {
    UnitBench bench(LockAndUnit(1));
    EXPECT_EQ(bench.Ask(0x04, {0x99, 0x42, 0x12, 0xEE, 5})[14], 1);
    EXPECT_EQ(bench.Ask(0x3D, LockBytes)[2], 0x69);
    EXPECT_FALSE(bench.Unit().Lock.has_value());
}

TEST(UnitType1, the_long_login_and_a_foreign_serial_are_judged) {
    UnitBench bench(LockAndUnit(1));
    bench.LogIn();
    bench.Say(0x3D, {0, 0, 0x2C, 0x11});
    ASSERT_EQ(bench.System.Judgements().size(), 2U);
    EXPECT_EQ(bench.System.Judgements()[0].Kind, Wrong::Length);
    EXPECT_EQ(bench.System.Judgements()[1].Kind, Wrong::Range);
}

TEST(UnitType2, takes_templates_in_deciphered_pieces) {
    UnitBench bench(LockAndUnit(2));
    bench.Connect();
    bench.Do(0x27, {0});
    const Bytes first = Template(40, 64), second = Template(32, 32);
    EXPECT_EQ(bench.SendBlock(UnitBench::Block(2, 1, 0, 1, 7, Piece(first, 0))), 0);
    EXPECT_EQ(bench.SendBlock(UnitBench::Block(2, 1, 1, 1, 7, Piece(first, 1))), 0);
    EXPECT_EQ(bench.SendBlock(UnitBench::Block(2, 2, 0, 0, 8, Piece(second, 0))), 0);
    bench.Do(0x05);
    EXPECT_EQ(bench.Closes, 1) << "the lock's session only";
    bench.Do(0x03);

    EXPECT_EQ(bench.System.JudgementLines(), "");
    EXPECT_EQ(bench.Closes, 2);
    EXPECT_EQ(bench.Unit().Lock, AddressOf(LockSerial));
    EXPECT_THAT(bench.Unit().Rows, ElementsAre(UnitRow{.Number = 1, .Type = 1, .Address = 7, .Bytes = first},
                                               UnitRow{.Number = 2, .Type = 0, .Address = 8, .Bytes = second}));
}

TEST(UnitType2, is_not_found_on_another_channel) {
    UnitBench bench(LockAndUnit(2));
    bench.Tune(4);
    const Bytes reply = bench.Ask(0x28, {4});
    EXPECT_EQ(reply[2], 0x69);
    EXPECT_EQ(reply[3], 0x64);
    bench.Tune(5);
    EXPECT_EQ(bench.Ask(0x28, {4})[2], 0x28);
    EXPECT_EQ(bench.System.JudgementLines(), "");
}

TEST(UnitType2, a_session_without_templates_is_closed_at_once) {
    UnitBench bench(LockAndUnit(2));
    bench.Connect();
    bench.Do(0x27, {0});
    bench.Do(0x05);
    bench.Do(0x03);
    EXPECT_EQ(bench.System.JudgementLines(), "");
}

TEST(UnitType2, refuses_the_data_start_as_often_as_it_was_told_to) {
    VirtualWorld world = LockAndUnit(2);
    world.Units[0].RefusedErases = 2;
    UnitBench bench(world);
    bench.Connect();
    EXPECT_EQ(bench.Ask(0x27, {0})[2], 0x69);
    EXPECT_EQ(bench.Ask(0x27, {0})[2], 0x69);
    bench.Do(0x27, {0});
    EXPECT_EQ(bench.System.JudgementLines(), "");
}

TEST(UnitType2, gives_the_block_status_that_it_was_told) {
    VirtualWorld world = LockAndUnit(2);
    world.Units[0].BlockStatus = 0x0B;
    UnitBench bench(world);
    bench.Connect();
    bench.Do(0x27, {0});
    EXPECT_EQ(bench.SendBlock(UnitBench::Block(1, 1, 0, 0, 8, Template(32, 32))), 0x0B);
}

TEST(UnitType2, a_wrong_inner_sum_is_judged) {
    UnitBench bench(LockAndUnit(2));
    bench.Connect();
    bench.Do(0x27, {0});
    Bytes block = UnitBench::Block(1, 1, 0, 0, 8, Template(32, 32));
    block[20] ^= 1;
    bench.SendBlock(block);
    ASSERT_EQ(bench.System.Judgements().size(), 1U);
    EXPECT_EQ(bench.System.Judgements()[0].Kind, Wrong::Checksum);
}

TEST(UnitType2, pieces_and_rows_out_of_order_are_judged) {
    UnitBench bench(LockAndUnit(2));
    bench.Connect();
    bench.Do(0x27, {0});
    bench.SendBlock(UnitBench::Block(3, 2, 0, 0, 8, Template(32, 32)));
    EXPECT_EQ(bench.System.Judgements().size(), 1U) << "row 2 first";
    bench.SendBlock(UnitBench::Block(3, 3, 1, 0, 8, Template(32, 32)));
    EXPECT_EQ(bench.System.Judgements().size(), 2U) << "piece 1 first";
    bench.SendBlock(UnitBench::Block(2, 3, 2, 0, 8, Template(32, 32)));
    EXPECT_EQ(bench.System.Judgements().size(), 4U) << "row 3 of 2, and another count";
}

TEST(UnitType2, row_0_as_the_first_is_judged) {
    UnitBench bench(LockAndUnit(2));
    bench.Connect();
    bench.Do(0x27, {0});
    bench.SendBlock(UnitBench::Block(1, 0, 0, 0, 8, Template(32, 32)));
    ASSERT_EQ(bench.System.Judgements().size(), 2U) << "out of order, and no number of a row";
    EXPECT_EQ(bench.System.Judgements()[0].Kind, Wrong::Order);
}

TEST(UnitType2, a_row_that_is_shorter_than_its_length_is_judged) {
    UnitBench bench(LockAndUnit(2));
    bench.Connect();
    bench.Do(0x27, {0});
    bench.SendBlock(UnitBench::Block(1, 1, 0, 0, 8, Piece(Template(40, 64), 0)));
    EXPECT_EQ(bench.System.JudgementLines(), "");
    bench.Do(0x05);
    ASSERT_EQ(bench.System.Judgements().size(), 1U);
    EXPECT_EQ(bench.System.Judgements()[0].Kind, Wrong::Range);
}

TEST(UnitType2, rows_that_never_came_leave_the_session_unfinished) {
    UnitBench bench(LockAndUnit(2));
    bench.Connect();
    bench.Do(0x27, {0});
    bench.SendBlock(UnitBench::Block(2, 1, 0, 0, 8, Template(32, 32)));
    bench.Do(0x05);
    ASSERT_EQ(bench.System.Judgements().size(), 1U);
    EXPECT_EQ(bench.System.Judgements()[0].Kind, Wrong::Unfinished);
}

TEST(UnitType2, a_key_before_the_opening_and_a_wrong_mode_are_judged) {
    UnitBench bench(LockAndUnit(2));
    bench.Tune(5);
    bench.Do(0x28, {4});
    bench.Say(0x66, {4});
    bench.Do(0x29, {4});
    bench.Do(0x48, UnitBench::Key());
    ASSERT_EQ(bench.System.Judgements().size(), 1U);
    EXPECT_EQ(bench.System.Judgements()[0].Kind, Wrong::Order);
    bench.Mode = 0;
    bench.Do(0x05);
    EXPECT_EQ(bench.System.Judgements()[1].Kind, Wrong::Header);
}

TEST(UnitType2, a_key_byte_of_zero_is_judged) {
    UnitBench bench(LockAndUnit(2));
    bench.Tune(5);
    bench.Do(0x28, {4});
    bench.Say(0x66, {4});
    bench.Do(0x29, {4});
    bench.Do(0x49, LockBytes);
    Bytes key = UnitBench::Key();
    key[3] = 0;
    bench.Do(0x48, key);
    ASSERT_EQ(bench.System.Judgements().size(), 1U);
    EXPECT_EQ(bench.System.Judgements()[0].Kind, Wrong::Range);
}

} // namespace
} // namespace qvm::test
