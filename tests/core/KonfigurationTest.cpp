#include "Konfiguration.h"

#include "Kern.h"
#include "VirtualPlatform.h"

#include <array>
#include <gtest/gtest.h>
#include <string>
#include <utility>

namespace qvm {
namespace {

using namespace std::string_literals;

constexpr char Settings[] = "/qvm/DAT/EST7CSB29A.I_1";
constexpr char Adapter[] = "/qvm/DAT/CHEUSB25C.I_2";

struct KonfigurationDateien : testing::Test {
    test::VirtualPlatform welt;
    Kern kern{welt.World};
    std::map<std::string, std::string>& files = welt.Disk.Files;

    KonfigurationDateien() { kern.AppPath = "/qvm/"; }

    int Port_Bei(const std::string& portName) {
        files[Settings] = "Deutsch\r\n1\r\n" + portName + "\r\n1\r\n";
        Konfiguration_Laden(kern);
        return kern.Config.PortNummer;
    }

    void Nicht_Standard() {
        kern.Config.Sprache = "English";
        kern.Config.Sprachnummer = "2";
        kern.Config.PortName = "USB-Port7";
        kern.Config.RadioChannel = "12";
        kern.Config.PortAutomatik = "RESET";
        kern.Config.AdapterFeld = {"a", "", "ccccc", "dddddd", " e"};
    }
};

TEST_F(KonfigurationDateien, without_files_the_defaults_stand) {
    Nicht_Standard();
    Konfiguration_Laden(kern);
    EXPECT_EQ(kern.Config.Sprache, "Deutsch");
    EXPECT_EQ(kern.Config.Sprachnummer, "1");
    EXPECT_EQ(kern.Config.PortName, "USB-PORT");
    EXPECT_EQ(kern.Config.RadioChannel, "");
    EXPECT_EQ(kern.Config.PortAutomatik, "SET");
    EXPECT_EQ(kern.Config.AdapterFeld, (std::array<std::string, 5>{}));
    EXPECT_EQ(kern.Config.PortNummer, 1);
    EXPECT_EQ(kern.Config.Funkkanal(), 1);
    EXPECT_TRUE(kern.Config.AdapterModus());
    EXPECT_TRUE(files.empty());
}

TEST_F(KonfigurationDateien, the_defaults_are_written_as_four_and_as_six_lines) {
    EXPECT_TRUE(Konfiguration_Speichern(kern));
    EXPECT_EQ(files[Settings], "Deutsch\r\n1\r\nUSB-PORT\r\n\r\n");
    EXPECT_EQ(files[Adapter], "SET       \r\n     \r\n     \r\n     \r\n     \r\n     \r\n");
}

TEST_F(KonfigurationDateien, adapter_values_are_cut_or_padded_to_their_width) {
    Nicht_Standard();
    kern.Config.PortAutomatik = "RESETRESETRESET";
    EXPECT_TRUE(Konfiguration_Speichern(kern));
    EXPECT_EQ(files[Settings], "English\r\n2\r\nUSB-Port7\r\n12\r\n");
    EXPECT_EQ(files[Adapter], "RESETRESET\r\na    \r\n     \r\nccccc\r\nddddd\r\n e   \r\n");
}

TEST_F(KonfigurationDateien, all_values_are_read_from_both_files) {
    files[Settings] = "Francais\r\n3\r\nUSB-Port16\r\n7\r\n";
    files[Adapter] = "RESET     \r\none  \r\ntwo  \r\nthree\r\n4    \r\n5    \r\n";
    Konfiguration_Laden(kern);
    EXPECT_EQ(kern.Config.Sprache, "Francais");
    EXPECT_EQ(kern.Config.Sprachnummer, "3");
    EXPECT_EQ(kern.Config.PortName, "USB-Port16");
    EXPECT_EQ(kern.Config.PortNummer, 16);
    EXPECT_EQ(kern.Config.RadioChannel, "7");
    EXPECT_EQ(kern.Config.Funkkanal(), 7);
    EXPECT_FALSE(kern.Config.AdapterModus());
    EXPECT_EQ(kern.Config.AdapterFeld, (std::array<std::string, 5>{"one", "two", "three", "4", "5"}));
}

TEST_F(KonfigurationDateien, what_was_read_is_written_back_byte_for_byte) {
    const std::string settings = "Nederlands\r\n4\r\nUSB-Port3\r\n11\r\n";
    const std::string adapter = "SET       \r\nA1   \r\nB2   \r\n     \r\nD4444\r\n E5  \r\n";
    files[Settings] = settings;
    files[Adapter] = adapter;
    Konfiguration_Laden(kern);
    EXPECT_TRUE(Konfiguration_Speichern(kern));
    EXPECT_EQ(files[Settings], settings);
    EXPECT_EQ(files[Adapter], adapter);
}

TEST_F(KonfigurationDateien, lines_may_end_in_a_line_feed_alone) {
    files[Settings] = "English\n2\nUSB-Port5\n9";
    files[Adapter] = "RESET\nx\n";
    Konfiguration_Laden(kern);
    EXPECT_EQ(kern.Config.Sprache, "English");
    EXPECT_EQ(kern.Config.PortNummer, 5);
    EXPECT_EQ(kern.Config.RadioChannel, "9");
    EXPECT_FALSE(kern.Config.AdapterModus());
    EXPECT_EQ(kern.Config.AdapterFeld[0], "x");
}

TEST_F(KonfigurationDateien, port_17_falls_back_to_1) {
    EXPECT_EQ(Port_Bei("USB-Port17"), 1);
}

TEST_F(KonfigurationDateien, the_port_is_the_number_behind_the_eighth_character) {
    EXPECT_EQ(Port_Bei("USB-Port1"), 1);
    EXPECT_EQ(Port_Bei("USB-Port16"), 16);
    EXPECT_EQ(Port_Bei("12345678 4"), 4);
    EXPECT_EQ(Port_Bei("COM12"), 1);
}

TEST_F(KonfigurationDateien, a_port_that_is_no_number_from_1_to_16_becomes_1) {
    EXPECT_EQ(Port_Bei("USB-Port0"), 1);
    EXPECT_EQ(Port_Bei("USB-Port-3"), 1);
    EXPECT_EQ(Port_Bei("USB-Port99999999999"), 1);
    EXPECT_EQ(Port_Bei("USB-Portx"), 1);
    EXPECT_EQ(Port_Bei(""), 1);
}

TEST_F(KonfigurationDateien, the_repair_of_the_port_leaves_its_name_as_it_stands) {
    Port_Bei("USB-Port17");
    EXPECT_EQ(kern.Config.PortName, "USB-Port17");
}

TEST_F(KonfigurationDateien, an_empty_radio_channel_line_is_taken_as_1_and_stored_so_at_the_next_save) {
    files[Settings] = "Deutsch\r\n1\r\nUSB-Port2\r\n\r\n";
    Konfiguration_Laden(kern);
    EXPECT_EQ(kern.Config.RadioChannel, "1");
    EXPECT_TRUE(Konfiguration_Speichern(kern));
    EXPECT_EQ(files[Settings], "Deutsch\r\n1\r\nUSB-Port2\r\n1\r\n");
}

TEST_F(KonfigurationDateien, lines_that_a_short_file_lacks_keep_their_defaults) {
    files[Settings] = "English\r\n";
    files[Adapter] = "RESET     \r\nab";
    Konfiguration_Laden(kern);
    EXPECT_EQ(kern.Config.Sprache, "English");
    EXPECT_EQ(kern.Config.Sprachnummer, "1");
    EXPECT_EQ(kern.Config.PortName, "USB-PORT");
    EXPECT_EQ(kern.Config.RadioChannel, "");
    EXPECT_EQ(kern.Config.PortNummer, 1);
    EXPECT_EQ(kern.Config.PortAutomatik, "RESET");
    EXPECT_EQ(kern.Config.AdapterFeld, (std::array<std::string, 5>{"ab"}));
}

TEST_F(KonfigurationDateien, empty_files_leave_the_defaults) {
    files[Settings] = "";
    files[Adapter] = "";
    Konfiguration_Laden(kern);
    EXPECT_EQ(kern.Config.Sprache, "Deutsch");
    EXPECT_EQ(kern.Config.RadioChannel, "");
    EXPECT_TRUE(kern.Config.AdapterModus());
}

TEST_F(KonfigurationDateien, lines_beyond_the_last_are_not_read) {
    files[Settings] = "English\r\n2\r\nUSB-Port5\r\n9\r\nmore\r\nand more\r\n";
    files[Adapter] = "SET       \r\n1    \r\n2    \r\n3    \r\n4    \r\n5    \r\n6    \r\n7    \r\n";
    Konfiguration_Laden(kern);
    EXPECT_EQ(kern.Config.RadioChannel, "9");
    EXPECT_EQ(kern.Config.AdapterFeld[4], "5");
}

TEST_F(KonfigurationDateien, damaged_bytes_are_taken_as_text_and_the_port_is_repaired) {
    files[Settings] = "\0\xFF\r\r\n\x01\n\0\0\0\0\0\0\0\0\0"s;
    Konfiguration_Laden(kern);
    EXPECT_EQ(kern.Config.Sprache, "\0\xFF\r"s);
    EXPECT_EQ(kern.Config.PortNummer, 1);
    EXPECT_EQ(kern.Config.RadioChannel, "");
}

TEST_F(KonfigurationDateien, a_file_that_cannot_be_read_counts_as_missing) {
    files[Settings] = "English\r\n2\r\nUSB-Port5\r\n9\r\n";
    files[Adapter] = "RESET     \r\n";
    welt.Disk.FailAt = 1;
    Konfiguration_Laden(kern);
    EXPECT_EQ(kern.Config.Sprache, "Deutsch");
    EXPECT_EQ(kern.Config.PortNummer, 1);
    EXPECT_EQ(kern.Config.PortAutomatik, "RESET");
}

TEST_F(KonfigurationDateien, a_file_that_could_not_be_read_is_not_written_over) {
    const std::string settings = "English\n2\nUSB-Port5\n9"; // a save ends all lines by CR LF
    for (int failing = 1; failing <= 2; ++failing) {
        files[Settings] = settings;
        files[Adapter] = "RESET     \r\n";
        welt.Disk.Operations = 0;
        welt.Disk.FailAt = failing;
        Konfiguration_Laden(kern);
        welt.Disk.FailAt = 0;
        EXPECT_FALSE(Konfiguration_Speichern(kern));
        EXPECT_EQ(files[Settings] == settings, failing == 1);
        EXPECT_EQ(files[Adapter] == "RESET     \r\n", failing == 2);
        Konfiguration_Laden(kern);
        EXPECT_TRUE(Konfiguration_Speichern(kern));
    }
}

TEST_F(KonfigurationDateien, whichever_write_fails_each_file_is_the_old_or_the_new_one) {
    for (int failing = 1; failing <= 2; ++failing) {
        files[Settings] = "old settings";
        files[Adapter] = "old adapter";
        Nicht_Standard();
        welt.Disk.Operations = 0;
        welt.Disk.FailAt = failing;
        EXPECT_FALSE(Konfiguration_Speichern(kern));
        EXPECT_EQ(files[Settings], failing == 1 ? "old settings" : "English\r\n2\r\nUSB-Port7\r\n12\r\n");
        EXPECT_EQ(files[Adapter],
                  failing == 2 ? "old adapter" : "RESET     \r\na    \r\n     \r\nccccc\r\nddddd\r\n e   \r\n");
    }
}

TEST_F(KonfigurationDateien, when_the_disk_has_died_both_old_files_stay) {
    files[Settings] = "old settings";
    files[Adapter] = "old adapter";
    welt.Disk.FailAt = 1;
    welt.Disk.FailFromThere = true;
    EXPECT_FALSE(Konfiguration_Speichern(kern));
    EXPECT_EQ(files[Settings], "old settings");
    EXPECT_EQ(files[Adapter], "old adapter");
}

TEST(Einstellungen_Pruefen, what_the_program_writes_is_good) {
    for (const char* text : {"Deutsch\r\n1\r\nUSB-PORT\r\n\r\n", "English\r\n2\r\nUSB-Port16\r\n12\r\n"}) {
        EXPECT_EQ(Einstellungen_Pruefen(text), FileTrouble{}) << text;
    }
}

TEST(Einstellungen_Pruefen, files_made_by_hand_are_good_and_so_are_wrong_values) {
    for (const char* text : {"English\n2\nUSB-Port5\n9", "Klingon\r\n1\r\nUSB-Port17\r\n13\r\n",
                             "English\r\n2\r\nUSB-Port5\r\n9\r\nmore\r\n"}) {
        EXPECT_EQ(Einstellungen_Pruefen(text), FileTrouble{}) << text;
    }
}

TEST(Einstellungen_Pruefen, a_file_that_was_cut_anywhere_is_damaged) {
    const std::string whole = "English\r\n2\r\nUSB-Port5\r\n12\r\n";
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_NE(Einstellungen_Pruefen(whole.substr(0, length)).Damage, FileDamage::None) << length;
    }
}

TEST(Einstellungen_Pruefen, control_characters_and_lines_without_end_are_named_by_their_line) {
    const auto line = [](int number) {
        return FileTrouble{.File = "EST7CSB29A.I_1", .Damage = FileDamage::BadLine, .Number = number};
    };
    EXPECT_EQ(Einstellungen_Pruefen("English\r\n2\r\nUSB\0Port5\r\n9\r\n"s), line(3));
    EXPECT_EQ(Einstellungen_Pruefen(std::string(81, 'x') + "\r\n2\r\nUSB-Port5\r\n9\r\n"), line(1));
    EXPECT_EQ(Einstellungen_Pruefen("English\r\n2\r\nUSB-Port5\r\n\x1A\r\n"), line(4));
    EXPECT_EQ(Einstellungen_Pruefen(std::string(1000000, '\0')), line(1));
}

TEST(Adapterdatei_Pruefen, may_be_short_but_begins_with_SET_or_RESET) {
    for (const char* text : {"SET", "RESET     \r\nab", "SET       \r\n", "RESET\n"}) {
        EXPECT_EQ(Adapterdatei_Pruefen(text), FileTrouble{}) << text;
    }
    for (const char* text : {"", "SE", "RES", "RESETT\r\n", "\r\n", "SET       \r\na\x01\r\n"}) {
        EXPECT_EQ(Adapterdatei_Pruefen(text).File, "CHEUSB25C.I_2") << text;
    }
}

/// Settings of which the second half is lost, and a whole adapter file.
struct DamagedSettings : KonfigurationDateien {
    static constexpr char Copy[] = "/qvm/DAT/EST7CSB29A.I_1-20260305-103000";
    const std::string cut = "English\r\n2\r\nUSB";
    const std::string adapter = "SET       \r\n     \r\n     \r\n     \r\n     \r\n     \r\n";

