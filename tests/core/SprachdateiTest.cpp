#include "Catalogue.h"
#include "Kern.h"
#include "Text.h"
#include "TextSlots.h"
#include "VirtualPlatform.h"

#include <array>
#include <gtest/gtest.h>
#include <set>
#include <string>

namespace qvm {
namespace {

using TagTexte = std::array<std::string, 11>;

const TagTexte& DeutscheTage() {
    static const TagTexte texts{
        "OFF",     "Montag",  "Dienstag",         "Mittwoch",          "Donnerstag",      "Freitag",
        "Samstag", "Sonntag", "Montag - Freitag", "Samstag - Sonntag", "Montag - Sonntag"};
    return texts;
}

/// "1", "2", ... up to the last number, one a line.
std::string Nummern(int last, const std::string& lineEnd = "\r\n") {
    std::string text;
    for (int n = 1; n <= last; ++n) {
        text += std::to_string(n) + lineEnd;
    }
    return text;
}

struct Sprachdatei : testing::Test {
    test::VirtualPlatform welt;
    Kern kern{welt.World};
    std::map<std::string, std::string>& files = welt.Disk.Files;

    Sprachdatei() { kern.AppPath = "/qvm/"; }
};

TEST_F(Sprachdatei, without_a_file_all_lines_are_empty_and_the_labels_are_german) {
    EXPECT_EQ(Sprachdatei_Laden(kern), SprachdateiStatus::Fehlt);
    for (int n = 0; n <= 300; ++n) {
        EXPECT_EQ(kern.Zeile(n), "") << n;
    }
    EXPECT_EQ(kern.Sprache.TagTexte, DeutscheTage());
    EXPECT_EQ(kern.Sprache.FeiertagsTexte, (std::array<std::string, 2>{"Einzelfeiertage", "Perm. Feiertage"}));
}

TEST_F(Sprachdatei, line_1_of_the_file_is_line_1_of_the_catalogue) {
    files["/qvm/QVM_Deutsch.DAT"] = Nummern(300);
    EXPECT_EQ(Sprachdatei_Laden(kern), SprachdateiStatus::Geladen);
    EXPECT_EQ(kern.Zeile(0), "");
    EXPECT_EQ(kern.Zeile(1), "1");
    EXPECT_EQ(kern.Zeile(150), "150");
    EXPECT_EQ(kern.Zeile(300), "300");
}

TEST_F(Sprachdatei, another_language_is_read_without_a_change_of_the_words_in_use) {
    files["/qvm/QVM_Deutsch.DAT"] = Nummern(300);
    files["/qvm/QVM_English.DAT"] = "one\r\ntwo\n";
    Sprachdatei_Laden(kern);
    EXPECT_EQ(Sprachdatei_Lesen(kern, "English"), (std::vector<std::string>{"one", "two"}));
    EXPECT_EQ(kern.Zeile(1), "1");
    EXPECT_EQ(kern.Config.Sprache, "Deutsch");
}

TEST_F(Sprachdatei, one_that_is_missing_or_whose_name_leads_elsewhere_is_not_read) {
    files["/qvm/../QVM_x.DAT"] = files["/qvm/QVM_.DAT"] = files["/qvm/QVM_../x.DAT"] = "one\n";
    for (const char* name : {"Francais", "", "../x"}) {
        EXPECT_EQ(Sprachdatei_Lesen(kern, name), std::nullopt) << name;
    }
}

TEST_F(Sprachdatei, numbers_outside_the_catalogue_give_an_empty_line) {
    files["/qvm/QVM_Deutsch.DAT"] = Nummern(300);
    Sprachdatei_Laden(kern);
    EXPECT_EQ(kern.Zeile(-1), "");
    EXPECT_EQ(kern.Zeile(301), "");
    EXPECT_EQ(kern.Zeile(2147483647), "");
}

TEST_F(Sprachdatei, the_file_goes_by_the_language_of_the_configuration) {
    files["/qvm/QVM_Deutsch.DAT"] = "Wort\r\n";
    files["/qvm/QVM_English.DAT"] = "word\r\n";
    kern.Config.Sprache = "English";
    EXPECT_EQ(Sprachdatei_Laden(kern), SprachdateiStatus::Geladen);
    EXPECT_EQ(kern.Zeile(1), "word");
}

TEST_F(Sprachdatei, day_and_holiday_labels_come_from_their_lines) {
    files["/qvm/QVM_Deutsch.DAT"] = Nummern(120);
    Sprachdatei_Laden(kern);
    EXPECT_EQ(kern.Sprache.TagTexte, (TagTexte{"2", "95", "96", "97", "98", "99", "100", "101", "102", "103", "104"}));
    EXPECT_EQ(kern.Sprache.FeiertagsTexte, (std::array<std::string, 2>{"3", "4"}));
}

TEST_F(Sprachdatei, lines_beyond_300_are_dropped_and_reported) {
    files["/qvm/QVM_Deutsch.DAT"] = Nummern(301);
    EXPECT_EQ(Sprachdatei_Laden(kern), SprachdateiStatus::ZuLang);
    EXPECT_EQ(kern.Zeile(300), "300");
    EXPECT_EQ(kern.Zeile(301), "");
    EXPECT_EQ(kern.Sprache.TagTexte[1], "95");
}

TEST_F(Sprachdatei, exactly_300_lines_are_well_with_and_without_a_last_line_end) {
    const std::string text = Nummern(300, "\n");
    files["/qvm/QVM_Deutsch.DAT"] = text.substr(0, text.size() - 1);
    EXPECT_EQ(Sprachdatei_Laden(kern), SprachdateiStatus::Geladen);
    EXPECT_EQ(kern.Zeile(300), "300");
}

TEST_F(Sprachdatei, lines_may_end_either_way_and_empty_lines_count) {
    files["/qvm/QVM_Deutsch.DAT"] = "eins\n\r\ndrei\r\n\n\nsechs";
    Sprachdatei_Laden(kern);
    EXPECT_EQ(kern.Zeile(1), "eins");
    EXPECT_EQ(kern.Zeile(2), "");
    EXPECT_EQ(kern.Zeile(3), "drei");
    EXPECT_EQ(kern.Zeile(5), "");
    EXPECT_EQ(kern.Zeile(6), "sechs");
}

TEST_F(Sprachdatei, a_label_whose_line_is_empty_takes_its_default) {
    files["/qvm/QVM_Deutsch.DAT"] = "a\r\naus\r\n";
    Sprachdatei_Laden(kern);
    EXPECT_EQ(kern.Sprache.TagTexte[0], "aus");
    EXPECT_EQ(kern.Sprache.TagTexte[1], "Montag");
    EXPECT_EQ(kern.Sprache.FeiertagsTexte[0], "Einzelfeiertage");
}

TEST_F(Sprachdatei, another_language_leaves_nothing_of_the_one_before) {
    files["/qvm/QVM_Deutsch.DAT"] = Nummern(300);
    files["/qvm/QVM_English.DAT"] = "one\r\n";
    Sprachdatei_Laden(kern);
    kern.Config.Sprache = "English";
    Sprachdatei_Laden(kern);
    EXPECT_EQ(kern.Zeile(1), "one");
    EXPECT_EQ(kern.Zeile(2), "");
    EXPECT_EQ(kern.Sprache.TagTexte, DeutscheTage());
}

TEST_F(Sprachdatei, a_language_that_is_missing_or_cannot_be_read_keeps_the_words_in_use) {
    files["/qvm/QVM_Deutsch.DAT"] = Nummern(300);
    Sprachdatei_Laden(kern);
    kern.Config.Sprache = "Klingonisch";
    EXPECT_EQ(Sprachdatei_Laden(kern), SprachdateiStatus::Fehlt);
    EXPECT_EQ(kern.Zeile(95), "95");
    kern.Config.Sprache = "Deutsch";
    welt.Disk.FailAt = welt.Disk.Operations + 1;
    EXPECT_EQ(Sprachdatei_Laden(kern), SprachdateiStatus::Fehlt);
    EXPECT_EQ(kern.Zeile(95), "95");
}

TEST_F(Sprachdatei, a_language_name_does_not_lead_to_another_directory) {
    files["/qvm/QVM_x/../geheim.DAT"] = "geheim\r\n";
    files["/qvm/QVM_x\\geheim.DAT"] = "geheim\r\n";
    files["/qvm/QVM_.DAT"] = "geheim\r\n";
    for (const char* name : {"x/../geheim", "x\\geheim", "", "  "}) {
        kern.Config.Sprache = name;
        EXPECT_EQ(Sprachdatei_Laden(kern), SprachdateiStatus::Fehlt) << name;
        EXPECT_EQ(kern.Zeile(1), "") << name;
    }
}

TEST_F(Sprachdatei, damaged_bytes_are_taken_as_text) {
    files["/qvm/QVM_Deutsch.DAT"] = std::string("\0\xFF\n\r\r\n", 6);
    EXPECT_EQ(Sprachdatei_Laden(kern), SprachdateiStatus::Geladen);
    EXPECT_EQ(kern.Zeile(1), std::string("\0\xFF", 2));
    EXPECT_EQ(kern.Zeile(2), "\r");
}

TEST_F(Sprachdatei, the_title_of_the_system_is_the_same_in_every_language) {
    files["/qvm/QVM_English.DAT"] = Nummern(300);
    kern.Config.Sprache = "English";
    Sprachdatei_Laden(kern);
    welt.Answers = {{"text"}};
    kern.Meldung("text");
    ASSERT_EQ(welt.Shown.size(), 1U);
    EXPECT_EQ(welt.Shown[0].Title, "QVM 7702 SOFTWARE SYSTEM");
}

TEST(Sprache_Defaults, puts_the_german_labels_back) {
    Sprachkatalog katalog;
    katalog.TagTexte.fill("x");
    katalog.FeiertagsTexte.fill("x");
    Sprache_Defaults(katalog);
    EXPECT_EQ(katalog.TagTexte, DeutscheTage());
    EXPECT_EQ(katalog.FeiertagsTexte, (std::array<std::string, 2>{"Einzelfeiertage", "Perm. Feiertage"}));
}

TEST(TextSlots, no_place_gets_two_words_and_every_line_is_in_the_catalogue) {
    std::set<std::string_view> places;
    for (const TextSlot& slot : TextSlots) {
        EXPECT_TRUE(places.insert(slot.Where).second) << slot.Where;
        EXPECT_GE(slot.Line, 1) << slot.Where;
        EXPECT_LE(slot.Line, 300) << slot.Where;
    }
}

TEST(TextSlots, nine_tool_tips_stand_on_the_odd_buttons_of_the_main_toolbar) {
    std::vector<std::pair<std::string_view, int>> tips;
    for (const TextSlot& slot : TextSlots) {
        if (slot.Where.starts_with("F2.Toolbar1.")) {
            tips.emplace_back(slot.Where.substr(12), slot.Line);
        }
    }
    EXPECT_EQ(tips, (std::vector<std::pair<std::string_view, int>>{{"1", 26},
                                                                   {"9", 27},
                                                                   {"11", 28},
                                                                   {"13", 29},
                                                                   {"15", 30},
                                                                   {"17", 31},
                                                                   {"19", 213},
                                                                   {"21", 32},
                                                                   {"23", 33}}));
}

} // namespace
} // namespace qvm
