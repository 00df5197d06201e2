// The program that makes the language files, run on small catalogues.

#include "Erzeugung.h"

#include <gtest/gtest.h>
#include <ostream>
#include <string>

namespace qvm {
namespace {

const char* const Head = "line\tkey\tuses\tDeutsch\tEnglish\tFrancais\tNederlands\n";

struct NeueSprachdateien : test::Erzeugung {
    explicit NeueSprachdateien(const std::string& catalogue) : Erzeugung("SprachdateienErzeugen", catalogue) {}

    std::string Datei(const std::string& language) const { return Erzeugung::Datei("QVM_" + language + ".DAT"); }
};

TEST(SprachdateienErzeugen, row_n_becomes_line_n_and_numbers_between_become_empty_lines) {
    const NeueSprachdateien made(std::string(Head) +
                                 "2\tTwo\tx\tT\xC3\xBCr\tDoor\tPorte\tDeur\n4\tFour\ty\td\te\t\xE2\x82\xAC\tn\n");
    EXPECT_EQ(made.exitCode, 0) << made.errors;
    EXPECT_EQ(made.Datei("Deutsch"), "\r\nT\xFCr\r\n\r\nd\r\n");
    EXPECT_EQ(made.Datei("English"), "\r\nDoor\r\n\r\ne\r\n");
    EXPECT_EQ(made.Datei("Francais"), "\r\nPorte\r\n\r\n\x80\r\n");
    EXPECT_EQ(made.Datei("Nederlands"), "\r\nDeur\r\n\r\nn\r\n");
}

TEST(SprachdateienErzeugen, line_300_is_the_last) {
    EXPECT_EQ(NeueSprachdateien(std::string(Head) + "300\tLast\tx\ta\tb\tc\td\n").exitCode, 0);
}

struct Schlecht {
    std::string Name;
    std::string Catalogue;
    std::string Error;
};

void PrintTo(const Schlecht& bad, std::ostream* out) {
    *out << bad.Name;
}

struct SchlechterKatalog : testing::TestWithParam<Schlecht> {};

TEST_P(SchlechterKatalog, is_refused_with_its_line_and_writes_no_file) {
    const NeueSprachdateien made(GetParam().Catalogue);
    EXPECT_EQ(made.exitCode, 1);
    EXPECT_NE(made.errors.find(GetParam().Error), std::string::npos) << made.errors;
    EXPECT_EQ(made.Datei("Deutsch"), "");
    EXPECT_EQ(made.Datei("Nederlands"), "");
}

Schlecht Zeile(const std::string& name, const std::string& row, const std::string& error) {
    return {name, std::string(Head) + "1\tOne\tx\ta\tb\tc\td\n" + row + "\n", ":3: " + error};
}

INSTANTIATE_TEST_SUITE_P(
    Jeder, SchlechterKatalog,
    testing::Values(Zeile("empty_text", "2\tTwo\tx\ta\t\tc\td", "English: empty"),
                    Zeile("blank_in_front", "2\tTwo\tx\ta\tb\t c\td", "Francais: blanks"),
                    Zeile("blank_behind", "2\tTwo\tx\ta\tb\tc\td ", "Nederlands: blanks"),
                    Zeile("greek", "2\tTwo\tx\t\xCE\xB1\tb\tc\td", "Deutsch: not in code page 1252"),
                    Zeile("broken_utf8", "2\tTwo\tx\ta\xC3\tb\tc\td", "Deutsch: not in code page 1252"),
                    Zeile("carriage_return", "2\tTwo\tx\ta\tb\tc\td\r", "Nederlands: a control character"),
                    Zeile("field_missing", "2\tTwo\tx\ta\tb\tc", "6 fields"),
                    Zeile("field_too_many", "2\tTwo\tx\ta\tb\tc\td\te", "8 fields"),
                    Zeile("empty_line", "", "1 fields"),
                    Zeile("number_twice", "1\tTwo\tx\ta\tb\tc\td", "the numbers must rise"),
                    Zeile("number_0", "0\tTwo\tx\ta\tb\tc\td", "the number must be 1 to 300"),
                    Zeile("number_301", "301\tTwo\tx\ta\tb\tc\td", "the number must be 1 to 300"),
                    Zeile("no_number", "2a\tTwo\tx\ta\tb\tc\td", "the number must be 1 to 300"),
                    Schlecht{"heading_without_dutch",
                             "line\tkey\tuses\tDeutsch\tEnglish\tFrancais\n1\tOne\tx\ta\tb\tc\td\n", ":1: the heading"},
                    Schlecht{"languages_exchanged",
                             "line\tkey\tuses\tEnglish\tDeutsch\tFrancais\tNederlands\n1\tOne\tx\ta\tb\tc\td\n",
                             ":1: the heading must name Deutsch"},
                    Schlecht{"no_rows", Head, "no row"}, Schlecht{"empty_file", "", "heading"}),
    [](const auto& bad) { return bad.param.Name; });

} // namespace
} // namespace qvm
