// How a report stands on paper.

#include "Pdf.h"
#include "Seiten.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

namespace qvm::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

Report Simple() {
    return {.Title = "Title",
            .Subtitle = {},
            .System = "SYSTEM",
            .Moment = "05.03.2026 10:30",
            .PageText = "Page %1 of %2",
            .Nothing = "Nothing"};
}

/// The texts of a page in their order.
std::vector<std::string> Texts(const ReportPage& page) {
    std::vector<std::string> texts;
    for (const PageText& text : page.Texts) {
        texts.push_back(text.Text);
    }
    return texts;
}

/// How often a text stands on any of the pages.
int Count(const ReportPages& pages, const std::string& wanted) {
    int count = 0;
    for (const ReportPage& page : pages.Pages) {
        for (const PageText& text : page.Texts) {
            count += text.Text == wanted ? 1 : 0;
        }
    }
    return count;
}

ReportPages OneColumn(const std::vector<std::string>& cells) {
    Report report = Simple();
    ReportPart part;
    part.Table.Headings = {"Column"};
    part.Table.Shares = {1};
    for (const std::string& cell : cells) {
        part.Table.Rows.push_back({cell});
    }
    report.Parts = {part};
    return Seiten_Setzen(report);
}

/// Every text lies within the page and its margins, and no two texts on top of each other.
void ExpectOnPaper(const ReportPages& pages) {
    for (const ReportPage& page : pages.Pages) {
        for (const PageText& text : page.Texts) {
            EXPECT_GE(text.X, 42000) << text.Text;
            EXPECT_LE(text.X + Textbreite(text.Text, text.Size, text.Bold), PageWidth - 42000) << text.Text;
            EXPECT_GT(text.Y, 42000) << text.Text;
            EXPECT_LE(text.Y, PageHeight - 36000) << text.Text;
        }
        for (std::size_t n = 1; n < page.Texts.size(); ++n) {
            EXPECT_FALSE(page.Texts[n].X == page.Texts[n - 1].X && page.Texts[n].Y == page.Texts[n - 1].Y);
        }
    }
}

// The widths of Helvetica: "i" 222, "W" 944, "0" 556, bold "i" 278 thousandths.
TEST(Textbreite, is_the_sum_of_the_characters_in_the_size_asked_for) {
    EXPECT_EQ(Textbreite("iW0", 10, false), 17220);
    EXPECT_EQ(Textbreite("i", 9, true), 2502);
    EXPECT_EQ(Textbreite("", 9, true), 0);
}

TEST(Drucktext, has_no_character_that_is_not_drawn) {
    EXPECT_EQ(Drucktext("a\tb\nc\x7F"
                        "d\x81\x8D\x8F\x90\x9D\xAD"
                        "e"),
              "a b c d" + std::string(5, '?') + "-e");
    for (int byte = 0; byte < 256; ++byte) {
        const std::string drawn = Drucktext(std::string(1, static_cast<char>(byte)));
        ASSERT_EQ(drawn.size(), 1U);
        EXPECT_GT(Zeichenbreite(static_cast<unsigned char>(drawn[0]), false), 0) << byte;
        EXPECT_GT(Zeichenbreite(static_cast<unsigned char>(drawn[0]), true), 0) << byte;
    }
}

// Nine digits in ten points are 50.04 points wide.
TEST(Text_Umbrechen, breaks_at_blanks_and_within_a_word_that_is_wider_than_the_line) {
    EXPECT_THAT(Text_Umbrechen("", 50040, 10, false), ElementsAre(""));
    EXPECT_THAT(Text_Umbrechen("123456789", 50040, 10, false), ElementsAre("123456789"));
    EXPECT_THAT(Text_Umbrechen("1234567890", 50040, 10, false), ElementsAre("123456789", "0"));
    EXPECT_THAT(Text_Umbrechen("123456789 1", 50040, 10, false), ElementsAre("123456789", "1"));
    EXPECT_THAT(Text_Umbrechen("1234 5678 1", 50040, 10, false), ElementsAre("1234 5678", "1"));
    EXPECT_THAT(Text_Umbrechen("1234 567890", 50040, 10, false), ElementsAre("1234", "567890"));
    EXPECT_THAT(Text_Umbrechen("1234 12345\xA0"
                               "6",
                               50040, 10, false),
                ElementsAre("1234", "12345 6"));
    EXPECT_THAT(Text_Umbrechen("W", 1, 10, false), ElementsAre("W")) << "a column that is too narrow";
}

