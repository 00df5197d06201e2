// What an operator may do in the user window, in any order, held against the plain rules.

#include "F5ZufallFixture.h"
#include "Zeit.h"

#include <algorithm>
#include <cstdint>
#include <deque>
#include <optional>
#include <random>

namespace qvm::test {
namespace {

struct F5_Zufall : ZufallFixture {
    static constexpr std::size_t Kept = 100; ///< steps that an undo remembers

    std::deque<PlainTable> undo, redo;
    PlainTable stepFrom;                    ///< before the step that is being made
    std::array<std::string, 252> templates; ///< by slot: whose is on the disk
    std::optional<PlainUser> cut;           ///< whose key was cut and not pasted yet
    PlainChannel cutChannel;                ///< and that user's channels
    int pasted = 0;

    static std::string KeyText(int number) {
        return "9 : 8 : " + std::to_string(number / 256) + " : " + std::to_string(number % 256);
    }
    void SayKeyOf(int number) {
        SayKey({9, 8, static_cast<std::uint8_t>(number / 256), static_cast<std::uint8_t>(number % 256)});
    }
    /// A key comes from its reader; one that somebody has already is refused.
    void LearnKey() {
        const int row = Row();
        const int number = Below(400);
        const std::string id = KeyText(number);
        Window().MenuRow = row;
        Expect(154, Answer::Yes);
        ExpectText("L76\r\nL44");
        Keys().Save_Ekey_Click();
        if (plain.KeyRow(id) != 0) {
            Expect(73);
        } else {
            plain.SetKey(row, id, "1 : 2 : 3 : 4 : 5 : 6 : 7 : 8 : 9 : 10 : 11 : 12 : 13 : 14 : 15 : 16");
            channels.Confirm(row);
        }
        SayKeyOf(number);
    }
    /// A key that its user holds in front of the reader has its channel from there.
    void Synchronise() {
        const int number = Below(400);
        Expect(76);
        Keys().key_synchron_Click();
        if (const int row = plain.KeyRow(KeyText(number)); row != 0) {
            channels.Confirm(row);
            Expect(169);
        }
        SayKeyOf(number);
    }
    /// So does a transponder; its ten bytes are 21 to 30.
    void LearnTransponder() {
        const int row = Row();
        const int slot = Below(60);
        const std::string id = "#" + std::to_string(slot) + "-ID#21:22:23:24:25:26:27:28:29:30";
        Window().MenuRow = row;
        Keys().Save_RFID_Click();
        if (plain.KeyRow(id) != 0) {
            Expect(200);
        } else {
            plain.SetKey(row, id, "7:7:7:7:7:7:7:7:7:7:7:7:7:7:7:7");
            channels.Confirm(row);
        }
        SayTransponder(static_cast<std::uint8_t>(slot));
    }
    /// Somebody in the table, or in one that an undo or redo brings back, has the finger.
    bool Known(const std::string& finger) const {
        const auto has = [&](const PlainTable& table) {
            return table.HasFinger(finger) || table.HasFinger("PR" + finger);
        };
        return has(plain) || std::any_of(undo.begin(), undo.end(), has) || std::any_of(redo.begin(), redo.end(), has);
    }
    static std::string SlotLabel(int slot) {
        const std::string digits = std::to_string(slot);
        return "Slot_Nr: " + std::string(3 - digits.size(), '0') + digits;
    }
    /// A finger comes from the enrolment unit.
    void LearnFinger() {
        const int row = Row();
        std::size_t slot = 1;
        while (plain.HasLabel(SlotLabel(static_cast<int>(slot))) ||
               (!templates[slot].empty() && Known(templates[slot]))) {
            ++slot;
        }
        Window().FsRow = row;
        Fingers().FS_anerlen_Click();
        SayPiece(1, {1, 2, 3});
        world.RunFor(1000); // no two fingers in one second
        const auto second = Sekunden_Seit_2000(programm->kern.Welt.Now());
        SayStep(0x0A);
        Enrolment().Command1_Click();
        const std::string id = Text(row, 209);
        ASSERT_TRUE(id == std::to_string(second) || id == std::to_string(second + 1)) << id;
        templates[slot] = id;
        plain.SetFinger(row, id);
        plain.SetLabel(row, SlotLabel(static_cast<int>(slot)));
    }
    void RemoveFinger() {
        const int row = Row();
        plain.RemoveFinger(row);
        Window().FsRow = row;
        ExpectText("L46 Fingerscan  ?\r\n\r\nL281\r\n\r\nL282", Answer::Yes);
        Fingers().FS_loeschen_Click();
    }
    void ClassFinger() {
        const int row = Row();
        const bool premium = Below(2) == 0;
        plain.ClassFinger(row, premium);
        Go(row, 7);
        if (premium) {
            Fingers().F5_FSpremium_Click();
        } else {
            Fingers().F5_FSstandard_Click();
        }
    }
    void Learn() {
        const int what = Below(12);
        if (what > 9) {
            Synchronise();
        } else if (what < 3) {
            LearnKey();
        } else if (what < 5) {
            LearnFinger();
        } else if (what < 6) {
            RemoveFinger();
        } else if (what < 8) {
            ClassFinger();
        } else {
            LearnTransponder();
        }
        world.Written.clear();
    }
    /// A key leaves its user, or comes to another one; an undo may have brought it back meanwhile.
    void Move() {
        const int row = Row();
        Window().MenuRow = row;
        if (!cut) {
            const PlainUser user = plain.At(row);
            Keys().key_ausschneiden_Click();
            if (!user.Key.empty()) {
                cut = user;
                cutChannel = channels.Of(row);
                plain.SetKey(row, "", "");
            }
            return;
        }
        const int holder = plain.KeyRow(cut->Key);
        if (holder == row) {
            return;
        }
        if (holder != 0) {
            Expect(cut->Key.starts_with('#') ? 200 : 73);
        }
        Keys().key_einfuegen_Click();
        if (holder == 0) {
            plain.SetKey(row, cut->Key, cut->KeyData);
            channels.Paste(row, cutChannel, cut->Key.starts_with('#'));
            cut.reset();
            ++pasted;
        }
    }
    void Clear() {
        plain.Clear();
        channels.Recolour(plain);
        Expect(232, Answer::Yes);
        Press("Neu");
    }
    void Walk(std::deque<PlainTable>& from, std::deque<PlainTable>& to) {
        if (!from.empty()) {
            to.push_back(plain);
            plain = from.back();
            from.pop_back();
            channels.Recolour(plain);
        }
    }

