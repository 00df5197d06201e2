// A sheet is read by its headings, whatever their order, their language, the separator and the character set.

#include "Blatt.h"

#include "Kern.h"
#include "VirtualPlatform.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace qvm {
namespace {

struct Sheet_Reading : testing::Test {
    std::vector<Blattspalte> columns{{.Column = 1, .Heading = "Name"},
                                     {.Column = 1, .Heading = "Nom"},
                                     {.Column = 2, .Heading = "N\xB0 de s\xE9rie"},
                                     {.Column = 3, .Heading = "Code", .Taken = false},
                                     {.Column = 4, .Heading = "-", .Taken = false, .Repeated = true}};
    std::vector<int> key{1};

    Blatt Read(std::string_view text, Zeichensatz set = Zeichensatz::Cp1252) {
        return Blatt_Lesen(text, set, columns, key);
    }
    void ExpectFault(std::string_view text, Word fault, const std::string& what = {}) {
        const Blatt sheet = Read(text);
        ASSERT_TRUE(sheet.Fault.has_value()) << text;
        EXPECT_EQ(*sheet.Fault, fault) << text;
        EXPECT_EQ(sheet.FaultText, what) << text;
        EXPECT_TRUE(sheet.Rows.empty());
    }
};

TEST_F(Sheet_Reading, columns_come_in_any_order_and_separators_are_told_apart) {
    for (const char separator : {';', ',', '\t'}) {
        std::string text = "N\xB0 de s\xE9rie|Code|nom|\r\n01|secret|Anna|\r\n\r\n|| |\r\n02||Bert|\r\n";
        std::replace(text.begin(), text.end(), '|', separator);
        const Blatt sheet = Read(text);
        ASSERT_FALSE(sheet.Fault.has_value());
        ASSERT_EQ(sheet.Rows.size(), 2U);
        EXPECT_EQ(sheet.Rows[0].Fields, (std::map<int, std::string>{{1, "Anna"}, {2, "01"}}));
        EXPECT_EQ(sheet.Rows[1].Line, 5);
        EXPECT_EQ(sheet.Headings.at(1), "nom");
        EXPECT_EQ(sheet.Left, std::vector<std::string>{"Code"});
    }
}

TEST_F(Sheet_Reading, the_row_above_the_head_is_kept) {
    const Blatt sheet = Read("sep=;\n;Tor\nName;N\xB0 de s\xE9rie\nAnna;1\n");
    EXPECT_EQ(sheet.Above.Line, 2);
    EXPECT_EQ(sheet.Above.Fields.at(2), "Tor");
}

TEST_F(Sheet_Reading, utf_8_is_read_with_and_without_a_mark) {
    const std::string text = "Name;N\xC2\xB0 de s\xC3\xA9rie\nJ\xC3\xBCrgen;1\n\xCE\xA9;2\n";
    for (const std::string& bytes : {text, "\xEF\xBB\xBF" + text}) {
        const Blatt sheet = Read(bytes, Zeichensatz::Utf8);
        ASSERT_EQ(sheet.Rows.size(), 2U);
        EXPECT_EQ(sheet.Rows[0].Fields.at(1), "J\xFCrgen");
        EXPECT_TRUE(sheet.Rows[0].Unfit.empty());
        EXPECT_EQ(sheet.Rows[1].Unfit, std::set<int>{1}); // omega is not in the code page
    }
}

TEST_F(Sheet_Reading, what_is_no_sheet_is_told) {
    ExpectFault("", Word::SheetNoHeading);
    ExpectFault("Anna;1\nBert;2\n", Word::SheetNoHeading);
    ExpectFault("Code\n1\n", Word::SheetNoHeading); // it has none that says whose row it is
    ExpectFault(std::string("Name\0", 5), Word::SheetNoText);
    ExpectFault(std::string("\x89PNG\r\n\x1A\n\0\0", 10), Word::SheetNoText);
    ExpectFault(std::string(100U << 20U, 'x'), Word::SheetTooLarge);
    ExpectFault("Name;Nom\nAnna;Bert\n", Word::SheetHeadingTwice, "Nom");
    ExpectFault("Name;Code;CODE\n", Word::SheetHeadingTwice, "CODE");
    ExpectFault("Name;Colour\nAnna;red\n", Word::SheetUnknownHeading, "Colour");
    ExpectFault("Name;\nAnna;\nBert;red\n", Word::SheetNoHeadingFor, "3");
    ExpectFault("Name\nAnna;red\n", Word::SheetNoHeadingFor, "2");
    ExpectFault("Name;Code\nAnna;1\nName;Code\nBert;2\n", Word::SheetTwoTables, "3");
    ExpectFault("Name;Code\nAnna;\"1\n", Word::SheetOpenQuote, "2");
    ExpectFault("Name;Code\nAn\"na;1\n", Word::SheetStrayQuote, "2");
    ExpectFault("Name\n" + std::string(5000, 'x'), Word::SheetFieldTooLong, "2");
    ExpectFault("Name\n" + std::string(3000, '\n'), Word::SheetTooMany, "2001");
}

TEST_F(Sheet_Reading, a_heading_from_which_nothing_is_taken_may_be_there_more_than_once) {
    EXPECT_FALSE(Read("Name;-;-\nAnna;;\n").Fault.has_value());
}

TEST_F(Sheet_Reading, a_short_row_lacks_the_fields_behind_its_end) {
    const Blatt sheet = Read("Name;N\xB0 de s\xE9rie\nAnna\n");
    EXPECT_EQ(sheet.Rows[0].Fields, (std::map<int, std::string>{{1, "Anna"}}));
}

TEST(Zeichensaetze, are_told_by_the_mark_and_by_what_is_no_utf_8) {
    using enum Zeichensatz;
    EXPECT_EQ(Zeichensaetze("Anna"), std::vector{Cp1252});
    EXPECT_EQ(Zeichensaetze("J\xFCrgen"), std::vector{Cp1252});
    EXPECT_EQ(Zeichensaetze("J\xC3\xBCrgen"), (std::vector{Utf8, Cp1252}));
    EXPECT_EQ(Zeichensaetze("\xEF\xBB\xBF"
                            "Anna"),
              std::vector{Utf8});
    EXPECT_EQ(Zeichensaetze("\xCE\xA9"), (std::vector{Utf8, Cp1252})); // UTF-8, though not in the code page
}

TEST(Blattueberschriften, are_those_of_all_languages_whose_file_is_there) {
    test::VirtualPlatform pc;
    Kern kern(pc.World);
    kern.AppPath = "/q/";
    kern.Sprache.LanguageText[2] = "now";
    pc.Disk.Files["/q/QVM_Deutsch.DAT"] = "eins\r\nzwei\r\n";
    pc.Disk.Files["/q/QVM_Nederlands.DAT"] = "een\r\ntwee\r\n";
    pc.Disk.Files["/q/QVM_English.DAT"] = "one\r\n";
    EXPECT_EQ(Blattueberschriften(kern, 2), (std::vector<std::string>{"now", "zwei", "twee"}));
}

} // namespace
} // namespace qvm
