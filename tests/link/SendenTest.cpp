#include "LinkFixture.h"

namespace qvm {
namespace {

using test::LinkFixture;

class Telegramm_Senden_Test : public LinkFixture {
protected:
    /// Indexes 0 to 2 and the payload of an addressed telegram without payload.
    void Telegramm(std::uint8_t code) {
        link.TxBuffer[0] = 2;
        link.TxBuffer[1] = 0x0D;
        link.TxBuffer[2] = code;
        link.TxBuffer[11] = 1;
        link.TxBuffer[12] = 0;
        link.TxBuffer[13] = 0;
    }
};

TEST_F(Telegramm_Senden_Test, opens_a_closed_port_by_the_links_number) {
    platform.PortOpen = false;
    link.PortNummer = 5;
    Telegramm(0x05);
    EXPECT_TRUE(Telegramm_Senden(link));
    EXPECT_EQ(platform.Opens, 1);
    EXPECT_EQ(platform.PortNumber, 5);
    EXPECT_EQ(Wire(), "02 0D 05 11 22 33 44 11 00 33 88 01 00 00 D6");
}

TEST_F(Telegramm_Senden_Test, leaves_an_open_port_alone) {
    Telegramm(0x05);
    EXPECT_TRUE(Telegramm_Senden(link));
    EXPECT_EQ(platform.Opens, 0);
}

TEST_F(Telegramm_Senden_Test, sends_nothing_counts_nothing_and_says_nothing_when_the_port_cannot_be_opened) {
    platform.PortOpen = false;
    platform.PortCanOpen = false;
    int shown = 0;
    link.Hooks.Fortschritt = [&] { ++shown; };
    Telegramm(0x05);
    EXPECT_FALSE(Telegramm_Senden(link));
    EXPECT_EQ(Wire(), "");
    EXPECT_FALSE(platform.Rts);
    EXPECT_EQ(link.Lauf.Progress.TelegramCounter, 0);
    EXPECT_EQ(link.Lauf.Progress.SecondProgress, 0);
    EXPECT_EQ(shown, 0);
    EXPECT_TRUE(platform.Shown.empty());
}

TEST_F(Telegramm_Senden_Test, every_builder_tells_that_its_telegram_did_not_leave) {
    platform.PortOpen = false;
    platform.PortCanOpen = false;
    EXPECT_FALSE(TelTrennen_Senden(link));
    EXPECT_FALSE(TelHistorie_Senden(link, 0));
    EXPECT_FALSE(TelVerbinden_Senden(link));
    EXPECT_FALSE(TelAdapterDaten_Senden(link));
}

TEST_F(Telegramm_Senden_Test, switches_the_request_to_send_line_on) {
    Telegramm(0x05);
    Telegramm_Senden(link);
    EXPECT_TRUE(platform.Rts);
}

TEST_F(Telegramm_Senden_Test, fills_the_header_from_the_links_address) {
    link.TargetAddress = {0xC1, 0xC2, 0xC3, 0xC4};
    link.DeviceClassByte = 0xC3;
    link.AddressMode = 2;
    Telegramm(0x05);
    Telegramm_Senden(link);
    EXPECT_EQ(Wire(), "02 0D 05 C1 C2 C3 C4 C3 02 00 33 88 01 00 00 98");
}

TEST_F(Telegramm_Senden_Test, sends_mode_1_as_it_stands) {
    link.AddressMode = 1;
    Telegramm(0x05);
    Telegramm_Senden(link);
    EXPECT_EQ(Wire(), "02 0D 05 11 22 33 44 11 01 33 88 01 00 00 F6");
}

TEST_F(Telegramm_Senden_Test, sends_an_unknown_mode_as_0) {
    link.AddressMode = 3;
    Telegramm(0x05);
    Telegramm_Senden(link);
    EXPECT_EQ(Wire(), "02 0D 05 11 22 33 44 11 00 33 88 01 00 00 D6");
}

TEST_F(Telegramm_Senden_Test, stuffs_each_02_of_the_address) {
    link.TargetAddress = {0x02, 0x02, 0x00, 0x02};
    Telegramm(0x05);
    Telegramm_Senden(link);
    EXPECT_EQ(Wire(), "02 0D 05 02 00 02 00 00 02 00 11 00 33 88 01 00 00 06");
}

TEST_F(Telegramm_Senden_Test, does_not_stuff_a_length_of_2) {
    link.TxBuffer[0] = 2;
    link.TxBuffer[1] = 2;
    link.TxBuffer[2] = 0x68;
    EXPECT_TRUE(Telegramm_Roh_Senden(link));
    // 02: 2; 02: 4 + 2 = 6; 68: 12 + 104 = 116.
    EXPECT_EQ(Wire(), "02 02 68 74");
}

TEST_F(Telegramm_Senden_Test, stuffs_a_checksum_of_2) {
    link.TxBuffer[0] = 2;
    link.TxBuffer[1] = 3;
    link.TxBuffer[2] = 6;
    link.TxBuffer[3] = 0xD9;
    EXPECT_TRUE(Telegramm_Roh_Senden(link));
    EXPECT_EQ(Wire(), "02 03 06 D9 02 00");
}

TEST_F(Telegramm_Senden_Test, sends_the_longest_telegram_of_nothing_but_02) {
    link.TxBuffer.fill(2);
    link.TxBuffer[1] = 0xFF;
    EXPECT_TRUE(Telegramm_Roh_Senden(link));
    // Start and length, 254 stuffed bytes, and the checksum.
    EXPECT_EQ(platform.Written.size(), 2U + 2U * 254U + 1U);
    EXPECT_EQ(platform.Written[2], 2);
    EXPECT_EQ(platform.Written[3], 0);
}

TEST_F(Telegramm_Senden_Test, raises_the_first_bar_by_one_and_the_second_by_four) {
    Telegramm(0x05);
    Telegramm_Senden(link);
    Telegramm_Senden(link);
    EXPECT_EQ(link.Lauf.Progress.TelegramCounter, 2);
    EXPECT_EQ(link.Lauf.Progress.ProgressValue, 2);
    EXPECT_EQ(link.Lauf.Progress.SecondProgress, 8);
}

TEST_F(Telegramm_Senden_Test, lets_the_first_bar_begin_anew_when_it_comes_within_5_of_its_maximum) {
    link.Lauf.Progress.ProgressMaximum = 20;
    link.Lauf.Progress.TelegramCounter = 14;
    Telegramm(0x05);
    Telegramm_Senden(link);
    EXPECT_EQ(link.Lauf.Progress.ProgressValue, 15);
    Telegramm_Senden(link);
    EXPECT_EQ(link.Lauf.Progress.TelegramCounter, 0);
    EXPECT_EQ(link.Lauf.Progress.ProgressValue, 0);
}

TEST_F(Telegramm_Senden_Test, lets_the_second_bar_begin_anew_behind_27) {
    link.Lauf.Progress.SecondProgress = 23;
    Telegramm(0x05);
    Telegramm_Senden(link);
    EXPECT_EQ(link.Lauf.Progress.SecondProgress, 27);
    Telegramm_Senden(link);
    EXPECT_EQ(link.Lauf.Progress.SecondProgress, 0);
}

TEST_F(Telegramm_Senden_Test, shows_the_progress_of_the_telegram_that_left) {
    int value = 0;
    std::size_t written = 0;
    link.Hooks.Fortschritt = [&] {
        value = link.Lauf.Progress.ProgressValue;
        written = platform.Written.size();
    };
    Telegramm(0x05);
    Telegramm_Senden(link);
    EXPECT_EQ(value, 1);
    EXPECT_EQ(written, 15U);
}

class Telegramm_Kopf_Test : public LinkFixture {};

TEST_F(Telegramm_Kopf_Test, fills_0_to_12_and_leaves_13) {
    Telegramm_Kopf(link, 0x1D, 0x0B);
    const std::vector<std::uint16_t> head(link.TxBuffer.begin(), link.TxBuffer.begin() + 14);
    EXPECT_EQ(head, (std::vector<std::uint16_t>{2, 0x1D, 0x0B, 1, 1, 1, 1, 2, 2, 2, 2, 1, 0, 0x5A}));
}

TEST_F(Telegramm_Kopf_Test, Kopf2_sends_both_parameters_when_the_length_has_room) {
    link.TelegrammParam1 = 0x21;
    link.TelegrammParam2 = 0x22;
    EXPECT_TRUE(Telegramm_Kopf2(link, 0x0F, 0x67));
    EXPECT_EQ(Wire(), "02 0F 67 11 22 33 44 11 00 33 88 01 00 00 21 22 8C");
}

TEST_F(Telegramm_Kopf_Test, Kopf2_loses_the_second_parameter_to_the_checksum) {
    link.TelegrammParam1 = 0x21;
    link.TelegrammParam2 = 0x22;
    EXPECT_TRUE(Telegramm_Kopf2(link, 0x0E, 0x17));
    EXPECT_EQ(Wire(), "02 0E 17 11 22 33 44 11 00 33 88 01 00 00 21 10");
}

class Port_Test : public LinkFixture {};

TEST_F(Port_Test, Port_Oeffnen_closes_the_open_port_and_opens_the_other) {
    EXPECT_TRUE(Port_Oeffnen(link, 9));
    EXPECT_EQ(platform.Closes, 1);
    EXPECT_EQ(platform.PortNumber, 9);
    EXPECT_EQ(link.PortNummer, 9);
}

TEST_F(Port_Test, Port_Oeffnen_does_not_close_a_closed_port) {
    platform.PortOpen = false;
    EXPECT_TRUE(Port_Oeffnen(link, 9));
    EXPECT_EQ(platform.Closes, 0);
}

TEST_F(Port_Test, Port_Oeffnen_tells_that_it_failed_and_remembers_the_number) {
    platform.PortCanOpen = false;
    EXPECT_FALSE(Port_Oeffnen(link, 9));
    EXPECT_EQ(link.PortNummer, 9);
    EXPECT_FALSE(platform.PortOpen);
}

TEST_F(Port_Test, Port_Neu_opens_the_same_port_and_keeps_the_automatons_state) {
    platform.Deliver(test::Hex("02 06 72"));
    platform.RunFor(1);
    link.PortNummer = 3;
    EXPECT_TRUE(Port_Neu(link));
    EXPECT_EQ(platform.Closes, 1);
    EXPECT_EQ(platform.PortNumber, 3);
    EXPECT_EQ(link.Rx.RxState, 2);
    EXPECT_EQ(link.Rx.RxIndex, 3);
}

} // namespace
} // namespace qvm