    DamagedSettings() {
        files[Settings] = cut;
        files[Adapter] = adapter;
        Konfiguration_Laden(kern);
    }
};

TEST_F(DamagedSettings, are_known_after_the_load) {
    EXPECT_EQ(Konfiguration_Maengel(kern.Config),
              (std::vector{FileTrouble{.File = "EST7CSB29A.I_1", .Damage = FileDamage::CutLines}}));
}

TEST_F(DamagedSettings, stay_as_they_are_as_long_as_nobody_chose_the_channel_anew) {
    EXPECT_FALSE(Konfiguration_Speichern(kern));
    EXPECT_TRUE(Konfiguration_Speichern(kern, ConfigChoice::Port));
    EXPECT_EQ(files[Settings], cut);
    EXPECT_EQ(files.size(), 2U);
}

TEST_F(DamagedSettings, do_not_pass_a_fixed_port_for_saved_that_would_stand_in_them) {
    kern.Config.PortAutomatik = "RESET";
    kern.Config.PortNummer = 3;
    EXPECT_FALSE(Konfiguration_Speichern(kern, ConfigChoice::Port));
    EXPECT_EQ(files[Settings], cut);
}

TEST_F(DamagedSettings, are_kept_under_the_date_before_the_chosen_channel_is_written) {
    kern.Config.RadioChannel = "7";
    EXPECT_TRUE(Konfiguration_Speichern(kern, ConfigChoice::Channel));
    EXPECT_EQ(files[Settings], "English\r\n2\r\nUSB\r\n7\r\n");
    EXPECT_EQ(files[Copy], cut);
    EXPECT_TRUE(Konfiguration_Maengel(kern.Config).empty());
}

TEST_F(DamagedSettings, a_second_copy_of_the_same_second_gets_a_name_of_its_own) {
    files[Copy] = "an earlier one";
    EXPECT_TRUE(Konfiguration_Speichern(kern, ConfigChoice::Channel));
    EXPECT_EQ(files[Copy], "an earlier one");
    EXPECT_EQ(files[Copy + "-2"s], cut);
}

TEST_F(DamagedSettings, leave_nothing_of_their_damage_in_the_new_file) {
    files[Settings] = "Eng\0lish\r\n\x02\r\nUSB-Port5\r\n"s + std::string(200, '9') + "\r\n";
    Konfiguration_Laden(kern);
    kern.Config.RadioChannel = "7";
    EXPECT_TRUE(Konfiguration_Speichern(kern, ConfigChoice::Channel));
    EXPECT_EQ(files[Settings], "Deutsch\r\n1\r\nUSB-Port5\r\n7\r\n");
}

TEST_F(DamagedSettings, are_not_written_over_when_no_copy_could_be_kept) {
    welt.Disk.Operations = 0;
    welt.Disk.FailAt = 3; // read, look whether the name of the copy is free, write the copy
    EXPECT_FALSE(Konfiguration_Speichern(kern, ConfigChoice::Channel));
    EXPECT_EQ(files[Settings], cut);
    EXPECT_FALSE(files.contains(Copy));
}

TEST_F(DamagedSettings, refuse_what_addresses_a_lock_with_a_word) {
    welt.Answers.push_back({.Text = "*"});
    EXPECT_FALSE(Konfiguration_Verlangen(kern));
    ASSERT_EQ(welt.Shown.size(), 1U);
    EXPECT_NE(welt.Shown[0].Text.find("EST7CSB29A.I_1"), std::string::npos);
}

TEST_F(KonfigurationDateien, good_files_and_missing_ones_refuse_nothing) {
    Konfiguration_Laden(kern);
    EXPECT_TRUE(Konfiguration_Verlangen(kern));
}

TEST(Funkkanal, is_1_to_12_and_1_for_anything_else) {
    Konfiguration config;
    for (const auto& [text, channel] : std::initializer_list<std::pair<const char*, int>>{{"1", 1},
                                                                                          {"12", 12},
                                                                                          {" 7 ", 7},
                                                                                          {"05", 5},
                                                                                          {"0", 1},
                                                                                          {"13", 1},
                                                                                          {"-2", 1},
                                                                                          {"", 1},
                                                                                          {"  ", 1},
                                                                                          {"3x", 1},
                                                                                          {"x", 1},
                                                                                          {"99999999999", 1}}) {
        config.RadioChannel = text;
        EXPECT_EQ(config.Funkkanal(), channel) << text;
    }
}

TEST(AdapterModus, compares_without_the_padding_of_the_file) {
    Konfiguration config;
    config.PortAutomatik = "SET       ";
    EXPECT_TRUE(config.AdapterModus());
    config.PortAutomatik = "RESET     ";
    EXPECT_FALSE(config.AdapterModus());
    config.PortAutomatik = "";
    EXPECT_FALSE(config.AdapterModus());
    config.PortAutomatik = "SETUP";
    EXPECT_FALSE(config.AdapterModus());
}

TEST(GlobaleVariablen, stand_at_their_defaults) {
    const GlobaleVariablen globals;
    EXPECT_EQ(globals.UserRows, 251);
    EXPECT_EQ(globals.LockRows, 201);
}

} // namespace
} // namespace qvm
