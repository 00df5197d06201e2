// Whole telegrams against golden.txt, which golden.py has put together on its own, with the tool `openssl` for the
// cipher.

#include "BlockCipher.h"
#include "NetzFixture.h"

namespace qvm::test {
namespace {

class Golden_Telegramme : public NetzTest {
protected:
    /// The last telegram sent, against the golden one; the adapter never answers.
    void Vergleichen(const std::string& name) {
        const Bytes expected = Golden(name);
        ASSERT_FALSE(expected.empty()) << name;
        ASSERT_FALSE(Sent.empty()) << name;
        EXPECT_EQ(HexZeile(Sent.back()), HexZeile(expected)) << name;
    }
    void Daten(const std::string& name) {
        Net_Daten_Senden(run, 0, static_cast<int>(daten.Slots.size()));
        Vergleichen(name);
    }
    void Aes() {
        pc.World.encryptData = [this](std::span<std::uint8_t, 16> block, std::span<const std::uint8_t, 16> key) {
            cipher.Encrypt(block, key);
        };
    }
    /// All fingerprint blocks of `total` bytes, in the clear or enciphered.
    void Fingerbloecke(int total, const std::string& form) {
        daten.Slots.clear();
        Fingerbenutzer(total);
        Net_Daten_Senden(run, 0, 1);
        int block = 0;
        while (run.TemplateBytes > 0) {
            ASSERT_TRUE(Net_Fingerprint_Senden(run));
            Vergleichen("fingerprints, " + std::to_string(total) + " bytes, block " + std::to_string(++block) + ", " +
                        form);
        }
        EXPECT_EQ(block, total > 1263 ? 2 : 1);
        EXPECT_EQ(run.BlockNumber, run.BlockCount);
        EXPECT_FALSE(Net_Fingerprint_Senden(run));
    }

