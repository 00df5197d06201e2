// What an operator may do in the user window, in any order, held against the plain rules.

#include "F5Modell.h"
#include "LeserFixture.h"
#include "Zeit.h"

#include <algorithm>
#include <cstdint>
#include <deque>
#include <optional>
#include <random>

namespace qvm::test {
namespace {

struct F5_Zufall : LeserFixture {
    static constexpr std::size_t Kept = 100; ///< steps that an undo remembers

    std::mt19937 dice{20260305};
    PlainTable plain;
    std::deque<PlainTable> undo, redo;
    PlainTable stepFrom;                    ///< before the step that is being made
    std::array<std::string, 252> templates; ///< by slot: whose is on the disk
    std::optional<PlainUser> cut;           ///< whose key was cut and not pasted yet
    int pasted = 0;

    void SetUp() override {
        for (int lock = 1; lock <= 200; ++lock) {
            if (PlainTable::Named(lock)) {
                files.Lock(lock, "L" + std::to_string(lock), SerialS);
            }
        }
        files.User(250, {.Name = {}, .Code = {}, .Right = {}}); // a file of empty rows
        for (int user = 1; user <= 250; ++user) {
            files.Put("RFCHANDIF12.RFX", 15, user, 0, 15, "1  7  7  1  0  "); // every key is in step
        }
        OpenDesk();
        Window().Timer1.Stop();
        Window().Timer2.Stop();
        ExpectRows(2, 251);
    }

    int Below(int n) { return static_cast<int>(dice() % static_cast<unsigned>(n)); }
    /// Most work is done at the top of the table.
    int Row() { return 2 + (Below(50) == 0 ? Below(250) : Below(30)); }
    int Lock() { return Below(8) == 0 ? 199 + Below(2) : 1 + Below(14); }
    std::string Name() {
        switch (Below(30)) {
        case 0:
            return "";
        case 1:
            return "ZZZZZZZZZZ";
        case 2:
            return "\xC4" + std::to_string(Below(40));
        default:
            return (Below(2) == 0 ? "B" : "b") + std::to_string(Below(40));
        }
    }
    std::string Code() { return Below(9) == 0 ? "" : std::to_string(100000 + Below(60)); }

    /// The row of the grid, as far as it can be told apart, is that of the model.
    void ExpectRow(int row) {
        const PlainUser& user = plain.At(row);
        const std::array<std::string, 6> texts{user.Name, user.Group, user.Right, user.Code, user.Label, user.Key};
        for (int column = 1; column <= 6; ++column) {
            ASSERT_EQ(Text(row, column), texts[static_cast<std::size_t>(column) - 1]) << row << "/" << column;
        }
        ASSERT_EQ(Cells().At(row, 7).Picture, user.Picture) << row;
        ASSERT_EQ(Text(row, 208) + "," + Text(row, 209), user.KeyData + "," + user.Finger) << row;
        for (std::size_t lock = 1; lock <= 200; ++lock) {
            const char mark = user.Marks[lock];
            const Cell& cell = Cells().At(row, static_cast<int>(lock) + 7);
            const bool finger = mark == 'F' || mark == ' '; // what a removed finger leaves
            const Colour colour = mark == 'X' ? 0x00C000U : finger ? 0x808080U : 0xFFFFFFU;
            if (cell.Text != std::string(mark == 0 ? 0 : 1, mark) || cell.ForeColor != colour ||
                cell.FontSize != (mark == 0 ? 8 : 16)) {
                FAIL() << row << ", lock " << lock << ": " << cell.Text;
            }
        }
    }
    void ExpectRows(int first, int last) {
        for (int row = first; row <= last; ++row) {
            ExpectRow(row);
        }
    }

