// Whole conversations of the program with the virtual network adapter: what the locks hold is what the data files say,
// and no telegram is faulty.

#include "NetzlaufFixture.h"

namespace qvm::test {
namespace {

using Row = ListenFixture::Row;

constexpr std::string_view Front = "00.0A.10.01", Back = "00.0A.10.02";
const Row NetProgrammed{">>", "L266"}, NetRead{"<<", "L263"};

struct Net_Run : NetzlaufFixture {
    Net_Run() {
        AddLock(1, "Tor", Front, " XXX ");
        AddLock(2, "Keller", Back, " XXX ");
    }
};

// ---- users

struct UserCount {
    int Users;
    Codes Sent;
};
void PrintTo(const UserCount& c, std::ostream* out) {
    *out << c.Users << " users";
}

struct Net_Run_With_Users : Net_Run, ::testing::WithParamInterface<UserCount> {};

TEST_P(Net_Run_With_Users, every_user_reaches_the_lock) {
    const int count = GetParam().Users;
    AddUsers(count, {1});
    BeginNet({1});
    Prog({1});
    ASSERT_TRUE(Work());
    EXPECT_THAT(AllRows(), ElementsAre(NetProgrammed));
    EXPECT_EQ(Net->JudgementLines(), "");
    EXPECT_EQ(NetCodes(), GetParam().Sent);
    const VirtualLock& lock = NetLock(Front);
    EXPECT_TRUE(lock.DataComplete);
    EXPECT_EQ(lock.Erases, 1);
    ASSERT_EQ(lock.Users.size(), static_cast<std::size_t>(count));
    for (int n = 1; n <= count; ++n) {
        const LockUser& user = lock.Users[static_cast<std::size_t>(n - 1)];
        ASSERT_EQ(user.Slot, n);
        ASSERT_EQ(user.Name, UserNameBytes(n));
        ASSERT_EQ(user.Code, UserCodeBytes(n));
    }
    EXPECT_EQ(Standstills, 0);
}

INSTANTIATE_TEST_SUITE_P(All, Net_Run_With_Users,
                         ::testing::Values(UserCount{0, {0x14, 0x1E}}, UserCount{1, {0x14, 0x1E}},
                                           UserCount{9, {0x14, 0x1E}}, UserCount{10, {0x14, 0x14, 0x1E}},
                                           UserCount{28, {0x14, 0x14, 0x1E}}, UserCount{29, {0x14, 0x14, 0x14, 0x1E}},
                                           UserCount{250, Codes{0x14, 0x14, 0x14, 0x14, 0x14, 0x14, 0x14, 0x14, 0x14,
                                                                0x14, 0x14, 0x14, 0x14, 0x14, 0x1E}}));

// ---- the same content as by the direct route

/// Two locks of one class with the same data: one goes through the network adapter, the other directly.
struct Twins {
    std::string_view Name, Network, Direct;
    bool Parts; ///< timer tables of the long form
};
void PrintTo(const Twins& twins, std::ostream* out) {
    *out << twins.Name;
}

struct Net_Run_Of_Twins : NetzlaufFixture, ::testing::WithParamInterface<Twins> {
    void Fill(int lock) {
        files.Priority(lock, "4");
        files.Emi(lock, 'Y');
        files.LockHasGroup(lock, "PB_700000001");
        files.Reception(lock, '3', '1', '0', 0, 5, 0, '1', "255");
    }
    void Fill_Shared() {
        for (int n = 1; n <= 15; ++n) {
            const std::string hour = n < 10 ? "0" + std::to_string(n) : std::to_string(n);
            files.Slot(n, static_cast<std::uint8_t>(n % 11), hour + ":30", "23:4" + std::to_string(n % 10));
        }
        files.Group(1, "Day", "XX-XX-X--X", "PB_800000003");
        files.Group(2, "A", "XXXXX-----", "PB_2008TimA");
        files.LockGroup(1, "Lock group", "X-XX-", "PB_700000001");
        files.Holiday(1, "24.12.2026", "26.12.2026", '1');
        files.Holiday(2, "01.08.2027", "14.08.2027", '0');
        files.Holiday(22, "01.05. - -", "01.05. - -", ' ');
        files.Holiday(23, "03.10. - -", "04.10. - -", ' ');
        const std::map<int, char> marks{{1, 'X'}, {2, 'X'}};
        const std::string data = "1:2:3:4:5:6:7:8:9:10:11:12:13:14:15:16";
        files.User(1, {.Name = "Anna", .Code = "908070", .Group = "PB_800000003", .Right = "ADMI", .Marks = marks});
        files.User(2, {.Name = "Bert",
                       .Code = "42",
                       .Group = "PB_2008TimA",
                       .Right = "1/2",
                       .KeyId = "17:34:51:2",
                       .KeyData = data,
                       .Marks = marks});
        files.User(
            3, {.Name = "Carl", .Right = "0", .KeyId = "#7-ID#1:2:3:4:5:6:7:8:9:10", .KeyData = data, .Marks = marks});
        std::vector<std::uint8_t> finger{120, 0};
        for (int n = 2; n < 120; ++n) {
            finger.push_back(static_cast<std::uint8_t>(7 * n + 3));
        }
        files.User(4, {.Name = "Dora",
                       .Group = "PB_800000003",
                       .Right = "1/3",
                       .Label = "Slot_Nr: 007",
                       .FingerFlag = "FS",
                       .FingerId = "8001",
                       .Marks = {{1, 'F'}, {2, 'F'}}});
        files.Template(250, "8001", finger);
    }
};

TEST_P(Net_Run_Of_Twins, both_locks_hold_the_same) {
    const Twins& twins = GetParam();
    AddLock(1, "Tor", twins.Network);
    AddLock(2, "Keller", twins.Direct);
    Fill(1);
    Fill(2);
    Fill_Shared();
    BeginNet({1});
    world.Answers.push_back({.Text = "*"}); // the notes of the row check
    Prog({1, 2});
    ASSERT_TRUE(Work());
    for (const int row : {1, 2}) {
        EXPECT_EQ(RowAt(row).first, ">>");
        EXPECT_THAT(RowAt(row).second, ::testing::StartsWith("L266  /  ")) << "programmed, and its notes";
    }
    EXPECT_EQ(Net->JudgementLines(), "");
    EXPECT_EQ(system->JudgementLines(), "");
    const VirtualLock &net = NetLock(twins.Network), &direct = Lock(twins.Direct);
    ExpectSameSettings(net, direct, twins.Parts ? 10 : 8);
    EXPECT_EQ(net.Clock->Day, direct.Clock->Day);
    EXPECT_EQ(net.Clock->Year, direct.Clock->Year);
    ASSERT_EQ(net.Users.size(), 4U);
    ASSERT_EQ(direct.Users.size(), 4U);
    for (std::size_t n = 0; n < 4; ++n) {
        LockUser one = net.Users[n], two = direct.Users[n];
        if (!two.HasGroups) { // by the direct route short tables bring no masks along, but the selector
            one.HasGroups = false;
            one.Groups = {};
        } else if (!two.Finger) { // there the first mask stands in the selector's place
            EXPECT_EQ(one.TimerSelector, 0);
            one.TimerSelector = two.TimerSelector;
        }
        if (one.HasLongId && two.HasId) { // such a lock takes the beginning of a long key by the direct route
            EXPECT_EQ(one.GroupDigit, 7);
            EXPECT_TRUE(std::equal(two.Id.begin(), two.Id.end(), one.LongId.begin()));
            EXPECT_EQ(one.LongIdData, two.IdData);
            one.LongId = two.LongId;
            one.LongIdData = two.LongIdData;
            one.GroupDigit = 0;
            one.HasLongId = false;
            one.HasId = true;
            one.Id = two.Id;
            one.IdData = two.IdData;
        }
        if (one.Finger) {
            EXPECT_EQ(std::string(one.Name.begin(), one.Name.end()), "Dora_0007_FP    ");
            one.Name = two.Name;
        }
        EXPECT_EQ(one, two) << n;
    }
}

INSTANTIATE_TEST_SUITE_P(All, Net_Run_Of_Twins,
                         ::testing::Values(Twins{"short tables", "00.0A.10.01", "00.0A.10.02", false},
                                           Twins{"long tables", "01.20.00.01", "01.20.00.02", true},
                                           Twins{"background erase", "01.C0.01.00", "01.C0.01.01", true},
                                           Twins{"yearly days as single ones", "0C.00.00.01", "0C.00.00.02", false}),
                         [](const auto& twins) {
                             std::string name{twins.param.Name};
                             std::replace(name.begin(), name.end(), ' ', '_');
                             return name;
                         });

} // namespace
} // namespace qvm::test