TEST(Seiten_Setzen, an_empty_table_says_so) {
    const ReportPages pages = OneColumn({});
    ASSERT_EQ(pages.Pages.size(), 1U);
    EXPECT_THAT(Texts(pages.Pages[0]),
                ElementsAre("SYSTEM", "05.03.2026 10:30", "Title", "Column", "Nothing", "Page 1 of 1"));
}

TEST(Seiten_Setzen, headings_stand_on_each_page_and_every_row_once) {
    std::vector<std::string> cells;
    for (int n = 0; n < 1000; ++n) {
        cells.push_back("row " + std::to_string(n));
    }
    const ReportPages pages = OneColumn(cells);
    ExpectOnPaper(pages);
    const auto count = static_cast<int>(pages.Pages.size());
    EXPECT_GE(count, 1000 / 60);
    EXPECT_LE(count, 1000 / 40);
    EXPECT_EQ(Count(pages, "Column"), count);
    for (const std::string& cell : cells) {
        EXPECT_EQ(Count(pages, cell), 1) << cell;
    }
    EXPECT_EQ(Count(pages, "Page 2 of " + std::to_string(count)), 1);
}

TEST(Seiten_Setzen, a_row_that_does_not_fit_begins_the_next_page) {
    const std::string five = "a1 " + std::string(90, 'x') + " a2 " + std::string(90, 'x') + " a3";
    std::vector<std::string> cells(30, "short");
    cells.insert(cells.end(), 20, five);
    const ReportPages pages = OneColumn(cells);
    ExpectOnPaper(pages);
    ASSERT_GT(pages.Pages.size(), 1U);
    for (const ReportPage& page : pages.Pages) {
        int opened = 0, closed = 0;
        for (const std::string& text : Texts(page)) {
            opened += text.starts_with("a1") ? 1 : 0;
            closed += text.ends_with("a3") ? 1 : 0;
        }
        EXPECT_EQ(opened, closed) << "a row was torn";
    }
}

TEST(Seiten_Setzen, a_row_longer_than_a_page_goes_on_over_pages_and_loses_nothing) {
    std::string words;
    for (int n = 0; n < 5000; ++n) {
        words += (n > 0 ? " word" : "word") + std::to_string(n);
    }
    const ReportPages pages = OneColumn({"before", words, "behind"});
    ExpectOnPaper(pages);
    EXPECT_GT(pages.Pages.size(), 2U);
    std::string all;
    for (const ReportPage& page : pages.Pages) {
        for (const std::string& text : Texts(page)) {
            all += !text.starts_with("word") ? "" : all.empty() ? text : " " + text;
        }
    }
    EXPECT_TRUE(all == words);
    EXPECT_EQ(Count(pages, "behind"), 1);
}

TEST(Seiten_Setzen, headings_as_long_as_a_page_end_too) {
    Report report = Simple();
    ReportPart part;
    part.Table = {.Headings = {std::string(9000, 'W')}, .Shares = {1}, .Rows = {{"row"}, {"other"}}};
    report.Parts = {part};
    const ReportPages pages = Seiten_Setzen(report);
    EXPECT_EQ(Count(pages, "row"), 1);
    EXPECT_EQ(Count(pages, "other"), 1);
}

TEST(Seiten_Setzen, places_to_sign_stay_together_and_on_paper) {
    for (int rows = 30; rows < 70; ++rows) {
        Report report = Simple();
        ReportPart part;
        part.Table = {.Headings = {"Column"}, .Shares = {1}};
        part.Table.Rows.assign(static_cast<std::size_t>(rows), {"row"});
        report.Parts = {part};
        report.Signatures = {"Place", "Sign", "By"};
        const ReportPages pages = Seiten_Setzen(report);
        ExpectOnPaper(pages);
        EXPECT_THAT(Texts(pages.Pages.back()), testing::IsSupersetOf({"Place", "Sign", "By"})) << rows;
    }
}

TEST(Pdf_Text, is_the_same_document_for_the_same_pages) {
    const ReportPages pages = OneColumn(std::vector<std::string>(200, "row"));
    const std::optional<std::string> pdf = Pdf_Text(pages);
    ASSERT_TRUE(pdf);
    EXPECT_TRUE(pdf->starts_with("%PDF-"));
    EXPECT_TRUE(pdf->ends_with("%%EOF\n"));
    EXPECT_EQ(Pdf_Text(pages), pdf);
}

TEST(Pdf_Text, has_an_object_for_each_page) {
    const ReportPages pages = OneColumn(std::vector<std::string>(1000, "row"));
    const std::string pdf = Pdf_Text(pages).value_or("");
    EXPECT_THAT(pdf, HasSubstr("/Count " + std::to_string(pages.Pages.size())));
}

} // namespace
} // namespace qvm::test
