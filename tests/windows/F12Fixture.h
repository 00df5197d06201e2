#pragma once

#include "FensterFixture.h"
#include "LockWindows.h"

#include <array>
#include <string>
#include <string_view>

namespace qvm::test {

/// The lock window over data files that a test writes before it opens it. Lock n stands in row n.
struct F12Fixture : FensterFixture {
    static constexpr const char *Locks = "/q/DAT/C64UX12H3D.EBW", *Priorities = "/q/DAT/CPRT88X3FDA.PRT",
                                *Emi = "/q/DAT/LSOEMIPART.LMT", *Bindings = "/q/DAT/SBSCLKZU.SB1",
                                *LockAdapters = "/q/DAT/LOCKCLASSCOMX.CMB", *Doors = "/q/DAT/DOOR1MODEDT.DTA",
                                *Units = "/q/DAT/T6WRSSISN.TSD", *Channels = "/q/DAT/RFCHANDIF12.RFX",
                                *Offsets = "/q/DAT/T4OFFSETGST.FST";

    struct F12& Window() {
        return programm->Locks->F12;
    }
    Grid& Cells() { return Window().FGK12; }
    const std::string& Text(int row, int column) { return Cells().Text(row, column); }
    int Picture(int row, int column) { return Cells().At(row, column).Picture; }
    std::string& File(const char* path) { return world.Disk.Files[path]; }

    void Open() {
        if (!programm) {
            Start();
        }
        Window().F12_FormLaden();
    }
    void Press(std::string_view key) { Window().Toolbar1_ButtonClick(key); }
    void Back() { Press(u8"Zurück"_w); }
    /// From now on the nth file operation fails, and with `rest` all behind it.
    void Break(int n, bool rest) {
        world.Disk.FailAt = world.Disk.Operations + n;
        world.Disk.FailFromThere = rest;
    }
    void Mend() {
        world.Disk.FailAt = 0;
        world.Disk.FailFromThere = false;
    }
    void ExpectWord(Word word) { world.Answers.push_back({.Text = Wort(programm->kern, word)}); }
    void Go(int row, int column) { Window().Auswahl.Go(row, column); }
    void Select(int top, int left, int bottom, int right) {
        Go(top, left);
        Window().Auswahl.Extend(bottom, right);
    }
    void Key(int key) { Window().FGK12_KeyPress(key); }
    void Hit(int row, int column, MouseButton button = MouseButton::Left) {
        Window().FGK12_MouseUp(button, row, column);
    }
    void TypeName(std::string_view text) {
        for (const char character : text) {
            Window().Text1_Change(Window().Text1.Text() + character);
        }
    }
    /// Opens the box of a name with its text, replaces it and presses the key.
    void EnterName(int row, std::string_view name, int last = qvm::Key::Enter) {
        Go(row, 1);
        Key(qvm::Key::Enter);
        Window().Text1_Change("");
        TypeName(name);
        Window().Editor_KeyPress(last);
    }
    /// Types into the box that is entered, as the focus goes on from one to the next.
    void TypeSerial(std::string_view digits) {
        std::size_t box = 0;
        for (const char digit : digits) {
            const std::string& text = Window().Serie.Boxes[box].Text();
            Window().Serie_Change(box, text + digit);
            if (Window().Serie.Boxes[box].Text().size() == 2 && box < 3) {
                ++box;
            }
        }
    }
    /// Opens the boxes of a serial number, types and confirms in the last one.
    void EnterSerial(int row, std::string_view digits) {
        Go(row, 2);
        Key(qvm::Key::Enter);
        TypeSerial(digits);
        Window().Serie_KeyPress(3, qvm::Key::Enter);
    }
    /// Opens the list of the cell and chooses an entry.
    void Choose(int row, int column, int entry, int last = qvm::Key::Enter) {
        Go(row, column);
        Key(qvm::Key::Enter);
        for (ListBox* list : {&Window().List1, &Window().List2, &Window().List3, &Window().List4, &Window().List5}) {
            if (list->Visible()) {
                list->Selected = entry;
            }
        }
        Window().Editor_KeyPress(last);
    }
    std::array<int, 5> Switches(int row) {
        return {Picture(row, 4), Picture(row, 5), Picture(row, 6), Picture(row, 7), Picture(row, 8)};
    }
    /// The texts of a row, columns first to last, with "|" between.
    std::string Row(int row, int first, int last) {
        std::string text;
        for (int column = first; column <= last; ++column) {
            text += (column == first ? "" : "|") + Text(row, column);
        }
        return text;
    }
    void AddOffset(int number, std::string_view name) {
        files.Put("T4OFFSETGST.FST", 38, number, 0, 20, name);
        files.Put("T4OFFSETGST.FST", 38, number, 30, 8, "OFST0x0" + std::to_string(number));
    }
};

} // namespace qvm::test
