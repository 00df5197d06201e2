// A table of separated fields is taken apart; what is none is told with its line.

#include "CsvLesen.h"

#include "Csv.h"

#include <gtest/gtest.h>
#include <random>

namespace qvm {
namespace {

using Rows = std::vector<std::vector<std::string>>;

Rows Read(std::string_view text, char separator = ';') {
    const CsvTabelle table = Csv_Lesen(text, separator);
    EXPECT_EQ(table.Fault, CsvFehler::None);
    Rows rows;
    for (const CsvZeile& row : table.Rows) {
        rows.push_back(row.Fields);
    }
    return rows;
}

void ExpectFault(std::string_view text, CsvFehler fault, int line) {
    const CsvTabelle table = Csv_Lesen(text, ';');
    EXPECT_EQ(table.Fault, fault);
    EXPECT_EQ(table.Line, line);
}

TEST(Csv_Lesen, lines_end_in_lf_cr_lf_or_cr_and_the_last_one_needs_no_end) {
    EXPECT_EQ(Read("a;b\nc;d"), (Rows{{"a", "b"}, {"c", "d"}}));
    EXPECT_EQ(Read("a;b\r\nc;d\r\n"), (Rows{{"a", "b"}, {"c", "d"}}));
    EXPECT_EQ(Read("a;b\rc;d\r"), (Rows{{"a", "b"}, {"c", "d"}}));
    EXPECT_EQ(Read("a\n\nb"), (Rows{{"a"}, {""}, {"b"}}));
    EXPECT_EQ(Read(""), Rows{});
}

TEST(Csv_Lesen, a_quoted_field_holds_separators_quotes_and_line_ends) {
    EXPECT_EQ(Read("\"a;b\";\"say \"\"no\"\"\";\"two\r\nlines\"\n\"\";x"),
              (Rows{{"a;b", "say \"no\"", "two\r\nlines"}, {"", "x"}}));
    EXPECT_EQ(Read("a,b\tc", '\t'), (Rows{{"a,b", "c"}}));
}

TEST(Csv_Lesen, a_row_knows_its_line_behind_fields_of_several_lines) {
    const CsvTabelle table = Csv_Lesen("a\r\n\"b\r\nc\nd\re\";f\r\ng", ';');
    ASSERT_EQ(table.Rows.size(), 3U);
    EXPECT_EQ(table.Rows[1].Line, 2);
    EXPECT_EQ(table.Rows[2].Line, 6);
}

TEST(Csv_Lesen, broken_quotes_are_told_with_their_line) {
    ExpectFault("a;b\nc;\"d\ne;f\n", CsvFehler::OpenQuote, 2);
    ExpectFault("a;b\nc;d\"e", CsvFehler::StrayQuote, 2);
    ExpectFault("a;b\n\n\"c\"d;e", CsvFehler::StrayQuote, 3);
    ExpectFault("\"", CsvFehler::OpenQuote, 1);
    EXPECT_EQ(Csv_Lesen("a\nb;c\"", ';').Rows.size(), 1U);
}

TEST(Csv_Lesen, wild_lengths_are_refused) {
    ExpectFault("a\n" + std::string(4096, 'x'), CsvFehler::None, 0);
    ExpectFault("a\n" + std::string(4097, 'x'), CsvFehler::FieldTooLong, 2);
    ExpectFault("\"" + std::string(4097, 'x') + "\"", CsvFehler::FieldTooLong, 1);
    ExpectFault(std::string(399, ';'), CsvFehler::None, 0);
    ExpectFault("a\n" + std::string(400, ';'), CsvFehler::TooMany, 2);
    ExpectFault(std::string(2000, '\n'), CsvFehler::None, 0);
    ExpectFault(std::string(2001, '\n'), CsvFehler::TooMany, 2001);
    ExpectFault(std::string((8U << 20U) + 1, ';'), CsvFehler::TooLarge, 0);
}

TEST(Csv_Lesen, zero_bytes_are_no_text) {
    ExpectFault(std::string("a;b\0c", 5), CsvFehler::NoText, 0);
}

TEST(Csv_Lesen, only_as_many_rows_as_are_wanted_are_looked_at) {
    const CsvTabelle table = Csv_Lesen("a\nb\n\"", ';', 2);
    EXPECT_EQ(table.Fault, CsvFehler::None);
    EXPECT_EQ(table.Rows.size(), 2U);
}

TEST(Csv_Lesen, gives_back_what_was_written_for_random_fields) {
    std::mt19937 random(7702);
    constexpr std::string_view characters = "ab;\"\r\n, =+-@'\t\xFC";
    for (int turn = 0; turn < 500; ++turn) {
        Rows rows(1 + random() % 4, std::vector<std::string>(2));
        std::string text;
        for (auto& row : rows) {
            for (std::string& field : row) {
                for (std::size_t n = random() % 6; n > 0; --n) {
                    field += characters[random() % characters.size()];
                }
            }
            text += Csv_Feld(row[0]) + ";" + Csv_Feld(row[1]) + "\r\n";
        }
        Rows read = Read(text);
        ASSERT_EQ(read.size(), rows.size()) << text;
        for (std::size_t n = 0; n < rows.size(); ++n) {
            for (std::size_t k = 0; k < 2; ++k) {
                // A text that itself begins with the apostrophe and a sign of a formula cannot be told from a guarded
                // one.
                EXPECT_TRUE(read[n][k] == rows[n][k] || Csv_Inhalt(read[n][k]) == rows[n][k]) << text;
            }
        }
    }
}

TEST(Csv_Inhalt, takes_the_guard_of_a_formula_away_and_nothing_else) {
    EXPECT_EQ(Csv_Inhalt("'=1+1"), "=1+1");
    EXPECT_EQ(Csv_Inhalt("'-5"), "-5");
    EXPECT_EQ(Csv_Inhalt("'s"), "'s");
    EXPECT_EQ(Csv_Inhalt("'"), "'");
    EXPECT_EQ(Csv_Inhalt(""), "");
}

} // namespace
} // namespace qvm