    BlockCipher cipher{""};
};

TEST_F(Golden_Telegramme, first_block_without_users) {
    Daten("data, 0 users, plain");
    EXPECT_EQ(Sent.back().size(), 678U);
    Aes();
    Daten("data, 0 users, enciphered");
}

TEST_F(Golden_Telegramme, first_block_with_one_user) {
    Benutzer(1);
    Daten("data, 1 users, plain");
    Aes();
    Daten("data, 1 users, enciphered");
}

TEST_F(Golden_Telegramme, first_block_with_nine_users) {
    Benutzer(9);
    Daten("data, 9 users, plain");
    EXPECT_EQ(Sent.back().size(), 1259U);
    Aes();
    Daten("data, 9 users, enciphered");
}

TEST_F(Golden_Telegramme, ten_users_need_two_blocks) {
    Benutzer(10);
    Daten("data, 10 users, block 1, plain");
    Net_Daten_Senden(run, 1, 10);
    Vergleichen("data, 10 users, block 2, plain");
    EXPECT_FALSE(Net_Daten_Senden(run, 1, 10));
    Aes();
    Daten("data, 10 users, block 1, enciphered");
    Net_Daten_Senden(run, 1, 10);
    Vergleichen("data, 10 users, block 2, enciphered");
}

TEST_F(Golden_Telegramme, a_first_block_before_fingerprints_is_filled_to_its_full_length) {
    daten.Slots = Jede_Art();
    Daten("data, each kind of user, plain");
    EXPECT_EQ(Sent.back().size(), 1259U);
    Aes();
    Daten("data, each kind of user, enciphered");
}

TEST_F(Golden_Telegramme, fingerprints_of_a_group_and_of_a_block_and_a_byte_less_and_more) {
    for (const int total : {127, 128, 129, 1262, 1263, 1264, 1274}) {
        Fingerbloecke(total, "plain");
    }
    Aes();
    for (const int total : {127, 128, 129, 1262, 1263, 1264, 1274}) {
        Fingerbloecke(total, "enciphered");
    }
}

TEST_F(Golden_Telegramme, the_sum_of_a_shorter_last_group_is_enciphered_with_the_block_that_it_fills) {
    // 1193 to 1304 are 111 bytes and their sum: seven blocks. The sums of full groups, and the frame's, are in the
    // clear.
    std::vector<int> calls;
    pc.World.encryptData = [&calls](std::span<std::uint8_t, 16> block, std::span<const std::uint8_t, 16>) {
        calls.push_back(1);
        std::fill(block.begin(), block.end(), std::uint8_t{0xCC});
    };
    daten.Slots.clear();
    Fingerbenutzer(1263);
    Net_Daten_Senden(run, 0, 1);
    calls.clear();
    ASSERT_TRUE(Net_Fingerprint_Senden(run));
    const Bytes plain = Golden("fingerprints, 1263 bytes, block 1, plain"), &sent = Sent.back();
    ASSERT_EQ(sent.size(), 1306U);
    EXPECT_EQ(calls.size(), 9U * 8 + 7);
    for (std::size_t at = 32; at < 1305; ++at) {
        const bool fullGroupSum = (at - 32) % 129 == 128;
        EXPECT_EQ(sent[at], fullGroupSum ? plain[at] : 0xCC) << at;
    }
    EXPECT_EQ(sent[1305], plain[1305]);
}

TEST_F(Golden_Telegramme, the_clock_goes_out_with_its_checksum_and_in_the_clear) {
    Aes();
    Net_Uhrzeit_Senden(run);
    Vergleichen("clock");
    EXPECT_EQ(HexZeile(Sent.back()),
              "02 01 90 01 00 25 01 50 0C 10 02 02 02 02 01 6F 00 01 01 60 12 34 01 60 12 35 01 1E FF FF 00 00 "
              "05 03 1A 0A 1E 00 0C");
}

TEST_F(Golden_Telegramme, only_the_first_history_request_is_enciphered) {
    run.HistoryBlock = 7;
    Aes();
    Net_Historie_Anfordern(run, 0x0C);
    Vergleichen("history next 7");
    run.HistoryBlock = 1;
    Net_Historie_Anfordern(run, 0x0A);
    Vergleichen("history start, enciphered");
    pc.World.encryptData = [](std::span<std::uint8_t, 16>, std::span<const std::uint8_t, 16>) {};
    Net_Historie_Anfordern(run, 0x0A);
    Vergleichen("history start, plain");
    EXPECT_EQ(Sent.back().size(), 49U);
}

/// Number, count, length word, inner checksums and frame checksum of each block of a dataset.
class Golden_Bloecke : public Golden_Telegramme, public ::testing::WithParamInterface<int> {};

TEST_P(Golden_Bloecke, have_the_right_number_lengths_and_checksums) {
    Benutzer(GetParam());
    Net_Daten_Senden(run, 0, GetParam());
    int block = 1;
    do {
        const Bytes& frame = Sent.back();
        Bytes got{frame.at(1), frame.at(3), frame.at(4), frame.at(5)};
        for (std::size_t at = 160; at + 1 < frame.size(); at += 129) {
            got.push_back(frame[at]);
        }
        if ((frame.size() - 33) % 129 != 0) {
            got.push_back(frame[frame.size() - 2]);
        }
        // The frame's own checksum was taken with 0 at index 26.
        got.push_back(frame.back());
        const std::string name = "sums, " + std::to_string(GetParam()) + " users, block " + std::to_string(block++);
        EXPECT_EQ(HexZeile(got), HexZeile(Golden(name))) << name;
    } while (Net_Daten_Senden(run, 1, GetParam()));
    EXPECT_EQ(block - 1, GetParam() == 28 ? 2 : GetParam() == 29 ? 3 : 14);
}

TEST_P(Golden_Bloecke, agree_byte_by_byte_in_the_clear_and_enciphered) {
    Benutzer(GetParam());
    for (const std::string form : {"plain", "enciphered"}) {
        int block = 1;
        Net_Daten_Senden(run, 0, GetParam());
        do {
            // Of the longest dataset a middle block and the last one.
            if (GetParam() < 250 || block == 2 || block == 14) {
                Vergleichen("data, " + std::to_string(GetParam()) + " users, block " + std::to_string(block) + ", " +
                            form);
            }
            ++block;
        } while (Net_Daten_Senden(run, 1, GetParam()));
        EXPECT_EQ(block - 1, GetParam() == 28 ? 2 : GetParam() == 29 ? 3 : 14);
        Aes();
    }
}

INSTANTIATE_TEST_SUITE_P(Users, Golden_Bloecke, ::testing::Values(28, 29, 250));

} // namespace
} // namespace qvm::test
