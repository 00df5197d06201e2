// The program that makes the sources of the program's own words, run on small tables.

#include "Erzeugung.h"

#include <gtest/gtest.h>
#include <ostream>
#include <string>

namespace qvm {
namespace {

const char* const LineHead = "line\tkey\tuses\tDeutsch\tEnglish\tFrancais\tNederlands\n";
const char* const WordHead = "key\tuse\tDeutsch\tEnglish\tFrancais\tNederlands\n";

struct Woerter : test::Erzeugung {
    explicit Woerter(const std::string& table) : Erzeugung("WoerterErzeugen", table) {}
};

TEST(WoerterErzeugen, makes_a_key_and_a_row_of_texts_of_each_row) {
    const Woerter made(std::string(WordHead) + "Door\tx\tT\xC3\xBCr\tDoor\tPorte\tDeur\nSay2\ty\t\"a\"\tb\\\tc\td\n");
    EXPECT_EQ(made.exitCode, 0) << made.errors;
    EXPECT_NE(made.Datei("WordList.h").find("    Door, ///< x\n    Say2, ///< y\n"), std::string::npos);
    EXPECT_NE(made.Datei("WordTable.h")
                  .find("{u8\"T\xC3\xBCr\"_w, u8\"Door\"_w, u8\"Porte\"_w, u8\"Deur\"_w},\n"
                        "    {u8\"\\\"a\\\"\"_w, u8\"b\\\\\"_w, u8\"c\"_w, u8\"d\"_w},"),
              std::string::npos)
        << made.Datei("WordTable.h");
}

TEST(WoerterErzeugen, makes_a_constant_of_each_line_of_the_catalogue) {
    const Woerter made(std::string(LineHead) +
                       "2\tDoor\tx\tT\xC3\xBCr\tDoor\tPorte\tDeur\n300\tSay2\ty, z\ta\tb\tc\td\n");
    EXPECT_EQ(made.exitCode, 0) << made.errors;
    EXPECT_NE(made.Datei("Lines.h").find("inline constexpr int Door = 2; ///< x\n"
                                         "inline constexpr int Say2 = 300; ///< y, z\n"),
              std::string::npos)
        << made.Datei("Lines.h");
    EXPECT_EQ(made.Datei("WordList.h"), "");
}

struct BadTable {
    std::string Name;
    std::string Table;
    std::string Error;
};

void PrintTo(const BadTable& bad, std::ostream* out) {
    *out << bad.Name;
}

struct SchlechteTafel : testing::TestWithParam<BadTable> {};

TEST_P(SchlechteTafel, is_refused_with_its_line_and_writes_no_file) {
    const Woerter made(GetParam().Table);
    EXPECT_EQ(made.exitCode, 1);
    EXPECT_NE(made.errors.find(GetParam().Error), std::string::npos) << made.errors;
    EXPECT_EQ(made.Datei("WordList.h"), "");
    EXPECT_EQ(made.Datei("WordTable.h"), "");
    EXPECT_EQ(made.Datei("Lines.h"), "");
}

BadTable Reihe(const std::string& name, const std::string& row, const std::string& error) {
    return {name, std::string(WordHead) + "One\tx\ta\tb\tc\td\n" + row + "\n", ":3: " + error};
}

BadTable Katalogreihe(const std::string& name, const std::string& row, const std::string& error) {
    return {name, std::string(LineHead) + "1\tOne\tx\ta\tb\tc\td\n" + row + "\n", ":3: " + error};
}

INSTANTIATE_TEST_SUITE_P(
    Jede, SchlechteTafel,
    testing::Values(Reihe("empty_text", "Two\tx\ta\t\tc\td", "English: empty"),
                    Reihe("blank_in_front", "Two\tx\ta\tb\t c\td", "Francais: blanks"),
                    Reihe("carriage_return", "Two\tx\ta\tb\tc\td\r", "Nederlands: a control character"),
                    Reihe("field_missing", "Two\tx\ta\tb\tc", "5 fields"),
                    Reihe("key_twice", "One\tx\ta\tb\tc\td", "the key stands twice"),
                    Reihe("key_with_a_blank", "Two Three\tx\ta\tb\tc\td", "the key must be"),
                    Reihe("key_small", "two\tx\ta\tb\tc\td", "the key must be"),
                    Reihe("place_missing", "Two\tx\t%1 %2\t%1 %2\t%1\t%2 %1", "Francais: other places"),
                    Katalogreihe("line_of_no_number", "2a\tTwo\tx\ta\tb\tc\td", "the number must be digits"),
                    Katalogreihe("line_without_a_number", "\tTwo\tx\ta\tb\tc\td", "the number must be digits"),
                    Katalogreihe("line_with_a_key_twice", "2\tOne\tx\ta\tb\tc\td", "the key stands twice"),
                    Katalogreihe("line_without_a_key", "2\t\tx\ta\tb\tc\td", "the key must be"),
                    Katalogreihe("line_cut_off", "2\tTwo", "number, key and uses must begin the row"),
                    BadTable{"languages_exchanged",
                             "key\tuse\tEnglish\tDeutsch\tFrancais\tNederlands\nOne\tx\ta\tb\tc\td\n",
                             ":1: the heading"},
                    BadTable{"no_rows", WordHead, "no row"}),
    [](const auto& bad) { return bad.param.Name; });

} // namespace
} // namespace qvm
