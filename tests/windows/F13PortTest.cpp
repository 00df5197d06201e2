// The port that a click in F13 takes, with and without the adapter mode.

#include "FensterFixture.h"

namespace qvm::test {
namespace {

struct F13_Adapter_Port : FensterFixture {
    F13_Adapter_Port() { SettledLock(1, "Tor"); }

    /// In adapter mode, with this adapter beside the lock and the two adapters that are there.
    void OpenWith(std::string_view address, std::string_view name, std::string_view port = "7") {
        Config("SET", 3, 5);
        SettledLock(1, "Tor");
        std::string& record = files.File("LOCKCLASSCOMX.CMB");
        record.assign(std::size_t{48} * 200, ' ');
        record.replace(0, address.size(), address);
        record.replace(16, name.size(), name);
        Start();
        AddAdapter("/1/2/3/4", "PROGSTATION-A", port);
        AddAdapter("/5/6/7/8", "PROGSTATION-B", "9");
        Begin();
    }
    /// The click ended at a message: no port was touched, no mark set.
    void ExpectStopped(const std::string& text) {
        ASSERT_EQ(world.Shown.size(), 1U);
        EXPECT_EQ(world.Shown[0], (Message{.Text = text,
                                           .Title = "QVM 7702 SOFTWARE SYSTEM",
                                           .Choice = Buttons::Ok,
                                           .Sign = Icon::Exclamation,
                                           .DefaultButton = 1,
                                           .About = "Schloss 1: Tor"}));
        EXPECT_EQ(world.Opens, 0);
        EXPECT_EQ(Mark(1), "");
        EXPECT_FALSE(programm->Transfer->F11.Fenster.Visible);
        EXPECT_TRUE(programm->Transfer->F13.Fenster.Enabled);
    }
    void ClickExpecting(const std::string& text) {
        world.Answers.push_back({.Text = text});
        Click(1, F13Column::Program);
        ExpectStopped(text);
    }
};

TEST_F(F13_Adapter_Port, without_adapter_mode_is_that_of_the_serial_link) {
    Begin();
    Click(1, F13Column::Status);
    EXPECT_EQ(world.PortNumber, 5);
}

TEST_F(F13_Adapter_Port, without_adapter_mode_looks_at_no_adapter) {
    Start();
    AddAdapter("/1/2/3/4", "PROGSTATION-A", "7");
    Begin();
    Click(1, F13Column::Status);
    EXPECT_EQ(world.PortNumber, 5);
}

TEST_F(F13_Adapter_Port, fifteen_is_the_last_that_is_taken) {
    Config("RESET", 3, 15);
    Begin();
    Click(1, F13Column::Status);
    EXPECT_EQ(world.PortNumber, 15);
}

TEST_F(F13_Adapter_Port, sixteen_is_refused) {
    Config("RESET", 3, 16);
    Begin();
    ClickExpecting("L194");
}

TEST_F(F13_Adapter_Port, none_on_the_serial_link_is_said) {
    Begin();
    programm->link.PortNummer = 0xFF;
    ClickExpecting("L192\r\nL193");
}

TEST_F(F13_Adapter_Port, a_lock_without_an_adapter_stops_before_the_dialog) {
    OpenWith("", "PROGSTATION-A");
    ClickExpecting("L198");
}

TEST_F(F13_Adapter_Port, no_adapter_at_all_counts_as_none_assigned) {
    Config("SET", 3, 5);
    Begin();
    ClickExpecting("L198");
}

TEST_F(F13_Adapter_Port, the_adapter_of_the_address_gives_the_port) {
    OpenWith("/1/2/3/4", "PROGSTATION-A");
    Click(1, F13Column::Status);
    EXPECT_EQ(world.PortNumber, 7);
    EXPECT_EQ(programm->link.PortNummer, 7);
}

TEST_F(F13_Adapter_Port, the_address_counts_more_than_the_name) {
    OpenWith("/5/6/7/8", "PROGSTATION-A");
    Click(1, F13Column::Status);
    EXPECT_EQ(world.PortNumber, 9);
}

TEST_F(F13_Adapter_Port, an_unknown_address_falls_back_on_the_name) {
    OpenWith("/9/9/9/9", "PROGSTATION-B");
    Click(1, F13Column::Status);
    EXPECT_EQ(world.PortNumber, 9);
}

TEST_F(F13_Adapter_Port, an_adapter_that_is_not_there_is_said_in_two_lines) {
    OpenWith("/9/9/9/9", "PROGSTATION-C");
    ClickExpecting("L192\r\nL193");
}

TEST_F(F13_Adapter_Port, the_only_adapter_serves_every_lock) {
    Config("SET", 3, 5);
    SettledLock(1, "Tor");
    Start();
    AddAdapter("/1/2/3/4", "PROGSTATION-A", "12");
    Begin();
    Click(1, F13Column::Status);
    EXPECT_EQ(world.PortNumber, 12);
}

struct PortText {
    const char *Port, *Message;
};

void PrintTo(const PortText& p, std::ostream* out) {
    *out << '"' << p.Port << '"';
}

struct F13_Adapter_Port_Text : F13_Adapter_Port, ::testing::WithParamInterface<PortText> {};

TEST_P(F13_Adapter_Port_Text, that_names_no_usable_port_stops_with_its_message) {
    OpenWith("/1/2/3/4", "PROGSTATION-A", GetParam().Port);
    ClickExpecting(GetParam().Message);
}

INSTANTIATE_TEST_SUITE_P(Texts, F13_Adapter_Port_Text,
                         ::testing::Values(PortText{"255", "L192\r\nL193"}, PortText{"", "L192\r\nL193"},
                                           PortText{"0", "L192\r\nL193"}, PortText{"-1", "L192\r\nL193"},
                                           PortText{"16", "L194"}, PortText{"99", "L194"}));

} // namespace
} // namespace qvm::test
