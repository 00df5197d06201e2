// History over the network route: requests, blocks with carry, the file, and what follows.

#include "NetzFixture.h"
#include "Words.h"

#include <algorithm>

namespace qvm::test {
namespace {

class Net_Historie_Test : public NetzTest {
protected:
    /// Record `n`: on day 1 + n % 28 of 02.2026, 08:05, "User n", code (event 1 of the catalogue), or a state.
    static Bytes Satz(int n, std::uint8_t event = 0x05) {
        Bytes record{static_cast<std::uint8_t>(1 + n % 28), 2, 26, 8, 5};
        std::string name = "User " + std::to_string(n);
        name.resize(16, ' ');
        record.insert(record.end(), name.begin(), name.end());
        record.push_back(event);
        return record;
    }
    static Bytes Saetze(int count) {
        Bytes bytes;
        for (int n = 1; n <= count; ++n) {
            const Bytes record = Satz(n);
            bytes.insert(bytes.end(), record.begin(), record.end());
        }
        return bytes;
    }
    /// Payload bytes with something behind each 128 and, `closed`, behind the rest.
    static Bytes Gruppen(const Bytes& data, bool closed = true) {
        Bytes out;
        for (std::size_t n = 0; n < data.size(); ++n) {
            out.push_back(data[n]);
            if (n % 128 == 127 || (closed && n + 1 == data.size())) {
                out.push_back(0x77);
            }
        }
        return out;
    }
    static Bytes Teil(const Bytes& all, std::size_t from, std::size_t count) {
        const auto first = all.begin() + static_cast<std::ptrdiff_t>(std::min(from, all.size()));
        return {first, first + std::min<std::ptrdiff_t>(static_cast<std::ptrdiff_t>(count), all.end() - first)};
    }
    static std::string Zeile(int n) {
        std::string day = std::to_string(1 + n % 28);
        day.insert(0, 2 - day.size(), '0');
        std::string name = "User " + std::to_string(n);
        name.resize(16, ' ');
        return name + "\t" + day + ".02.2026\t08:05\tFingerscan\r\n";
    }
    /// Lines of the records 1 to `count` in a file of this lock.
    static std::string Datei(int count) {
        std::string text = "Tor  /  SNA : 01.50.0C.10\r\n";
        for (int n = 1; n <= count; ++n) {
            text += Zeile(n);
        }
        return text;
    }
    /// The adapter gives these blocks, in their order, the last one as such.
    void Bloecke(std::vector<Bytes> blocks) {
        Geraet = [this, blocks](const Bytes& frame) {
            const std::size_t n = Sent.size() - 1;
            if ((frame[27] == 0x0A || frame[27] == 0x0C) && n < blocks.size()) {
                const bool last = n + 1 == blocks.size();
                pc.Deliver(Antwort(last ? 0x0D : 0x0C, static_cast<std::uint8_t>(n + 1), blocks[n]), 30);
            }
        };
    }
    std::string Inhalt() { return pc.Disk.Files[link.Lauf.Chain.HistoryFileName]; }
};

TEST_F(Net_Historie_Test, one_block_becomes_a_file_and_the_next_row_follows) {
    link.Lauf.List.NetMode = 0x80;
    Bloecke({Gruppen(Saetze(3))});
    Net_Historie_Beginnen(run);
    pc.RunFor(1000);
    EXPECT_EQ(link.Lauf.Chain.HistoryFileName, "/qvm/HIST/H_20260305_103000_Tor.HST");
    EXPECT_EQ(Inhalt(), Datei(3));
    EXPECT_EQ(Ereignisse(), "steady, status 81, steady, mark << 263, next NexHstRead");
    EXPECT_EQ(run.HistoryCounter, 2);
}

TEST_F(Net_Historie_Test, with_history_and_programming_the_row_is_kept) {
    link.Lauf.List.NetMode = 0xFF;
    Bloecke({Gruppen(Saetze(1))});
    Net_Historie_Beginnen(run);
    pc.RunFor(1000);
    EXPECT_EQ(Ereignisse(), "steady, status 81, steady, mark << 263, program");
}

TEST_F(Net_Historie_Test, the_next_request_carries_the_number_of_the_reply) {
    link.Lauf.List.NetMode = 0x80;
    Geraet = [this](const Bytes&) {
        const bool last = Sent.size() == 3;
        pc.Deliver(Antwort(last ? 0x0D : 0x0C, static_cast<std::uint8_t>(40 + Sent.size()),
                           Satz(static_cast<int>(Sent.size()))),
                   30);
    };
    Net_Historie_Beginnen(run);
    pc.RunFor(1000);
    EXPECT_EQ(Codes(), "0A 0C 0C");
    EXPECT_EQ(Sent[0][1], 1);
    EXPECT_EQ(Sent[1][1], 41);
    EXPECT_EQ(Sent[2][1], 42);
}

TEST_F(Net_Historie_Test, a_record_cut_by_the_end_of_a_block_goes_on_in_the_next_one) {
    // 50 records of 22 bytes in blocks of 512 bytes: four groups each, no part group but the last.
    link.Lauf.List.NetMode = 0x80;
    const Bytes all = Saetze(50);
    Bloecke({Gruppen(Teil(all, 0, 512)), Gruppen(Teil(all, 512, 512)), Gruppen(Teil(all, 1024, 512))});
    Net_Historie_Beginnen(run);
    pc.RunFor(1000);
    EXPECT_EQ(Inhalt(), Datei(50));
}

TEST_F(Net_Historie_Test, a_block_of_whole_records_leaves_no_carry) {
    link.Lauf.List.NetMode = 0x80;
    // 64 records are 1408 bytes, eleven groups.
    int counter = 1;
    Net_Historie_Block(run, Gruppen(Saetze(64)), counter);
    EXPECT_EQ(run.Carry.size(), 0U);
    EXPECT_EQ(counter, 2);
    EXPECT_EQ(Inhalt(), Datei(64));
}

TEST_F(Net_Historie_Test, what_is_left_behind_the_last_record_waits_for_the_next_block) {
    int counter = 1;
    Net_Historie_Block(run, Teil(Saetze(2), 0, 43), counter);
    EXPECT_EQ(run.Carry.size(), 21U);
    Net_Historie_Block(run, Teil(Saetze(2), 43, 1), counter);
    EXPECT_TRUE(run.Carry.empty());
    EXPECT_EQ(Inhalt(), Datei(2));
}

TEST_F(Net_Historie_Test, a_counter_of_1_opens_a_new_file_without_the_carry) {
    int counter = 1;
    Net_Historie_Block(run, Teil(Saetze(2), 0, 30), counter);
    const std::string first = link.Lauf.Chain.HistoryFileName;
    pc.RunFor(5000);
    counter = 1;
    Net_Historie_Block(run, Saetze(1), counter);
    EXPECT_EQ(first, "/qvm/HIST/H_20260305_103000_Tor.HST");
    EXPECT_EQ(link.Lauf.Chain.HistoryFileName, "/qvm/HIST/H_20260305_103005_Tor.HST");
    EXPECT_EQ(pc.Disk.Files[first], Datei(1));
    EXPECT_EQ(Inhalt(), Datei(1));
}

TEST_F(Net_Historie_Test, an_empty_history_makes_no_file) {
    link.Lauf.List.NetMode = 0x80;
    Bloecke({{}});
    Net_Historie_Beginnen(run);
    pc.RunFor(1000);
    EXPECT_TRUE(pc.Disk.Files.empty());
    EXPECT_EQ(Log.back(), "next NexHstRead");
}

TEST_F(Net_Historie_Test, the_carry_of_one_row_does_not_reach_the_next) {
    link.Lauf.List.NetMode = 0x80;
    Bloecke({Teil(Saetze(2), 0, 30)});
    Net_Historie_Beginnen(run);
    pc.RunFor(1000);
    EXPECT_TRUE(run.Carry.empty());
    run.LockName = "Garage";
    Sent.clear();
    Bloecke({Satz(1)});
    Net_Historie_Beginnen(run);
    pc.RunFor(1000);
    EXPECT_EQ(Inhalt(), "Garage  /  SNA : 01.50.0C.10\r\n" + Zeile(1));
}

TEST_F(Net_Historie_Test, a_state_becomes_a_line_of_its_own_and_an_impossible_date_an_empty_one) {
    kern.Sprache.LanguageText[14] = "Stufe 2";
    Bytes block = Satz(1, 0x2A);
    Bytes odd = Satz(2);
    odd[1] = 13;
    block.insert(block.end(), odd.begin(), odd.end());
    int counter = 1;
    Net_Historie_Block(run, block, counter);
    EXPECT_EQ(Inhalt(), "Tor  /  SNA : 01.50.0C.10\r\nUser 1          \t02.02.2026\t08:05\tTransponder\r\n"
                        "\t\t\tStufe 2\r\nUser 2          \t\t08:05\tFingerscan\r\n");
}

TEST_F(Net_Historie_Test, no_cut_off_ends_the_reading) {
    link.Lauf.Order.HistoryCutoff = "01.03.2026";
    int counter = 1;
    Net_Historie_Block(run, Saetze(3), counter);
    EXPECT_EQ(link.Lauf.Chain.HistoryStop, 0);
    EXPECT_EQ(Inhalt(), Datei(3));
}

TEST_F(Net_Historie_Test, 0x0B_blinks_and_waits_for_blocks_that_come_unasked) {
    link.Lauf.List.NetMode = 0x80;
    Geraet = [this](const Bytes& frame) {
        if (frame[27] == 0x0A) {
            Reply(0x0B);
            pc.Deliver(Antwort(0x0C, 1, Teil(Saetze(2), 0, 22)), 100000);
        } else {
            pc.Deliver(Antwort(0x0D, 2, Teil(Saetze(2), 22, 22)), 20);
        }
    };
    Net_Historie_Beginnen(run);
    pc.RunFor(99000);
    EXPECT_EQ(Ereignisse(), "steady, status 81, status 264+81, blink");
    pc.RunFor(2000);
    EXPECT_EQ(Codes(), "0A 0C");
    EXPECT_EQ(Inhalt(), Datei(2));
    EXPECT_EQ(Ereignisse(), "steady, status 81, status 264+81, blink, steady, mark << 263, next NexHstRead");
}

TEST_F(Net_Historie_Test, a_block_that_comes_twice_is_stored_once) {
    link.Lauf.List.NetMode = 0x80;
    Geraet = [this](const Bytes& frame) {
        if (frame[27] == 0x0A) {
            pc.Deliver(Antwort(0x0C, 1, Satz(1)), 20);
            pc.Deliver(Antwort(0x0C, 1, Satz(1)), 24);
            pc.Deliver(Antwort(0x0C, 1, Satz(1)), 60);
            pc.Deliver(Antwort(0x0D, 2, Satz(2)), 90);
        }
    };
    Net_Historie_Beginnen(run);
    pc.RunFor(1000);
    EXPECT_EQ(Codes(), "0A 0C");
    EXPECT_EQ(Inhalt(), Datei(2));
}

TEST_F(Net_Historie_Test, blocks_are_taken_whatever_their_checksum) {
    link.Lauf.List.NetMode = 0x80;
    Geraet = [this](const Bytes&) {
        Bytes block = Antwort(0x0D, 1, Satz(1));
        block[block.size() - 2] ^= 0x40;
        pc.Deliver(block, 20);
    };
    Net_Historie_Beginnen(run);
    pc.RunFor(1000);
    EXPECT_EQ(Inhalt(), Datei(1));
}

TEST_F(Net_Historie_Test, a_lock_whose_events_could_not_be_written_is_not_programmed) {
    link.Lauf.List.NetMode = 0xFF;
    pc.Disk.FailAt = 1;
    pc.Disk.FailFromThere = true;
    Bloecke({Saetze(2)});
    Net_Historie_Beginnen(run);
    pc.RunFor(1000);
    EXPECT_EQ(link.Lauf.Chain.HistoryLost, HistoryLoss::Unwritten);
    EXPECT_EQ(Ereignisse(), "steady, status 81, steady, mark # 277, next PrgNextDataset");
}

TEST_F(Net_Historie_Test, the_loss_of_one_row_does_not_stick_to_the_next) {
    link.Lauf.Chain.HistoryLost = HistoryLoss::Unwritten;
    link.Lauf.List.NetMode = 0xFF;
    Bloecke({Saetze(2)});
    Net_Historie_Beginnen(run);
    pc.RunFor(1000);
    EXPECT_EQ(Log.back(), "program");
}

TEST_F(Net_Historie_Test, a_block_whose_number_does_not_follow_breaks_the_reading) {
    link.Lauf.List.NetMode = 0xFF;
    Geraet = [this](const Bytes& frame) {
        const bool first = frame[27] == 0x0A;
        pc.Deliver(Antwort(first ? 0x0C : 0x0D, first ? 1 : 3, Satz(1)), 20); // block 2 is lost
    };
    Net_Historie_Beginnen(run);
    pc.RunFor(1000);
    EXPECT_EQ(link.Lauf.Chain.HistoryLost, HistoryLoss::Broken);
    EXPECT_EQ(Inhalt(), Datei(1));
    EXPECT_EQ(Log.back(), "next PrgNextDataset");
    EXPECT_EQ(Log[Log.size() - 2], "mark # " + Wort(kern, Word::HistoryBroken));
}

TEST_F(Net_Historie_Test, a_last_block_that_ends_inside_a_record_breaks_the_reading) {
    link.Lauf.List.NetMode = 0xFF;
    Bloecke({Teil(Saetze(2), 0, 43)});
    Net_Historie_Beginnen(run);
    pc.RunFor(1000);
    EXPECT_EQ(link.Lauf.Chain.HistoryLost, HistoryLoss::Broken);
    EXPECT_EQ(Inhalt(), Datei(1));
    EXPECT_EQ(Log[Log.size() - 2], "mark # " + Wort(kern, Word::HistoryBroken));
}

TEST_F(Net_Historie_Test, a_last_block_that_is_filled_up_holds_all_of_its_records) {
    for (const int filler : {0x00, 0x20, 0xFF}) {
        for (const std::size_t count : {std::size_t{1}, std::size_t{2}, std::size_t{21}}) {
            for (const bool sum : {false, true}) {
                Bytes block = Saetze(1);
                block.insert(block.end(), count, static_cast<std::uint8_t>(filler));
                if (sum) {
                    block.back() = 0x5A;
                }
                Sent.clear();
                Bloecke({block});
                Net_Historie_Beginnen(run);
                pc.RunFor(1000);
                EXPECT_EQ(link.Lauf.Chain.HistoryLost, HistoryLoss::None) << filler << " " << count << " " << sum;
                EXPECT_EQ(link.Lauf.Chain.HistoryRecords, 1);
            }
        }
    }
}

TEST_F(Net_Historie_Test, that_does_not_reach_the_disk_is_not_followed_by_programming) {
    link.Lauf.List.NetMode = 0xFF;
    pc.Disk.FlushFails = true;
    Bloecke({Saetze(2)});
    Net_Historie_Beginnen(run);
    pc.RunFor(1000);
    EXPECT_EQ(link.Lauf.Chain.HistoryLost, HistoryLoss::Unwritten);
    EXPECT_EQ(Log[Log.size() - 2], "mark # 277");
}

TEST_F(Net_Historie_Test, a_history_without_end_is_given_up_behind_ten_thousand_records) {
    link.Lauf.List.NetMode = 0xFF;
    const Bytes fifty = Gruppen(Saetze(50), false);
    Geraet = [this, fifty](const Bytes&) {
        pc.Deliver(Antwort(0x0C, static_cast<std::uint8_t>(Sent.size()), fifty), 20);
    };
    Net_Historie_Beginnen(run);
    pc.RunFor(60000);
    EXPECT_EQ(link.Lauf.Chain.HistoryLost, HistoryLoss::Endless);
    EXPECT_EQ(Sent.size(), 201U); // 200 blocks are all right, the 201st holds the record too many
    EXPECT_EQ(Log[Log.size() - 2], "mark # " + Wort(kern, Word::HistoryEndless, {"10000"}));
}

TEST_F(Net_Historie_Test, a_lost_reply_leaves_the_row_standing_with_what_has_come) {
    link.Lauf.List.NetMode = 0x80;
    Geraet = [this](const Bytes& frame) {
        if (frame[27] == 0x0A) {
            pc.Deliver(Antwort(0x0C, 1, Satz(1)), 20);
        }
    };
    Net_Historie_Beginnen(run);
    pc.RunFor(20000);
    EXPECT_EQ(Codes(), "0A 0C");
    EXPECT_EQ(Log.back(), "silence");
    EXPECT_EQ(Inhalt(), Datei(1));
}

} // namespace
} // namespace qvm::test
