#pragma once

#include "FensterFixture.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace qvm::test {

/// Window F6 with the automatic search and two stored adapters: one that answered the last search on port 7, whose
/// record says port 5, and one that did not.
struct F6_Fixture : FensterFixture {
    static constexpr const char* Settings = "/q/DAT/EST7CSB29A.I_1";
    static constexpr const char* List = "/q/DAT/COMSETUPADAPTER.ADP";

    int returned = 0;
    Listener back;
    int prepared = 0;
    std::optional<std::string> StoredName; ///< what an adapter reads back; none: it is silent
    std::vector<std::uint8_t> BehindReply; ///< further bytes in the event that brings it
    std::vector<std::string> Names;        ///< the 22 bytes of each name telegram
    std::vector<int> NamePorts;            ///< and its port

    void SetUp() override;

    /// A record by offsets typed by hand.
    static std::string Record(std::string_view address, std::string_view name, std::string_view port);
    void Open();
    struct F6& Adapters() {
        return programm->Main->F6;
    }
    const std::string& Cell(int row, int column) { return Adapters().FGK6.Text(row, column); }
    int Picture(int row) { return Adapters().FGK6.At(row, F6Column::State).Picture; }
    Colour Back(int row) { return Adapters().FGK6.At(row, F6Column::Name).BackColor; }
    void Press(std::string_view key) { Adapters().Toolbar1_ButtonClick(key); }
    void GoBack() { Press(u8"Zurück"_w); }
    /// Opens the editor of the row's name, sets its text and ends it with Return.
    void Rename(int row, std::string_view name);

    /// The reply to a name: the name from index 8 on, blanks behind it.
    static std::vector<std::uint8_t> NameReply(std::string_view name);

private:
    void Answer_Name(std::span<const std::uint8_t> bytes);
};

} // namespace qvm::test
