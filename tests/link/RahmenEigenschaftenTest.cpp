#include "Frame.h"

#include <algorithm>
#include <cstdint>
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <span>
#include <vector>

namespace qvm {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Step = RxResult (*)(Empfaenger&, std::uint8_t);

/// Bytes in which 0x02 and 0x00 are as frequent as everything else together.
rc::Gen<std::uint8_t> Tueckisch() {
    return rc::gen::weightedOneOf<std::uint8_t>({{2, rc::gen::just<std::uint8_t>(0x02)},
                                                 {1, rc::gen::just<std::uint8_t>(0x00)},
                                                 {3, rc::gen::arbitrary<std::uint8_t>()}});
}

/// A reply as a device sends it: body from the code to index L + 1, then the checksum over 0 to L.
Bytes Antwortrahmen(const Bytes& body) {
    Bytes frame{StartByte, static_cast<std::uint8_t>(body.size())};
    frame.insert(frame.end(), body.begin(), body.end());
    const std::uint8_t sum = Pruefsumme(std::span(frame).first(frame.size() - 1));
    frame.push_back(sum);
    return frame;
}

/// A network frame: block number, code, index 3, the length word, the body, the checksum and the closing byte.
Bytes Netzwerkrahmen(std::uint8_t block, std::uint8_t third, const Bytes& body, std::uint8_t closing) {
    const std::size_t length = body.size() + 7;
    Bytes frame{StartByte,
                block,
                NetworkCode,
                third,
                static_cast<std::uint8_t>(length >> 8),
                static_cast<std::uint8_t>(length & 0xFF)};
    frame.insert(frame.end(), body.begin(), body.end());
    frame.push_back(Pruefsumme(frame));
    frame.push_back(closing);
    return frame;
}

Bytes AufDerLeitung(const Bytes& frame) {
    Bytes wire;
    Stopfen(frame, wire);
    return wire;
}

/// A network frame as the wire carries it: its closing byte is not stuffed, as nothing follows it.
Bytes NetzwerkAufDerLeitung(const Bytes& frame) {
    Bytes wire = AufDerLeitung({frame.begin(), frame.end() - 1});
    wire.push_back(frame.back());
    return wire;
}

/// The result of the last byte; every one before it must be Pending.
RxResult Durch(Empfaenger& rx, Step step, const Bytes& wire) {
    for (std::size_t n = 0; n + 1 < wire.size(); ++n) {
        RC_ASSERT(step(rx, wire[n]) == RxResult::Pending);
    }
    return step(rx, wire.back());
}

/// What stands in the buffer, the checksum put back to its place.
Bytes Empfangen(const Empfaenger& rx, std::size_t sumIndex) {
    Bytes frame(rx.RxBuffer.begin(), rx.RxBuffer.begin() + rx.FrameSize);
    if (sumIndex == frame.size()) {
        frame.push_back(rx.RxSum);
    } else {
        frame[sumIndex] = rx.RxSum;
    }
    return frame;
}

TEST(Rahmen_Eigenschaften, the_serial_automaton_gives_back_what_was_stuffed) {
    EXPECT_TRUE(rc::check("unstuff(stuff(frame)) is the frame", [] {
        const auto size = *rc::gen::inRange(3, 256);
        const auto body = *rc::gen::container<Bytes>(static_cast<std::size_t>(size), Tueckisch());
        const Bytes frame = Antwortrahmen(body);
        Bytes wire = AufDerLeitung(frame);
        const bool skipped = frame.back() == StartByte;
        if (skipped) {
            wire.pop_back(); // the 0x00 behind a checksum of 0x02 comes after the frame
        }
        Empfaenger rx;
        RC_ASSERT(Durch(rx, Empfang_Seriell, wire) == RxResult::Frame);
        RC_ASSERT(Empfangen(rx, frame.size() - 1) == frame);
    }));
}

TEST(Rahmen_Eigenschaften, the_network_automaton_gives_back_what_was_stuffed) {
    EXPECT_TRUE(rc::check("unstuff(stuff(frame)) is the frame", [] {
        // A block number of 0 would look like the 0x00 behind a stuffed start byte.
        const auto block = *rc::gen::inRange<std::uint8_t>(1, 255);
        const auto size = *rc::gen::inRange(0, 1394);
        const auto body = *rc::gen::container<Bytes>(static_cast<std::size_t>(size), Tueckisch());
        const Bytes frame = Netzwerkrahmen(block, *Tueckisch(), body, *rc::gen::inRange<std::uint8_t>(1, 255));
        Empfaenger rx;
        RC_ASSERT(Durch(rx, Empfang_Netzwerk, NetzwerkAufDerLeitung(frame)) == RxResult::Frame);
        const bool unsummed = frame.size() > 28 && (frame[27] == 0x0C || frame[27] == 0x0D || frame[27] == 0xFF);
        RC_ASSERT(unsummed || rx.RxBuffer[frame.size() - 2] == 0);
        RC_ASSERT(Empfangen(rx, frame.size() - 2) == frame);
    }));
}

/// Bytes that bring either automaton back to state 0 from anywhere: longer than the longest frame, and no 0x02.
void Leerlaufen(Empfaenger& rx, Step step) {
    for (int n = 0; n < BufferSize + 1; ++n) {
        if (step(rx, 0x55) != RxResult::Pending) {
            return;
        }
    }
    RC_ASSERT(rx.RxState == 0);
}

TEST(Rahmen_Eigenschaften, no_bytes_lead_the_automata_astray) {
    EXPECT_TRUE(rc::check("indexes stay in the buffer, and the next good frame behind a pause is taken", [] {
        const auto noise = *rc::gen::container<Bytes>(Tueckisch());
        const auto network = *rc::gen::arbitrary<bool>();
        const Step step = network ? Empfang_Netzwerk : Empfang_Seriell;
        Empfaenger rx;
        for (const std::uint8_t byte : noise) {
            step(rx, byte);
            RC_ASSERT(rx.RxIndex >= 0 && rx.RxIndex < BufferSize);
            RC_ASSERT(rx.RxState >= 0 && rx.RxState <= 2);
        }
        Leerlaufen(rx, step);
        const Bytes frame =
            network ? Netzwerkrahmen(1, 1, {0x11, 0x22}, 0x77) : Antwortrahmen({0x72, 0x02, 0x00, 0x11, 0x22});
        RC_ASSERT(Durch(rx, step, network ? NetzwerkAufDerLeitung(frame) : AufDerLeitung(frame)) == RxResult::Frame);
    }));
}

TEST(Rahmen_Eigenschaften, changing_the_automaton_at_any_byte_stays_in_the_buffer) {
    EXPECT_TRUE(rc::check("both automata on one state", [] {
        const auto head = *rc::gen::elementOf(std::vector<Bytes>{
            {}, {0x02, 0x05, 0x90, 0x01, 0x05, 0x78}, {0x02, 0xFF, 0x17}, {0x02, 0x05, 0x90, 0x01, 0x00, 0x00}});
        const auto count = *rc::gen::inRange(0, 1500);
        const auto tail = *rc::gen::container<std::vector<std::pair<bool, std::uint8_t>>>(
            rc::gen::pair(rc::gen::arbitrary<bool>(), Tueckisch()));
        Empfaenger rx;
        for (const std::uint8_t byte : head) {
            Empfang_Netzwerk(rx, byte);
        }
        for (int n = 0; n < count; ++n) {
            Empfang_Netzwerk(rx, 0x55);
        }
        for (const auto& [network, byte] : tail) {
            network ? Empfang_Netzwerk(rx, byte) : Empfang_Seriell(rx, byte);
            RC_ASSERT(rx.RxIndex >= 0 && rx.RxIndex < BufferSize);
            RC_ASSERT(rx.FrameSize >= 0 && rx.FrameSize <= BufferSize);
        }
    }));
}

TEST(Rahmen_Eigenschaften, the_checksum_is_the_sum_of_the_bytes_turned_by_their_distance_from_the_end) {
    EXPECT_TRUE(rc::check("modulo 255", [] {
        const auto bytes = *rc::gen::container<Bytes>(rc::gen::arbitrary<std::uint8_t>());
        unsigned expected = 0;
        for (std::size_t n = 0; n < bytes.size(); ++n) {
            expected += static_cast<unsigned>(bytes[n]) << ((bytes.size() - 1 - n) % 8);
        }
        RC_ASSERT(Pruefsumme(bytes) % 255U == expected % 255U);
        // 0 only for nothing but zeros; every other multiple of 255 stays 255.
        const bool zeros = std::all_of(bytes.begin(), bytes.end(), [](std::uint8_t byte) { return byte == 0; });
        RC_ASSERT((Pruefsumme(bytes) == 0) == zeros);
    }));
}

} // namespace
} // namespace qvm
