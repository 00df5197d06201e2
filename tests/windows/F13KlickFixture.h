#pragma once

#include "FensterFixture.h"

namespace qvm::test {

/// F13 open over the data of a house, to be clicked on.
struct F13_Klick : FensterFixture {
    int Code_Windows = 0;
    std::vector<std::uint8_t> SentBeforeCode;

    void Open() {
        Start();
        programm->Transfer->F13.F17_Oeffnen = [this] {
            ++Code_Windows;
            SentBeforeCode = world.Written;
        };
        Begin();
    }
    bool StartOpen() { return programm->Transfer->F11.Fenster.Visible; }
    bool GridEnabled() { return programm->Transfer->F13.Fenster.Enabled; }

    /// 48 users where a lock of this range holds 47: the dataset ends with line 248.
    static constexpr std::string_view SmallLock = "01.20.00.01";
    void TooManyUsers() {
        for (int user = 1; user <= 48; ++user) {
            files.User(user, {.Name = "U" + std::to_string(user), .Marks = {{1, 'X'}}});
        }
    }
};

} // namespace qvm::test
