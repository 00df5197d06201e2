// A list of 200 locks with 250 users each, half of them through a network adapter, every tenth failing in a way of its
// own.

#include "NetzlaufFixture.h"
#include "Text.h"

#include <algorithm>
#include <cstdio>
#include <malloc.h>
#include <map>

namespace qvm::test {
namespace {

using Row = ListenFixture::Row;

constexpr int Locks = 200, Users = 250;

bool Through_Network(int lock) {
    return lock % 4 >= 2;
}

/// Lock n has the serial 00.0B.hh.ll; one has a serial whose family holds 47 users only, one has none.
std::string SerialText(int lock) {
    char text[12];
    std::snprintf(text, sizeof text, "00.0B.%02X.%02X", lock / 256, lock % 256);
    return lock == 50 ? "01.20.00.32" : lock == 180 ? "ZZ.0B.00.B4" : text;
}

struct Big_List : NetzlaufFixture {
    std::map<int, Row> Wanted;

    Big_List() {
        std::map<int, char> marks;
        for (int lock = 1; lock <= Locks; ++lock) {
            AddLock(lock, "Door " + std::to_string(lock), lock == 180 ? "00.00.00.01" : SerialText(lock), " XXXX");
            files.Lock(lock, "Door " + std::to_string(lock), SerialText(lock), " XXXX");
            marks[lock] = 'X';
            Wanted[lock] = {">>", "L266"};
        }
        for (int user = 1; user <= Users; ++user) {
            marks[120] = user == Users ? 'F' : 'X';
            files.User(user, {.Name = "User " + std::to_string(user),
                              .Code = std::to_string(700000 + 13 * user),
                              .Label = "Slot_Nr: 250",
                              .FingerFlag = user == Users ? "FS" : "--",
                              .FingerId = "4711",
                              .Marks = marks});
        }
        for (int slot = 1; slot <= 15; ++slot) {
            files.Slot(slot, static_cast<std::uint8_t>(slot % 11), slot < 10 ? "06:30" : "17:15", "23:45");
        }
        files.Holiday(1, "24.12.2026", "26.12.2026", '1');
        files.Holiday(22, "01.05. - -", "01.05. - -", ' ');
        Fail();
    }

    VirtualLock& World(int lock) { return devices.Locks[static_cast<std::size_t>(lock - 1)]; }

    void Fail() {
        World(20).LoginStatus = 1;
        World(40).LoginStatus = 2;
        World(60).LoginStatus = 3;
        World(80).Serial = {0, 0, 0, 2}; // nobody there
        World(140).ForcedSlot = std::uint16_t{3000};
        files.Unit(160, 1, "Reader", "01600001", '1');
        World(200).AdminCode = {0x99, 0x99, 0x99};
        Wanted[20] = {"#", "L70  /  L66"};
        Wanted[40] = {"#", "L71  /  L66"};
        Wanted[60] = {"#", "L111  /  L66"};
        Wanted[80] = {"#", "L66"};
        Wanted[100] = Wanted[150] = {"-", "L262"}; // adapter unknown
        Wanted[180] = {"-", "L261"};
        Wanted[50] = {"-", "L261  /  L248"};
        Wanted[120] = {"-", "L261  /  L273  /  User 250_0250_FPFehler bei der zuweisung der Fingerprint Daten."};
        Wanted[140] = {"#", "L72"};
        Wanted[160] = {"#", "L66"};
        Wanted[200] = {"#", "L70  /  L66"};
        for (const int lock : {10, 30, 70, 90, 110, 130, 170}) {
            Wanted[lock] = {"#", "L66"};
        }
        Wanted[190] = {"#", "L276"}; // the port is gone
    }

    void Start() {
        std::vector<int> network;
        for (int lock = 1; lock <= Locks; ++lock) {
            if (Through_Network(lock)) {
                network.push_back(lock);
            }
        }
        BeginNet(network);
        system->KeepTelegrams(false);
        Net->KeepTelegrams(false);
        AdapterSatz gone = programm->Adapter.Saetze.back();
        gone.Adresse = "/3/224/0/9";
        gone.Port = "3";
        programm->Adapter.Saetze.push_back(gone);
        world.PortThere = [](int number) { return number < 3; };
        world.AdapterPortNumbers.clear(); // a search finds nothing, and what is known stays
        Grid& grid = programm->Transfer->F13.FGK13;
        grid.SetText(100, F13Column::AdapterId, "/1/2/3/4");
        grid.SetText(150, F13Column::AdapterId, "");
        grid.SetText(190, F13Column::AdapterId, "/3/224/0/9");
        NetAdapter = [this](const Bytes& frame) { Adapter(frame); };
        // The adapter fails some locks in ways of its own; the test plays it for them. The list holds every lock.
        const auto route = world.OnWrite;
        world.OnWrite = [this, route](std::span<const std::uint8_t> bytes) {
            const int lock = programm->link.Lauf.List.RunRow;
            if (world.PortNumber == 2 && Wanted[lock].first == "#") {
                NetTaken(bytes);
            } else {
                route(bytes);
            }
        };
    }

