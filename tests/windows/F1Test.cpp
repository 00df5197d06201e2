// The about box.

#include "FensterFixture.h"

namespace qvm::test {
namespace {

struct F1_Fenster : FensterFixture {
    struct F1& Box() {
        return programm->Main->F1;
    }
};

TEST(Adapterversion, below_10_stands_behind_version_1_and_a_blank) {
    EXPECT_EQ(Adapterversion_Text(2), "USB Wireless Adapter - VERSION 1. 2");
    EXPECT_EQ(Adapterversion_Text(9), "USB Wireless Adapter - VERSION 1. 9");
}

TEST(Adapterversion, 1_has_no_blank) {
    EXPECT_EQ(Adapterversion_Text(1), "USB Wireless Adapter - VERSION 1.1");
}

TEST(Adapterversion, from_10_on_is_1_plus_the_tens_a_point_and_the_units) {
    EXPECT_EQ(Adapterversion_Text(10), "USB Wireless Adapter - 2.0");
    EXPECT_EQ(Adapterversion_Text(35), "USB Wireless Adapter - 4.5");
    EXPECT_EQ(Adapterversion_Text(99), "USB Wireless Adapter - 10.9");
    EXPECT_EQ(Adapterversion_Text(255), "USB Wireless Adapter - 26.5");
}

TEST_F(F1_Fenster, shows_versions_cipher_data_directory_and_licences) {
    Start();
    Box().CipherText = "AES-128 (OpenSSL)";
    Box().F1_Laden(35);
    EXPECT_TRUE(Box().Fenster.Visible);
    EXPECT_EQ(Box().Fenster.Title(), "QVM 7702 SOFTWARE SYSTEM - Version 4.2c");
    EXPECT_EQ(Box().VersionLabel.Text(), "QVM 7702 SOFTWARE SYSTEM - Version 4.2c");
    EXPECT_TRUE(Box().AdapterLabel.Visible);
    EXPECT_EQ(Box().AdapterLabel.Text(), "USB Wireless Adapter - 4.5");
    EXPECT_EQ(Box().CipherLabel.Text(), "AES-128 (OpenSSL)");
    EXPECT_EQ(Box().DirectoryLabel.Text(), "/q/DAT/");
    for (const char* licence : {"Qt 6: LGPL-3.0", "OpenSSL 3: Apache-2.0", "libudev: LGPL-2.1"}) {
        EXPECT_THAT(Box().LicenceLabel.Text(), ::testing::HasSubstr(licence));
    }
    EXPECT_THAT(Box().LicenceLabel.Text(), ::testing::Not(::testing::HasSubstr("json")));
    EXPECT_EQ(Box().OK.Text(), "L84");
    EXPECT_NE(Box().Web.Text(), "");
}

TEST_F(F1_Fenster, hides_the_adapters_line_while_no_adapter_has_told_its_version) {
    Start();
    Box().F1_Laden(0);
    EXPECT_FALSE(Box().AdapterLabel.Visible);
    Box().F1_Laden(3);
    EXPECT_TRUE(Box().AdapterLabel.Visible);
}

TEST_F(F1_Fenster, opens_the_support_page) {
    Start();
    Box().SupportPage = "https://www.example.com/qvm7702";
    Box().F1_Laden(0);
    EXPECT_TRUE(Box().Web.Visible);
    Box().Web_Click();
    EXPECT_THAT(world.OpenedInLinkedApp, ElementsAre("https://www.example.com/qvm7702"));
    EXPECT_TRUE(Box().Fenster.Visible);
}

TEST_F(F1_Fenster, has_no_support_key_without_a_support_page) {
    Start();
    Box().F1_Laden(0);
    EXPECT_FALSE(Box().Web.Visible);
}

TEST_F(F1_Fenster, names_the_support_page_when_the_system_does_not_open_it) {
    Start();
    Box().SupportPage = "https://www.example.com/qvm7702";
    world.World.OpenWithLinkedApp = [](const std::string&, const std::string&) { return false; };
    world.Answers.push_back({.Text = "L286 https://www.example.com/qvm7702"});
    Box().Web_Click();
    EXPECT_EQ(world.Shown[0].Sign, Icon::Exclamation);
}

TEST_F(F1_Fenster, closes_with_ok) {
    Start();
    Box().F1_Laden(0);
    Box().OK_Click();
    EXPECT_FALSE(Box().Fenster.Visible);
}

TEST_F(F1_Fenster, without_a_language_file_still_has_a_word_on_its_button) {
    world.Disk.Files.erase("/q/QVM_Deutsch.DAT");
    Start();
    Box().F1_Laden(0);
    EXPECT_EQ(Box().OK.Text(), "OK");
}

} // namespace
} // namespace qvm::test