    void Write(int row, int column, const std::string& text, bool away) {
        Go(row, column);
        Key(qvm::Key::Enter);
        Window().Editor_Change("");
        Window().Editor_Change(text);
        if (away) {
            Window().Editor_LostFocus();
        } else {
            Window().Editor_KeyPress(Below(2) == 0 ? qvm::Key::Enter : qvm::Key::Tab);
        }
    }
    void Refused(bool refused) {
        if (refused) {
            ExpectTwice();
        }
    }
    void TypeName() {
        const int row = Row();
        const std::string name = Name();
        const bool away = Below(3) == 0;
        if (away) {
            plain.LeaveName(row, name);
        } else {
            Refused(plain.ConfirmName(row, name));
        }
        Write(row, 1, name, away);
    }
    void TypeCode() {
        const int row = Row();
        const std::string code = Code();
        const bool away = Below(3) == 0;
        if (away) {
            plain.LeaveCode(row, code);
        } else {
            Refused(plain.ConfirmCode(row, code));
        }
        Write(row, 4, code, away);
    }
    void TypeLabel() {
        const int row = Row();
        if (plain.At(row).Label.starts_with("Slot_Nr:")) {
            Go(row, 5);
            Key('x');
            ASSERT_EQ(Window().OpenColumn, 0);
            return;
        }
        const std::string label = "K" + std::to_string(Below(50));
        const bool away = Below(3) == 0;
        if (away) {
            plain.SetLabel(row, label);
        } else {
            Refused(plain.ConfirmLabel(row, label));
        }
        Write(row, 5, label, away);
    }
    /// Escape leaves everything as it was.
    void TypeInVain() {
        const int row = Row();
        const int column = std::array{1, 4}[static_cast<std::size_t>(Below(2))];
        Go(row, column);
        Key(qvm::Key::Enter);
        Window().Editor_Change(column == 1 ? Name() : Code());
        Window().Editor_KeyPress(qvm::Key::Escape);
        ASSERT_EQ(Window().OpenColumn, 0);
        ExpectRow(row);
    }
    /// A whole text, as an assistive program brings it, is confirmed like a typed one.
    void Bring() {
        const int row = Row();
        const std::string name = Name();
        Refused(plain.ConfirmName(row, name));
        Window().FGK4_Eintragen(row, 1, name);
    }
    void ChooseRight() {
        const int row = Row();
        const int entry = Below(6);
        plain.SetRight(
            row, std::array<const char*, 6>{"1", "0", "1/2", "1/3", "ADMI", "FS+"}[static_cast<std::size_t>(entry)]);
        Go(row, 3);
        Key('r');
        Window().List2.Selected = entry;
        Window().Editor_KeyPress(qvm::Key::Enter);
    }
    void Mark() {
        const int row = Row();
        const int lock = Lock();
        if (Below(2) == 0) {
            plain.StepMarks(row, lock, row, lock);
            Go(row, lock + 7);
            Window().FGK4_MouseUp(MouseButton::Left, row, lock + 7);
            return;
        }
        const int bottom = std::min(row + Below(20), 251);
        const int last = std::min(lock + Below(10), 200);
        plain.StepMarks(row, lock, bottom, last);
        Select(row, lock + 7, bottom, last + 7);
        Key(Below(2) == 0 ? qvm::Key::Enter : ' ');
    }
    void DeleteByMenu(int row, int bottom) {
        const int column = std::array{1, 4, 5, 7, 8, 9, 11, 206, 207}[static_cast<std::size_t>(Below(9))];
        Select(row, column, bottom, column);
        if (column == 1) {
            Window().MenuRow = bottom;
            plain.DeleteUsers(row, bottom, bottom);
        } else if (column == 4) {
            plain.ClearCodes(row, bottom);
        } else if (column == 5) {
            plain.ClearLabels(row, bottom);
        } else if (column >= 9 && column <= 206) { // two short of the first lock, one of the last
            plain.ClearMarks(row, bottom, column - 7);
        }
        Window().F5_Loeschen_Click();
    }
    void Delete() {
        const int row = Row();
        const int bottom = std::min(row + Below(3), 251);
        const int what = Below(7);
        if (what > 4) {
            DeleteByMenu(row, bottom);
        } else if (what == 4) {
            const int column = Below(2) == 0 ? 5 : 7; // of 7 the picture stays
            if (column == 5) {
                plain.ClearLabels(row, bottom);
            }
            Select(row, column, bottom, column);
            Key(qvm::Key::Delete);
        } else if (what == 0) {
            plain.DeleteUsers(row, bottom, bottom);
            Select(row, 1, bottom, 1);
            Key(qvm::Key::Delete);
        } else if (what == 1) {
            plain.ClearCodes(row, bottom);
            Select(row, 4, bottom, 4);
            Key(qvm::Key::Delete);
        } else if (what == 2) {
            plain.ClearKeys(row, bottom);
            Select(row, 6, bottom, 6);
            Expect(77, Answer::Ok);
            Window().Key_loeschen_Click();
        } else {
            const int lock = Lock();
            if (lock != 200) { // one short of the last lock
                plain.ClearMarks(row, bottom, lock);
            }
            Select(row, lock + 7, bottom, lock + 7);
            Key(qvm::Key::Delete);
        }
    }
    /// A key comes from its reader; one that somebody has already is refused.
    void LearnKey() {
        const int row = Row();
        const int number = Below(400);
        const std::string id = "9 : 8 : " + std::to_string(number / 256) + " : " + std::to_string(number % 256);
        Window().MenuRow = row;
        Expect(154, Answer::Yes);
        ExpectText("L76\r\nL44");
        Keys().Save_Ekey_Click();
        if (plain.KeyRow(id) != 0) {
            Expect(73);
        } else {
            plain.SetKey(row, id, "1 : 2 : 3 : 4 : 5 : 6 : 7 : 8 : 9 : 10 : 11 : 12 : 13 : 14 : 15 : 16");
        }
        SayKey({9, 8, static_cast<std::uint8_t>(number / 256), static_cast<std::uint8_t>(number % 256)});
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
        const int what = Below(10);
        if (what < 3) {
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
            cut.reset();
            ++pasted;
        }
    }
    void Clear() {
        plain.Clear();
        Expect(232, Answer::Yes);
        Press("Neu");
    }
    void Walk(std::deque<PlainTable>& from, std::deque<PlainTable>& to) {
        if (!from.empty()) {
            to.push_back(plain);
            plain = from.back();
            from.pop_back();
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
        for (int row = 2; row <= 251; ++row) {
            if (!plain.Same(before, row)) {
                ExpectRow(row);
            }
        }
    }

    std::vector<Cell> Whole() {
        std::vector<Cell> cells;
        for (int row = 0; row < 252; ++row) {
            for (int column = 0; column < 210; ++column) {
                cells.push_back(Cells().At(row, column));
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
