#pragma once

#include "FensterFixture.h"
#include "PersonWindows.h"

#include <string>
#include <string_view>

namespace qvm::test {

/// The user window over data files that a test writes before it opens it. Rows: user n stands in row n + 1; columns:
/// lock n in column n + 7.
struct F5Fixture : FensterFixture {
    static constexpr const char* Users = "/q/DAT/BX10X52WUJ9.UBW";

    struct F5& Window() {
        return programm->Persons->F5;
    }
    Grid& Cells() { return Window().FGK4; }
    const std::string& Text(int row, int column) { return Cells().Text(row, column); }

    /// Starts the program and opens the window. Its timers stand, so that a test's wait can end.
    void Open() {
        if (!programm) {
            Start();
        }
        Window().F5_FormLaden();
    }
    void Press(std::string_view key) { Window().Toolbar1_ButtonClick(key); }
    void Back() { Press(u8"Zurück"_w); }
    /// From now on the nth file operation fails, and with `rest` all behind it.
    void Break(int n, bool rest) {
        world.Disk.FailAt = world.Disk.Operations + n;
        world.Disk.FailFromThere = rest;
    }
    void Go(int row, int column) { Window().Auswahl.Go(row, column); }
    /// Selects from the first cell to the last, which becomes the current one.
    void Select(int top, int left, int bottom, int right) {
        Window().Auswahl.Go(top, left);
        Window().Auswahl.Extend(bottom, right);
    }
    void Key(int key) { Window().FGK4_KeyPress(key); }
    /// Types into the open box, character by character.
    void Type(std::string_view text) {
        const TextBox* box = Box();
        ASSERT_NE(box, nullptr);
        for (const char character : text) {
            Window().Editor_Change(box->Text() + character);
        }
    }
    void Backspace() {
        const TextBox* box = Box();
        ASSERT_NE(box, nullptr);
        Window().Editor_Change(box->Text().substr(0, box->Text().size() - 1));
    }
    /// The box that is open.
    const TextBox* Box() {
        for (const TextBox* box : {&Window().Text1, &Window().Text2, &Window().Text7}) {
            if (box->Visible()) {
                return box;
            }
        }
        return nullptr;
    }
    /// Opens the editor of the cell with its text, replaces it and presses the key.
    void Enter(int row, int column, std::string_view text, int last = qvm::Key::Enter) {
        Go(row, column);
        Key(qvm::Key::Enter);
        if (Box() != nullptr) {
            Window().Editor_Change("");
            Type(text);
        }
        Window().Editor_KeyPress(last);
    }
    void ExpectTwice() { Expect(75); }
    bool Asked() const { return !world.Shown.empty(); }
    /// The texts of a row, columns first to last, with "|" between.
    std::string Row(int row, int first, int last) {
        std::string text;
        for (int column = first; column <= last; ++column) {
            text += (column == first ? "" : "|") + Cells().Text(row, column);
        }
        return text;
    }
};

} // namespace qvm::test
