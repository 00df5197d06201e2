// The bands of the history view, over files of every language.

#include "F7Fixture.h"

namespace qvm::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr Colour BandGrey = 0xC0C0C0;

struct F7_Band : F7Fixture {
    /// The colour of columns 2 to 4 of a row, which must be one.
    Colour Band(int row) const {
        EXPECT_EQ(Back(row, 3), Back(row, 2)) << row;
        EXPECT_EQ(Back(row, 4), Back(row, 2)) << row;
        return Back(row, 2);
    }
    std::vector<Colour> Bands(int rows) const {
        std::vector<Colour> colours;
        for (int row = 1; row <= rows; ++row) {
            colours.push_back(Band(row));
        }
        return colours;
    }
    /// A language file whose lines 16, 17 and 20 are these.
    void LanguageFile(const std::string& language, const std::string& opens, const std::string& one,
                      const std::string& other) {
        world.Disk.Files["/q/QVM_" + language + ".DAT"] =
            std::string(15, '\n') + opens + "\r\n" + one + "\r\n\r\n\r\n" + other + "\r\n";
    }
};

TEST_F(F7_Band, line_16_opens_one_that_lasts_until_the_next_such_line) {
    Show("a\t\t\tX\nb\t\t\tL16\nc\t\t\tX\nd\nd\t\t\tL16\ne\t\t\tX\n");
    EXPECT_THAT(Bands(7), ElementsAre(White, BandGrey, BandGrey, BandGrey, White, White, White));
}

TEST_F(F7_Band, lines_17_and_20_mark_one_row) {
    Show("a\t\t\tL17\nb\t\t\tX\nc\t\t\tL20\nd\t\t\tX\n");
    EXPECT_THAT(Bands(4), ElementsAre(BandGrey, White, BandGrey, White));
}

TEST_F(F7_Band, a_row_of_line_17_or_20_inside_one_stands_out_white) {
    Show("a\t\t\tL16\nb\t\t\tL17\nc\t\t\tX\nd\t\t\tL20\ne\t\t\tX\nf\t\t\tL16\n");
    EXPECT_THAT(Bands(6), ElementsAre(BandGrey, White, BandGrey, White, BandGrey, White));
}

TEST_F(F7_Band, leaves_number_and_name_without_colour) {
    Show("a\t\t\tL16\n");
    EXPECT_EQ(Back(1, 0), White);
    EXPECT_EQ(Back(1, 1), White);
    EXPECT_EQ(Back(1, 2), BandGrey);
}

TEST_F(F7_Band, ends_with_the_last_line_of_the_file) {
    Show("a\t\t\tL16\n");
    EXPECT_THAT(Bands(3), ElementsAre(BandGrey, White, White));
}

TEST_F(F7_Band, blanks_behind_the_event_do_not_count_those_before_it_do) {
    Show("a\t\t\tL17   \nb\t\t\t L17\n");
    EXPECT_THAT(Bands(2), ElementsAre(BandGrey, White));
}

TEST_F(F7_Band, upper_and_lower_case_differ) {
    Show("a\t\t\tl17\n");
    EXPECT_THAT(Bands(1), ElementsAre(White));
}

TEST_F(F7_Band, other_events_make_none) {
    Show("a\t\t\tL15\nb\t\t\tL18\nc\t\t\tL19\nd\t\t\tL196\nL16\t\t\t\n");
    EXPECT_THAT(Bands(5), ElementsAre(White, White, White, White, White));
}

TEST_F(F7_Band, the_words_of_every_language_beside_the_program_make_them) {
    LanguageFile("Deutsch", "Auf", "Vier", "Acht");
    LanguageFile("English", "Open", "Four", "Eight");
    LanguageFile("Francais", "Ouverture", "Quatre", "Huit");
    LanguageFile("Nederlands", "Openen", "Vierde", "Achtste");
    for (const auto& [opens, one, other] :
         {std::array{"Auf", "Vier", "Acht"}, std::array{"Open", "Four", "Eight"},
          std::array{"Ouverture", "Quatre", "Huit"}, std::array{"Openen", "Vierde", "Achtste"}}) {
        Show("a\t\t\t" + std::string(one) + "\nb\t\t\t" + opens + "\nc\t\t\t" + other + "\nd\t\t\tX\n");
        EXPECT_THAT(Bands(5), ElementsAre(BandGrey, BandGrey, White, BandGrey, White)) << opens;
    }
}

TEST_F(F7_Band, one_opened_in_a_language_is_closed_in_another) {
    LanguageFile("English", "Open", "Four", "Eight");
    Show("a\t\t\tOpen\nb\t\t\tX\nc\t\t\tL16\nd\t\t\tX\n");
    EXPECT_THAT(Bands(4), ElementsAre(BandGrey, BandGrey, White, White));
}

TEST_F(F7_Band, the_words_in_use_go_before_those_of_a_language_file) {
    LanguageFile("English", "L17", "L16", "Eight");
    Show("a\t\t\tL16\nb\t\t\tL17\nc\t\t\tX\n");
    EXPECT_THAT(Bands(3), ElementsAre(BandGrey, White, BandGrey));
}

TEST_F(F7_Band, a_language_file_that_is_short_or_cannot_be_read_adds_nothing) {
    world.Disk.Files["/q/QVM_English.DAT"] = std::string(15, '\n') + "Open\n";
    world.Disk.Files["/q/QVM_Deutsch.DAT"] = std::string(15, '\n') + "Auf\n";
    world.Disk.Files["/q/HIST/H.HST"] = "a\t\t\tAuf\nb\t\t\tOpen\nc\t\t\tX\nd\t\t\tL16\n";
    world.Disk.FailAt = 2; // the file of the history is read first, the German words behind it
    view.F7_Oeffnen("/q/HIST/H.HST");
    EXPECT_THAT(Bands(4), ElementsAre(White, BandGrey, BandGrey, White));
    EXPECT_THAT(world.Shown, IsEmpty());
}

TEST_F(F7_Band, the_text_of_a_state_or_of_a_line_that_is_no_event_makes_none) {
    Show("\t\t\tL16\nL16\n\t\tL17\na\tb\tc\td\tL16\nb\t\t\tX\n");
    EXPECT_THAT(Bands(5), ElementsAre(White, White, White, White, White));
}

TEST_F(F7_Band, without_a_language_file_there_is_none) {
    kern.Sprache.LanguageText.fill("");
    Show("a\t\t\t\nb\t\t\t   \nc\n\n");
    EXPECT_THAT(Bands(4), ElementsAre(White, White, White, White));
}

} // namespace
} // namespace qvm::test
