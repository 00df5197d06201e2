// Over the four language files that the build has made.

#include "Catalogue.h"
#include "Inhalt.h"
#include "Kern.h"
#include "Stelle.h"
#include "Text.h"
#include "TextSlots.h"
#include "VirtualPlatform.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {
namespace {

std::vector<int> Bereich(int first, int last) {
    std::vector<int> numbers;
    for (int n = first; n <= last; ++n) {
        numbers.push_back(n);
    }
    return numbers;
}

/// Numbers that no window shows.
const std::set<int>& Freie() {
    static const std::set<int> numbers = [] {
        std::set<int> free{1,   22,  25,  34,  36,  49,  52,  53,  64,  79,  80,  86,  87,  106,
                           108, 109, 117, 118, 121, 122, 123, 124, 139, 146, 147, 151, 155, 170,
                           183, 184, 197, 203, 205, 208, 244, 246, 247, 249, 250, 251};
        return free;
    }();
    return numbers;
}

/// One finished language file, as bytes and as the program reads it.
struct Sprachdateien : testing::TestWithParam<std::string_view> {
    test::VirtualPlatform welt;
    Kern kern{welt.World};
    std::string bytes;
    SprachdateiStatus status = SprachdateiStatus::Fehlt;

    void SetUp() override {
        const std::string name = "QVM_" + std::string(GetParam()) + ".DAT";
        bytes = test::Inhalt(std::string(QVM_BINARY_DIR) + "/lang/" + name);
        ASSERT_FALSE(bytes.empty()) << name;
        kern.AppPath = "/qvm/";
        kern.Config.Sprache = GetParam();
        welt.Disk.Files["/qvm/" + name] = bytes;
        status = Sprachdatei_Laden(kern);
    }

    const std::string& Zeile(int n) const { return kern.Zeile(n); }

    void Erwarte_Ohne(char forbidden, const std::vector<int>& numbers) const {
        for (const int n : numbers) {
            EXPECT_EQ(Zeile(n).find(forbidden), std::string::npos) << "line " << n << ": " << Zeile(n);
        }
    }

