// A list of 200 locks with 250 users each, half of them through a network adapter, every tenth failing in a way of its
// own.

#include "ListenFixture.h"

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

std::string UserName(int user) {
    return "User " + std::to_string(user);
}
std::string UserCode(int user) {
    return std::to_string(700000 + user * 13);
}
/// Two digits a byte, A for 0, E for none.
std::array<std::uint8_t, 5> CodeBytes(const std::string& digits) {
    std::array<std::uint8_t, 5> bytes{0xEE, 0xEE, 0xEE, 0xEE, 0xEE};
    for (std::size_t n = 0; n < digits.size(); ++n) {
        const int value = digits[n] == '0' ? 0xA : digits[n] - '0';
        auto& byte = bytes[n / 2];
        byte = static_cast<std::uint8_t>(n % 2 == 0 ? value * 16 + 0xE : byte - 0xE + value);
    }
    return bytes;
}

struct Person {
    std::string Name;
    std::array<std::uint8_t, 5> Code{};
    bool operator==(const Person&) const = default;
};

std::vector<Person> Expected() {
    std::vector<Person> people;
    for (int user = 1; user <= Users; ++user) {
        people.push_back({.Name = UserName(user), .Code = CodeBytes(UserCode(user))});
    }
    return people;
}

std::string Text(const std::uint8_t* from, std::size_t count) {
    std::string text(from, from + count);
    text.resize(std::min(text.find('\0'), text.size()));
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

struct Big_List : ListenFixture {
    std::map<int, std::vector<Person>> NetHeld; ///< users that the network adapter was given, by lock
    std::map<int, Row> Wanted;

    Big_List() {
        std::map<int, char> marks;
        for (int lock = 1; lock <= Locks; ++lock) {
            AddLock(lock, "Door " + std::to_string(lock), lock == 180 ? "00.00.00.01" : SerialText(lock), " XXX ");
            files.Lock(lock, "Door " + std::to_string(lock), SerialText(lock), " XXX ");
            marks[lock] = 'X';
            Wanted[lock] = {">>", "L266"};
        }
        for (int user = 1; user <= Users; ++user) {
            marks[120] = user == Users ? 'F' : 'X';
            files.User(user, {.Name = UserName(user),
                              .Code = UserCode(user),
                              .Label = "Slot_Nr: 250",
                              .FingerFlag = user == Users ? "FS" : "--",
                              .FingerId = "4711",
                              .Marks = marks});
        }
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
        Wanted[50] = Wanted[120] = Wanted[180] = {"-", "L261"};
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
        BeginList(network);
        system->KeepTelegrams(false);
        AdapterSatz gone = programm->Adapter.Saetze.back();
        gone.Adresse = "/3/224/0/9";
        gone.Port = "3";
        programm->Adapter.Saetze.push_back(gone);
        for (std::size_t n = 0; n < 16; ++n) {
            programm->Adapter.Saetze[1].TransferKey[n] = static_cast<std::uint8_t>(0x31 + 7 * n);
        }
        world.PortThere = [](int number) { return number < 3; };
        Grid& grid = programm->F13.FGK13;
        grid.SetText(100, F13Column::AdapterId, "/1/2/3/4");
        grid.SetText(150, F13Column::AdapterId, "");
        grid.SetText(190, F13Column::AdapterId, "/3/224/0/9");
        NetAdapter = [this](const Bytes& frame) { Adapter(frame); };
    }

    /// Users of a data block: the payload without the checksum behind each 128 bytes, deciphered.
    void Take(int lock, const Bytes& frame) {
        const std::size_t length = frame[4] * 256U + frame[5];
        const auto& key = programm->Adapter.Saetze[1].TransferKey;
        Bytes plain;
        for (std::size_t group = 32; group < length; group += 129) {
            const std::size_t end = std::min(group + 128, length - 1);
            Bytes bytes(frame.begin() + static_cast<std::ptrdiff_t>(group),
                        frame.begin() + static_cast<std::ptrdiff_t>(end));
            for (std::size_t at = 0; at + 16 <= bytes.size(); at += 16) {
                Entmischen(std::span<std::uint8_t, 16>(bytes.data() + at, 16), key);
            }
            plain.insert(plain.end(), bytes.begin(), bytes.end());
        }
        std::vector<Person>& held = NetHeld[lock];
        if (frame[1] == 1) {
            held.clear();
            ASSERT_EQ(plain[0] * 256 + plain[1], Users);
        }
        const std::size_t most = frame[1] == 1 ? 9 : 19;
        const std::size_t first = frame[1] == 1 ? 640 : 0;
        for (std::size_t n = 0; n < most && held.size() < std::size_t{Users}; ++n) {
            const std::uint8_t* record = plain.data() + first + 64 * n;
            Person person{.Name = Text(record + 1, 16), .Code = {}};
            std::copy_n(record + 17, 5, person.Code.begin());
            held.push_back(person);
        }
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
            Take(lock, frame);
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

    /// To the end of the list; the operator gives up what stands still.
    bool Work() {
        while (programm->F91.Laeuft()) {
            if (!world.RunUntil([this] { return !programm->F91.Laeuft() || programm->F91.Steht; }, 36000000)) {
                return false;
            }
            programm->F91.Zeile_Aufgeben();
        }
        return true;
    }
};

TEST_F(Big_List, ends_with_the_content_or_the_failure_of_each_lock) {
    Start();
    world.Answers.push_back({.Text = "L248"});
    world.Answers.push_back({.Text = "L273"});
    world.Answers.push_back({.Text = "User 250_0250_FPFehler bei der zuweisung der Fingerprint Daten. "});
    Prog(All());
    ASSERT_TRUE(Work());
    const std::vector<Person> expected = Expected();
    for (int lock = 1; lock <= Locks; ++lock) {
        SCOPED_TRACE(lock);
        EXPECT_EQ(RowAt(lock), Wanted[lock]);
        const bool good = Wanted[lock].first == ">>";
        if (Through_Network(lock)) {
            if (good) {
                EXPECT_EQ(NetHeld[lock], expected);
            }
            EXPECT_EQ(system->World().Locks[static_cast<std::size_t>(lock - 1)].Sessions, 0);
            continue;
        }
        const VirtualLock& held = system->World().Locks[static_cast<std::size_t>(lock - 1)];
        EXPECT_EQ(held.DataComplete, good || lock == 160);
        if (good) {
            std::vector<Person> people;
            for (const LockUser& user : held.Users) {
                people.push_back({.Name = Text(user.Name.data(), user.Name.size()), .Code = user.Code});
            }
            EXPECT_EQ(people, expected);
        }
    }
    EXPECT_EQ(system->JudgementLines(), "");
    EXPECT_EQ(programm->F91.StatusLabel.Text(), "L265");
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
    programm->F91.Command1_Click();

    // Everything holds by now what it will hold at the end of a second list.
    std::map<int, std::size_t> used;
    programm->F91.Zeile_Beginnt = [&](int row) {
        world.Written.clear();
        world.Written.shrink_to_fit();
        NetFrames.clear();
        NetFrames.shrink_to_fit();
        used[row] = mallinfo2().uordblks;
    };
    programm->F13.Fenster.Enabled = true;
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