    void Adapter(const Bytes& frame) {
        const int lock = frame[9];
        const std::uint8_t block = frame[1];
        const bool clock = frame[27] == 0x1E;
        if (lock == 70) {
            return; // mute
        }
        if (lock == 10 && clock) {
            NetReply(0xFF);
        } else if (lock == 30 && !clock) {
            NetReply(0xFF, block);
        } else if (lock == 90) {
            NetReply(0x14, static_cast<std::uint8_t>(block + 1)); // an echo of another block
        } else if (lock == 110) {
            world.Deliver({0x02, 1, 0x90, 1, 0, 33, 0, 0x0B}, 20); // dropped in the middle of a reply
        } else if (lock == 130 && clock) {
            NetReply(0x1F);
            NetReply(0xFF, 1, {}, 9000);
        } else if (lock == 170 && clock) {
            return; // dropped behind the data
        } else if (clock) {
            NetReply(0x1F);
            NetReply(0x20, 1, {}, 5000);
        } else {
            NetReply(block == frame[3] ? 0x15 : 0x14, block);
        }
    }

    std::vector<int> All() const {
        std::vector<int> locks;
        for (int lock = 1; lock <= Locks; ++lock) {
            locks.push_back(lock);
        }
        return locks;
    }

    /// Users as the files have them; everything else as lock 1 has it, whose tables stand here.
    void Expect_Content(int lock) {
        const bool network = Through_Network(lock);
        const auto held = [&](const VirtualSystem& side) -> const VirtualLock& {
            return side.World().Locks[static_cast<std::size_t>(lock - 1)];
        };
        const VirtualLock& programmed = held(network ? *Net : *system);
        const VirtualLock& first = system->World().Locks[0];
        const bool good = Wanted[lock].first == ">>";
        EXPECT_EQ(held(network ? *system : *Net).Erases, 0);
        EXPECT_EQ(programmed.DataComplete, good || lock == 160);
        if (!good) {
            return;
        }
        EXPECT_EQ(programmed.Erases, 1);
        ASSERT_EQ(programmed.Users.size(), std::size_t{Users});
        for (int n = 1; n <= Users; ++n) {
            const LockUser& user = programmed.Users[static_cast<std::size_t>(n - 1)];
            ASSERT_EQ(user.Name, UserNameBytes(n));
            ASSERT_EQ(user.Code, UserCodeBytes(n));
            ASSERT_FALSE(user.HasId || user.HasLongId || user.Finger);
        }
        ExpectSameSettings(programmed, first, 8);
        EXPECT_EQ(first.SingleDays[0], (DateLine{24, 12, 26, 27, 12, 26}));
    }
};

TEST_F(Big_List, ends_with_the_content_or_the_failure_of_each_lock) {
    Start();
    world.Answers.push_back(
        {.Text = std::string(u8"Hinweise aus der Prüfung der Liste:\r\n\r\nSchloss 50: Door 50 - L248\r\n"
                             u8"Schloss 120: Door 120 - L273  /  User 250_0250_FPFehler bei der zuweisung der "
                             u8"Fingerprint Daten."_w)});
    Prog(All());
    ASSERT_TRUE(Work());
    for (int lock = 1; lock <= Locks; ++lock) {
        SCOPED_TRACE(lock);
        EXPECT_EQ(RowAt(lock), Wanted[lock]);
        Expect_Content(lock);
    }
    EXPECT_EQ(Net->JudgementLines(), "");
    EXPECT_EQ(system->JudgementLines(), "");
    EXPECT_EQ(programm->Transfer->F91.StatusLabel.Text(), "L265");
}

#ifndef __SANITIZE_ADDRESS__
TEST_F(Big_List, needs_no_more_memory_from_row_to_row) {
    Start();
    std::vector<int> locks;
    for (int lock = 1; lock < 10; ++lock) {
        locks.push_back(lock);
        locks.push_back(lock + 10);
    }
    Prog(locks);
    ASSERT_TRUE(Work());
    programm->Transfer->F91.Command1_Click();

    // Everything holds by now what it will hold at the end of a second list.
    std::map<int, std::size_t> used;
    programm->Transfer->F91.Zeile_Beginnt = [&](int row) {
        world.Written.clear();
        world.Written.shrink_to_fit();
        NetFrames.clear();
        NetFrames.shrink_to_fit();
        used[row] = mallinfo2().uordblks;
    };
    programm->Transfer->F13.Fenster.Enabled = true;
    Prog(locks);
    ASSERT_TRUE(Work());
    ASSERT_EQ(used.size(), 18U);
    // Rows of the same kind, sixteen rows apart.
    EXPECT_LT(used[17], used[1] + 20000);
    EXPECT_LT(used[18], used[2] + 20000);
}
#endif

} // namespace
} // namespace qvm::test
