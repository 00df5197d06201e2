// Histories through the virtual network adapter: every record reaches the file, whatever the blocks cut.

#include "NetzlaufFixture.h"

namespace qvm::test {
namespace {

using Row = ListenFixture::Row;

constexpr std::string_view HistoryLock = "00.0A.10.01", OtherLock = "00.0A.10.02";
const Row Programmed266{">>", "L266"}, Read263{"<<", "L263"}, Failed66{"#", "L66"};

struct Net_History : NetzlaufFixture {
    Net_History() {
        AddLock(1, "Tor", HistoryLock, " XXX ");
        AddLock(2, "Keller", OtherLock, " XXX ");
        AddUsers(2, {1, 2});
    }
    void Records(int count) {
        for (int n = 0; n < count; ++n) {
            devices.Locks[0].History.push_back(NetEvent(n));
        }
    }
    /// The file holds the head and one line a record, in their order.
    void Expect_File(int count) {
        const std::vector<std::string> lines = HistoryLines("Tor");
        ASSERT_EQ(lines.size(), static_cast<std::size_t>(count) + 1);
        EXPECT_EQ(lines[0], "Tor  /  SNA : 00.0A.10.01");
        for (int n = 0; n < count; ++n) {
            std::string name = "U" + std::to_string(n);
            name.resize(16, ' '); // a zero in a name is a blank in the file
            name += '\t';
            const std::string& line = lines[static_cast<std::size_t>(n) + 1];
            ASSERT_EQ(line.substr(0, name.size()), name);
            ASSERT_EQ(line.substr(line.rfind('\t') + 1), "Transponder");
        }
    }
};

struct BlockSize {
    int Bytes;
    int Records;
    std::size_t Telegrams; ///< one for the start, and one for each further block
};
void PrintTo(const BlockSize& c, std::ostream* out) {
    *out << c.Records << " records in blocks of " << c.Bytes;
}

struct Net_History_In_Blocks : Net_History, ::testing::WithParamInterface<BlockSize> {};

TEST_P(Net_History_In_Blocks, every_record_is_written_once) {
    Records(GetParam().Records);
    NetDevices.Adapter.Waits.HistoryBytes = GetParam().Bytes;
    BeginNet({1});
    SaveHistory({1});
    ASSERT_TRUE(Work());
    EXPECT_THAT(AllRows(), ElementsAre(Read263));
    EXPECT_EQ(Net->JudgementLines(), "");
    Expect_File(GetParam().Records);
    EXPECT_EQ(NetCodes().size(), GetParam().Telegrams);
    EXPECT_EQ(Standstills, 0);
    EXPECT_EQ(NetLock(HistoryLock).Erases, 0);
}

// 22 bytes a record: 1152 cut the 53rd, 128 nearly each, 220 none, 23 all but every twenty-second.
INSTANTIATE_TEST_SUITE_P(All, Net_History_In_Blocks,
                         ::testing::Values(BlockSize{1152, 1, 1}, BlockSize{1152, 52, 1}, BlockSize{1152, 53, 2},
                                           BlockSize{1152, 500, 10}, BlockSize{128, 64, 11}, BlockSize{220, 100, 10},
                                           BlockSize{23, 46, 44}, BlockSize{127, 30, 6}, BlockSize{129, 30, 6},
                                           BlockSize{22, 200, 200}));

TEST_F(Net_History, an_empty_history_makes_no_file) {
    BeginNet({1});
    SaveHistory({1});
    ASSERT_TRUE(Work());
    EXPECT_THAT(AllRows(), ElementsAre(Read263));
    EXPECT_THAT(HistoryLines("Tor"), IsEmpty());
    EXPECT_EQ(Net->JudgementLines(), "");
}

TEST_F(Net_History, history_first_reads_and_then_programs_the_same_row) {
    Records(60);
    BeginNet({1, 2});
    std::vector<std::string> marks;
    programm->Transfer->F91.Zeile_Fertig = [&](int row) { marks.push_back(std::to_string(row) + RowAt(row).first); };
    Prog({1, 2}, Answer::Yes);
    ASSERT_TRUE(Work());
    EXPECT_THAT(marks, ElementsAre("1<<", "1>>", "2<<", "2>>"));
    EXPECT_EQ(NetCodes(), (Codes{0x0A, 0x0C, 0x14, 0x1E, 0x0A, 0x14, 0x1E}));
    Expect_File(60);
    EXPECT_EQ(NetLock(HistoryLock).Users.size(), 2U);
    EXPECT_EQ(NetLock(OtherLock).Users.size(), 2U);
    EXPECT_EQ(Net->JudgementLines(), "");
}

TEST_F(Net_History, slow_fetching_is_waited_for) {
    Records(60);
    NetDevices.Adapter.Waits.FetchMs = 120000;
    NetDevices.Adapter.Waits.ProgramMs = 600000;
    BeginNet({1});
    Prog({1}, Answer::Yes);
    ASSERT_TRUE(Work());
    EXPECT_THAT(AllRows(), ElementsAre(Programmed266));
    Expect_File(60);
    EXPECT_EQ(Standstills, 0);
    EXPECT_EQ(Net->JudgementLines(), "");
}

TEST_F(Net_History, a_wrong_code_reads_nothing_and_programs_nothing) {
    Records(3);
    BeginNet({1, 2});
    Net->World().Locks[0].AdminCode = {0x99, 0x99, 0x99};
    Prog({1, 2}, Answer::Yes);
    ASSERT_TRUE(Work());
    EXPECT_THAT(AllRows(), ElementsAre(Failed66, Programmed266));
    EXPECT_THAT(HistoryLines("Tor"), IsEmpty());
    EXPECT_EQ(NetLock(HistoryLock).Erases, 0);
}

// ---- faults

struct HistoryFault {
    SimFault Fault;
    bool Read; ///< the row ends well all the same
};
void PrintTo(const HistoryFault& c, std::ostream* out) {
    *out << FaultText(c.Fault);
}

struct Net_History_With_A_Fault : Net_History, ::testing::WithParamInterface<HistoryFault> {};

TEST_P(Net_History_With_A_Fault, ends_the_row_and_the_next_one_is_read) {
    Records(120);
    devices.Locks[1].History = {NetEvent(1)};
    NetDevices.Faults = {GetParam().Fault};
    BeginNet({1, 2});
    SaveHistory({1, 2});
    ASSERT_TRUE(Work());
    EXPECT_THAT(AllRows(), ElementsAre(GetParam().Read ? Read263 : Failed66, Read263));
    if (GetParam().Read) {
        Expect_File(120);
    }
    EXPECT_EQ(HistoryLines("Keller").size(), 2U);
    EXPECT_EQ(Net->JudgementLines(), "");
}

using HistoryKind = SimFault::Kind;
// Telegram 0 starts the reading, 1 and 2 ask for the second and third block. Blocks are taken without a look at their
// checksum, and requests are sent once.
INSTANTIATE_TEST_SUITE_P(All, Net_History_With_A_Fault,
                         ::testing::Values(HistoryFault{{.What = HistoryKind::Silent, .Telegram = 0}, false},
                                           HistoryFault{{.What = HistoryKind::Silent, .Telegram = 1}, false},
                                           HistoryFault{{.What = HistoryKind::Silent, .Telegram = 2}, false},
                                           HistoryFault{{.What = HistoryKind::BadSum, .Telegram = 1}, true},
                                           HistoryFault{{.What = HistoryKind::BadSum, .Telegram = 2}, true},
                                           HistoryFault{{.What = HistoryKind::NotReached, .Telegram = 0}, false},
                                           HistoryFault{{.What = HistoryKind::NotReached, .Telegram = 1}, false},
                                           HistoryFault{{.What = HistoryKind::NotReached, .Telegram = 2}, false},
                                           HistoryFault{{.What = HistoryKind::Drop, .Telegram = 0}, false},
                                           HistoryFault{{.What = HistoryKind::Drop, .Telegram = 2}, false},
                                           HistoryFault{{.What = HistoryKind::Garbage, .Telegram = 0}, true},
                                           HistoryFault{{.What = HistoryKind::Garbage, .Telegram = 1}, true},
                                           HistoryFault{{.What = HistoryKind::Late, .Telegram = 1, .Value = 7000},
                                                        true},
                                           HistoryFault{{.What = HistoryKind::Doubled, .Telegram = 0}, true},
                                           HistoryFault{{.What = HistoryKind::Doubled, .Telegram = 1}, true},
                                           HistoryFault{{.What = HistoryKind::Doubled, .Telegram = 2}, true}));

} // namespace
} // namespace qvm::test
