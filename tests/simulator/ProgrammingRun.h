#pragma once

#include "SimBench.h"

#include <gtest/gtest.h>

namespace qvm::test {

/// One serial of each class of lock.
inline constexpr std::uint32_t S = 0x00002C10, Z = 0x01000100, ZwithReader = 0x01500C10, T = 0x0B000000,
                               Terr = 0x0E000000, NoMode = 0x0C000000;

/// A PC that programs one lock telegram by telegram; every telegram must be acknowledged with its own code.
struct ProgrammingRun : SimBench {
    using SimBench::SimBench;

    VirtualLock& Lock() { return System.World().Locks[0]; }
    void Do(std::uint8_t code, const Bytes& payload = {}) {
        const Bytes reply = Ask(code, payload);
        ASSERT_GE(reply.size(), 3U);
        EXPECT_EQ(reply[2], code);
    }
    void Open() {
        EXPECT_EQ(LogIn(), 4);
        Do(0x07, {5, 3, 26});
        Do(0x09, {10, 30, 59});
        Do(0x2F, {2});
        Do(0x27, {0});
    }
    void ShortTables() {
        Do(0x19, Join({{8, 7, 30, 18, 0}, Fill(35)}));
        Do(0x1B, Join({{1, 8, 0, 12, 0}, Fill(35)}));
    }
    void TablesInParts() {
        Do(0x19, Join({{8, 7, 30, 18, 0}, Fill(30), {10, 0, 0, 23, 59}, {0}}));
        Do(0x19, Join({{9, 9, 0, 12, 0}, {1, 1, 1, 2, 2}, Fill(30), {1}}));
        Do(0x19, Join({Fill(40), {2}}));
        Do(0x1B, Join({{1, 8, 0, 12, 0}, Fill(35), {0}}));
        Do(0x1B, Join({Fill(40), {1}}));
    }
    void Holidays() {
        Do(0x1F, Join({{0}, {24, 12, 26, 27, 12, 26}, Fill(36)}));
        Do(0x1F, Join({{1}, Fill(42)}));
        Do(0x1F, Join({{2}, Fill(42)}));
        Do(0x21, Join({{0}, {1, 5, 99, 1, 5, 99}, Fill(35)}));
        Do(0x21, Join({{1}, Fill(41)}));
        Do(0x21, Join({{2}, Fill(41)}));
    }
    void Finish() {
        Do(0x23, {1});
        Do(0x32, {0x0A});
        Do(0x15);
        Do(0x05);
    }
    void Name(std::uint16_t slot, const std::string& name) {
        const Bytes reply = Ask(0x0A);
        ASSERT_EQ(reply.size(), 17U);
        EXPECT_EQ((reply[14] << 8) | reply[15], slot);
        Do(0x0B, Name16(name));
        Do(0x0D, Join({{reply[14], reply[15]}, Name16(name)}));
    }
};

} // namespace qvm::test
