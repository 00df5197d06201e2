#pragma once

#include "F5Modell.h"
#include "LeserFixture.h"

#include <algorithm>
#include <array>
#include <random>
#include <string>

namespace qvm::test {

/// The user window, the plain table that it is held against, and what is done in both by typing, marking and deleting.
struct ZufallFixture : LeserFixture {
    std::mt19937 dice{20260305};
    PlainTable plain;
    PlainChannels channels;

    void SetUp() override {
        for (int lock = 1; lock <= 200; ++lock) {
            if (PlainTable::Named(lock)) {
                files.Lock(lock, "L" + std::to_string(lock), SerialS);
            }
        }
        files.User(250, {.Name = {}, .Code = {}, .Right = {}}); // a file of empty rows
        for (int user = 1; user <= 250; ++user) {
            PlainChannel& channel = channels.Of(user + 1);
            if (user % 11 != 0) {
                channel.Target = user % 4 == 0 ? "12" : user % 4 == 1 ? "1" : "7";
                channel.Old = user % 5 == 0 ? "3" : user % 7 == 0 ? "" : channel.Target;
                channel.Change = user % 5 == 0 ? "1" : "0";
            }
            files.Put("RFCHANDIF12.RFX", 15, user, 0, 15, channel.Record());
        }
        channels.Recolour(plain);
        OpenDesk();
        Window().Timer1.Stop();
        Window().Timer2.Stop();
        ExpectRows(2, 251);
    }

    void ExpectColours() {
        for (int row = 2; row <= 251; ++row) {
            ASSERT_EQ(Cells().At(row, 6).ForeColor, channels.Red[static_cast<std::size_t>(row)] ? 0x0000FFU : 0U)
                << row;
        }
    }
    void ExpectChannels() {
        for (int user = 1; user <= 250; ++user) {
            ASSERT_EQ(Channel(user), channels.Of(user + 1).Record()) << user;
        }
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
            channels.Recolour(plain);
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
            channels.Recolour(plain);
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
};

} // namespace qvm::test