    /// One action of the operator. True when it may have changed something.
    bool Act() {
        const int what = Below(1000);
        if (what < 60) {
            Walk(undo, redo);
            Window().F5_Undo_Click();
            return false;
        }
        if (what < 100) {
            Walk(redo, undo);
            Window().F5_Redo_Click();
            return false;
        }
        if (what < 260) {
            TypeName();
        } else if (what < 300) {
            Bring();
        } else if (what < 400) {
            TypeCode();
        } else if (what < 420) {
            TypeInVain();
        } else if (what < 500) {
            TypeLabel();
        } else if (what < 560) {
            ChooseRight();
        } else if (what < 790) {
            Mark();
        } else if (what < 880) {
            Delete();
        } else if (what < 950) {
            Learn();
        } else if (what < 990) {
            Move();
        } else if (what < 999) {
            plain.Sort();
            channels.Recolour(plain);
            Window().F5_Sort_Click();
        } else {
            Clear();
        }
        return true;
    }
    /// What the model has done since `stepFrom` is a step that can be taken back.
    void Keep() {
        if (!(plain == stepFrom)) {
            undo.push_back(stepFrom);
            redo.clear();
            if (undo.size() > Kept) {
                undo.pop_front();
            }
        }
        stepFrom = plain;
    }
    /// The same, and the rows that it changed are those of the model.
    void Step() {
        const PlainTable before = stepFrom = plain;
        if (Act()) {
            Keep();
        }
        ASSERT_EQ(Window().Verlauf.Steps(), undo.size());
        ExpectColours();
        for (int row = 2; row <= 251; ++row) {
            if (!plain.Same(before, row)) {
                ExpectRow(row);
            }
        }
    }

    /// But for the colours of column 6, which go by what is on the disk.
    std::vector<Cell> Whole() {
        std::vector<Cell> cells;
        for (int row = 0; row < 252; ++row) {
            for (int column = 0; column < 210; ++column) {
                cells.push_back(Cells().At(row, column));
                if (row > 1 && column == 6) {
                    cells.back().ForeColor = 0;
                }
            }
        }
        return cells;
    }
};

TEST_F(F5_Zufall, ten_thousand_actions_do_what_the_plain_rules_say) {
    for (int n = 0; n < 10000 && !HasFatalFailure(); ++n) {
        Step();
        world.Shown.clear();
    }
    ExpectRows(2, 251);
    ExpectChannels();
    EXPECT_GT(pasted, 10);
}

TEST_F(F5_Zufall, undo_of_all_gives_the_first_state_bit_for_bit_and_redo_the_last) {
    for (int n = 0; n < 5 && !HasFatalFailure(); ++n) {
        for (int m = 0; m < 100; ++m) {
            Step();
        }
        Window().Verlauf.Forget();
        undo.clear();
        redo.clear();
        const std::vector<Cell> first = Whole();
        while (undo.size() < Kept && !HasFatalFailure()) {
            Step();
        }
        const std::vector<Cell> last = Whole();
        while (Window().F5_Undo.Enabled()) {
            Walk(undo, redo);
            Window().F5_Undo_Click();
        }
        ASSERT_TRUE(Whole() == first);
        while (Window().F5_Redo.Enabled()) {
            Walk(redo, undo);
            Window().F5_Redo_Click();
        }
        ASSERT_TRUE(Whole() == last);
    }
}

} // namespace
} // namespace qvm::test