    void Erwarte_Verschieden(const std::vector<int>& numbers) const {
        std::set<std::string> texts;
        for (const int n : numbers) {
            EXPECT_TRUE(texts.insert(Zeile(n)).second) << "line " << n << ": " << Zeile(n);
        }
    }
};

TEST_P(Sprachdateien, has_at_most_300_lines_which_all_end_in_cr_lf) {
    EXPECT_EQ(status, SprachdateiStatus::Geladen);
    const auto feeds = std::count(bytes.begin(), bytes.end(), '\n');
    EXPECT_LE(feeds, 300);
    EXPECT_EQ(std::count(bytes.begin(), bytes.end(), '\r'), feeds);
    ASSERT_GE(bytes.size(), 2U);
    EXPECT_EQ(bytes.substr(bytes.size() - 2), "\r\n");
    for (std::size_t at = bytes.find('\n'); at != std::string::npos; at = bytes.find('\n', at + 1)) {
        EXPECT_TRUE(at > 0 && bytes[at - 1] == '\r') << at;
    }
}

TEST_P(Sprachdateien, every_used_line_is_filled_and_every_free_one_empty) {
    for (const int n : Bereich(1, 300)) {
        EXPECT_EQ(Zeile(n).empty(), Freie().contains(n)) << "line " << n << ": " << Zeile(n);
    }
}

TEST_P(Sprachdateien, every_text_slot_has_a_word) {
    for (const TextSlot& slot : TextSlots) {
        EXPECT_FALSE(Zeile(slot.Line).empty()) << slot.Where;
    }
}

TEST_P(Sprachdateien, no_text_has_blanks_at_its_ends_or_control_characters) {
    for (const int n : Bereich(1, 300)) {
        EXPECT_EQ(Trim(Zeile(n)), Zeile(n)) << n;
        for (const char character : Zeile(n)) {
            EXPECT_GE(static_cast<unsigned char>(character), 0x20) << n;
        }
    }
}

TEST_P(Sprachdateien, no_text_holds_a_character_that_had_no_place_in_the_code_page) {
    for (const int n : Bereich(1, 300)) {
        for (const char undefined : {'\x81', '\x8D', '\x8F', '\x90', '\x9D', '\x7F'}) {
            EXPECT_EQ(Zeile(n).find(undefined), std::string::npos) << n;
        }
    }
}

TEST_P(Sprachdateien, line_2_is_off_and_no_other_day_text_contains_it) {
    EXPECT_EQ(Zeile(2), "OFF");
    for (const int n : Bereich(95, 104)) {
        EXPECT_EQ(Zeile(n).find("OFF"), std::string::npos) << n;
    }
}

TEST_P(Sprachdateien, the_eleven_day_texts_differ) {
    Erwarte_Verschieden({2, 95, 96, 97, 98, 99, 100, 101, 102, 103, 104});
    const std::set<std::string> labels(kern.Sprache.TagTexte.begin(), kern.Sprache.TagTexte.end());
    EXPECT_EQ(labels.size(), 11U);
}

TEST_P(Sprachdateien, the_two_holiday_kinds_differ) {
    Erwarte_Verschieden({3, 4});
}

TEST_P(Sprachdateien, the_events_that_colour_history_rows_differ_from_all_events_and_states) {
    Erwarte_Verschieden({13, 14, 15, 16, 17, 18, 19, 20, 112, 113, 114, 196});
    for (const int n : {16, 17, 20}) {
        for (const char* literal : {"E-Key", "Fingerscan", "Transponder", "Guest card"}) {
            EXPECT_NE(Zeile(n), literal) << n;
        }
    }
}

TEST_P(Sprachdateien, the_events_that_colour_history_rows_mean_nothing_else_in_another_language) {
    for (const std::string_view other : SprachNamen) {
        const std::string name = "QVM_" + std::string(other) + ".DAT";
        welt.Disk.Files["/qvm/" + name] = test::Inhalt(std::string(QVM_BINARY_DIR) + "/lang/" + name);
        const auto lines = Sprachdatei_Lesen(kern, other);
        ASSERT_TRUE(lines) << other;
        for (const int n : {16, 17, 20}) {
            for (const int m : {13, 14, 15, 16, 17, 18, 19, 20, 112, 113, 114, 196}) {
                EXPECT_TRUE(n == m || lines->at(At(m) - 1) != Zeile(n)) << other << ' ' << n << ' ' << m;
            }
        }
    }
}

TEST_P(Sprachdateien, the_channel_word_carries_its_number_behind_a_dash_of_the_program) {
    EXPECT_FALSE(Zeile(35).ends_with('-'));
}

TEST_P(Sprachdateien, the_unit_texts_begin_with_their_class) {
    EXPECT_TRUE(Zeile(157).starts_with("TA "));
    EXPECT_TRUE(Zeile(158).starts_with("AE "));
    EXPECT_TRUE(Zeile(159).starts_with("STE"));
    for (const int n : {157, 158, 159}) {
        EXPECT_GT(Zeile(n).size(), 2U) << n;
    }
    EXPECT_FALSE(Zeile(201).starts_with("TA "));
    EXPECT_FALSE(Zeile(201).starts_with("STE"));
}

TEST_P(Sprachdateien, the_two_door_modes_differ_and_are_no_dash) {
    Erwarte_Verschieden({218, 219});
    EXPECT_NE(Zeile(218), "-");
    EXPECT_NE(Zeile(219), "-");
}

TEST_P(Sprachdateien, the_first_kind_of_use_is_hotel) {
    EXPECT_EQ(Zeile(225), "HOTEL");
}

TEST_P(Sprachdateien, texts_in_a_file_filter_hold_no_bar) {
    Erwarte_Ohne('|', {105, 167});
}

TEST_P(Sprachdateien, texts_in_a_csv_line_hold_no_semicolon) {
    Erwarte_Ohne(';', {6, 7, 50, 51, 92, 93, 94, 226, 227, 234, 235, 236, 237, 238, 239, 245, 259});
}

TEST_P(Sprachdateien, texts_that_are_put_together_bring_the_punctuation_that_their_place_wants) {
    for (const int n : {132, 133, 134}) {
        EXPECT_TRUE(Zeile(n).ends_with(" :")) << n;
    }
    for (const int n : {270, 271, 272, 284, 300}) {
        EXPECT_TRUE(Zeile(n).ends_with(":")) << n;
    }
    for (const int n : {38, 55, 56, 206, 207, 215, 216, 224, 233}) {
        EXPECT_FALSE(Zeile(n).ends_with(":")) << n;
    }
    for (const int n : {182, 264, 267, 274}) {
        EXPECT_FALSE(Zeile(n).ends_with(".")) << n;
    }
    EXPECT_TRUE(Zeile(253).starts_with(": "));
}

INSTANTIATE_TEST_SUITE_P(Jede, Sprachdateien, testing::ValuesIn(SprachNamen),
                         [](const auto& language) { return std::string(language.param); });

using SprachdateiDeutsch = Sprachdateien;

TEST_P(SprachdateiDeutsch, gives_the_labels_that_stand_without_it) {
    const Sprachkatalog builtIn;
    EXPECT_EQ(kern.Sprache.TagTexte, builtIn.TagTexte);
    EXPECT_EQ(kern.Sprache.FeiertagsTexte, builtIn.FeiertagsTexte);
}

TEST_P(SprachdateiDeutsch, names_the_kinds_of_use_as_the_data_files_do) {
    EXPECT_EQ(Zeile(225), "HOTEL");
    EXPECT_EQ(Zeile(226), "OBJEKT");
}

TEST_P(SprachdateiDeutsch, holds_umlauts_as_single_bytes) {
    EXPECT_EQ(Zeile(119), "Zur\xFC"
                          "ck");
}

INSTANTIATE_TEST_SUITE_P(Deutsche, SprachdateiDeutsch, testing::Values(std::string_view("Deutsch")),
                         [](const auto& language) { return std::string(language.param); });

TEST(SprachNamen, are_the_names_of_the_four_files) {
    EXPECT_EQ(SprachNamen, (std::array<std::string_view, 4>{"Deutsch", "English", "Francais", "Nederlands"}));
}

} // namespace
} // namespace qvm
