// Replies of the adapter itself.

#include "AntwortRahmen.h"
#include "LinkFixture.h"

namespace qvm {
namespace {

constexpr std::uint8_t Identifications[] = {0x68, 0x6A};

class Adapter_Antwort_Test : public test::LinkFixture {
protected:
    Adapter_Antwort_Test() {
        link.Hooks.Adapter_Erkannt = [this] { ++found; };
    }
    void Reply(std::uint8_t code, std::uint8_t length) {
        platform.Deliver(test::ReplyWire(code, length, {}));
        platform.RunFor(1);
    }

    int found = 0;
};

TEST_F(Adapter_Antwort_Test, an_identification_counts_only_when_it_is_whole_and_the_first) {
    for (const std::uint8_t code : Identifications) {
        found = 0;
        link.ReplySeen = 0;
        link.ReplyWanted = AdapterAntwort{.Code = 0x68, .OtherCode = 0x6A, .Shortest = 0x0F};
        Reply(code, 0x0E);
        EXPECT_EQ(link.ReplySeen, 0);
        EXPECT_EQ(found, 0);
        Reply(code, 0x0F);
        EXPECT_EQ(link.ReplySeen, 1);
        EXPECT_EQ(found, 1);
        Reply(code, 0x0F);
        EXPECT_EQ(found, 1);
    }
}

TEST_F(Adapter_Antwort_Test, an_identification_that_no_search_waits_for_is_noise) {
    for (const std::uint8_t code : Identifications) {
        link.ReplyWanted.reset();
        Reply(code, 0x16);
        link.ReplyWanted = AdapterAntwort{.Code = 0x6C, .OtherCode = 0x6C, .Shortest = 0x2E, .Longest = 0x2E};
        Reply(code, 0x2E);
    }
    EXPECT_EQ(found, 0);
    EXPECT_EQ(link.ReplySeen, 0);
}

TEST_F(Adapter_Antwort_Test, a_record_and_a_name_end_a_wait_and_stay_as_they_came) {
    for (const std::uint8_t code : {std::uint8_t{0x6C}, std::uint8_t{0x6D}}) {
        link.ReplySeen = 0;
        link.ReplyWanted.reset();
        Reply(code, 0x2E);
        EXPECT_EQ(link.ReplySeen, 1);
        EXPECT_EQ(link.ReplyByte(2), code);
        Reply(0x72, 0x06);
        EXPECT_EQ(link.ReplyByte(2), code);
    }
    EXPECT_EQ(found, 0);
}

TEST_F(Adapter_Antwort_Test, no_other_reply_ends_a_wait) {
    for (const int code : {0x04, 0x05, 0x67, 0x69, 0x6B, 0x6E, 0x6F, 0xFF}) {
        Reply(static_cast<std::uint8_t>(code), 0x2E);
        EXPECT_EQ(link.ReplySeen, 0) << code;
    }
}

TEST_F(Adapter_Antwort_Test, a_frame_that_was_taken_above_ends_no_wait) {
    bool taken = true;
    link.Hooks.Antwort_Gekommen = [&taken] { return !taken; };
    Reply(0x6D, 0x1A);
    EXPECT_EQ(link.ReplySeen, 0);
    taken = false;
    Reply(0x6D, 0x1A);
    EXPECT_EQ(link.ReplySeen, 1);
}

TEST_F(Adapter_Antwort_Test, a_name_that_comes_while_another_reply_is_acted_on_counts_once) {
    link.Hooks.Antwort_Gekommen = [this] {
        if (link.RxByte(2) == 0x27) {
            platform.Deliver(test::ReplyWire(0x6D, 0x1A, {}), 50);
            Warte_Ticks(link, 100, 100);
            EXPECT_EQ(link.ReplySeen, 1);
            link.ReplySeen = 0; // the next wait has begun
        }
        return true;
    };
    Reply(0x27, 0x0D);
    EXPECT_EQ(link.ReplySeen, 0);
}

} // namespace
} // namespace qvm
