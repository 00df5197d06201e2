// A spreadsheet of locks: what it would change is told first, by the rules of what is typed, and an export changes
// nothing.

#include "F12_Csv.h"
#include "F12_Import.h"
#include "LocksFixture.h"
#include "Text.h"

#include <random>

namespace qvm {
namespace {

struct F12_Import : test::LocksFixture {
    F12_Import() {
        auto& lines = kern.Sprache.LanguageText;
        lines[226] = "OBJEKT";
        lines[227] = "Kartenfehler";
        for (int n = 0; n < 5; ++n) {
            lines[static_cast<std::size_t>(234 + n)] = "Schalter " + std::to_string(n + 1);
        }
        lines[239] = "Priorit\xE4t";
        EXPECT_TRUE(Laden());
        Lock(1, "Tor", "0A.1B.2C.3D");
        Lock(2, "Keller", "");
        for (int column = 4; column <= 8; ++column) {
            grid.SetPicture(2, column, LockPicture::None); // as a load leaves those of a lock without a number
        }
    }
    void Lock(int row, std::string_view name, std::string_view serial) {
        grid.SetText(row, LockColumn::Name, name);
        grid.SetText(row, LockColumn::Serial, serial);
    }
    Blattplan Plan(std::string_view bytes) { return F12_Blatt_Planen(kern, table, bytes); }
    /// The steps in English, a line each.
    std::string Told(std::string_view bytes) {
        const Blattplan plan = Plan(bytes);
        std::string told = Blattmangel_Text(plan, "English");
        for (const Blattschritt& step : plan.Steps) {
            told += Blattschritt_Text(step, "English") + "\n";
        }
        return told;
    }
};

TEST_F(F12_Import, a_row_is_that_of_the_lock_with_its_serial_however_it_is_written) {
    EXPECT_EQ(Told("Priorit\xE4t;Serien-Nr.;Bezeichnung;Schalter 2\n5; a.1b.2c.3d;Haupttor;\n"),
              "line 2, Tor: Bezeichnung: Tor > Haupttor\n"
              "line 2, Tor: Schalter 2: X > (empty)\n"
              "line 2, Tor: Priorit\xE4t: 3 > 5\n");
}

TEST_F(F12_Import, a_lock_with_another_serial_is_found_by_its_name) {
    const std::string_view text = "Bezeichnung;Serien-Nr.;Schalter 1\nKeller;11.22.33.44;X\nTor;55.66.77.88;X\n";
    const Blattplan plan = Plan(text);
    EXPECT_EQ(Told(text), "line 2, Keller: Serien-Nr.: (empty) > 11.22.33.44\n"
                          "line 3, Tor: Serien-Nr.: 0A.1B.2C.3D > 55.66.77.88\n");
    EXPECT_EQ(F12_Blatt_Serien(plan), (std::vector<int>{2, 1}));
    EXPECT_EQ(Text(1, LockColumn::Serial), "0A.1B.2C.3D");
    F12_Blatt_Anwenden(table, plan);
    EXPECT_EQ(Text(1, LockColumn::Serial), "55.66.77.88");
    EXPECT_EQ(Text(2, LockColumn::Serial), "11.22.33.44");
    EXPECT_EQ(Schalter(2), std::vector<int>(5, LockPicture::On));
    EXPECT_TRUE(Plan(text).Steps.empty());
}

TEST_F(F12_Import, the_serial_goes_before_the_name) {
    EXPECT_EQ(Told("Bezeichnung;Serien-Nr.\nTor;\nKeller;0A.1B.2C.3D\n"),
              "line 2, Tor: stands twice in the file\n"
              "line 3, Tor: Bezeichnung: Keller: is in use already\n");
}

TEST_F(F12_Import, a_number_goes_before_both) {
    EXPECT_EQ(Told("Nr.;Bezeichnung;Serien-Nr.\n2;Tor;\n1;Keller;0a.1b.2c.3d\n"),
              "line 2, Keller: Bezeichnung: Keller > Tor\n"
              "line 3, Tor: Bezeichnung: Tor > Keller\n");
    EXPECT_EQ(Told("Nr.;Bezeichnung\n0;Hof\n201;Dach\n1;Tor\n1;Tor\n9;\n"),
              "line 2, Hof: a number that does not exist\n"
              "line 3, Dach: a number that does not exist\n"
              "line 5, Tor: stands twice in the file\n");
}

TEST_F(F12_Import, a_new_lock_gets_the_first_free_row) {
    const std::string_view text = "Bezeichnung;Serien-Nr.;Priorit\xE4t;Schalter 1;EMI\nHof;11.22.33.44;;;\n";
    EXPECT_EQ(Told(text), "line 2, Hof: new\n"
                          "line 2, Hof: Bezeichnung: (empty) > Hof\n"
                          "line 2, Hof: Serien-Nr.: (empty) > 11.22.33.44\n"
                          "line 2, Hof: Schalter 1: X > (empty)\n");
    F12_Blatt_Anwenden(table, Plan(text));
    EXPECT_EQ(Text(3, LockColumn::Name), "Hof");
    EXPECT_EQ(Schalter(3), (std::vector<int>{10, 9, 9, 9, 9}));
    EXPECT_EQ(Text(3, LockColumn::Priority), "3");
    EXPECT_TRUE(Plan(text).Steps.empty());
}

TEST_F(F12_Import, values_go_by_the_rules_of_what_is_typed) {
    EXPECT_EQ(Told("Bezeichnung;Serien-Nr.;Schalter 1;Priorit\xE4t;EMI\n"
                   "Tor;01.02.03;Y;6;X\n"
                   "Hof*;;;;\n"
                   "12345678901234567890;;;;\n"
                   "Dach;01.02.03;;;\n"),
              "line 2, Tor: Serien-Nr.: 01.02.03: no serial number\n"
              "line 2, Tor: Schalter 1: Y: none of the possible values\n"
              "line 2, Tor: Priorit\xE4t: 6: none of the possible values\n"
              "line 2, Tor: EMI: X: the lock does not have this setting\n"
              "line 3, Hof*: Bezeichnung: Hof*: characters that are not allowed here\n"
              "line 4, 12345678901234567890: Bezeichnung: 12345678901234567890: too long\n"
              "line 5, Dach: Serien-Nr.: 01.02.03: no serial number\n");
}

TEST_F(F12_Import, a_full_table_takes_no_more) {
    for (int row = 3; row <= LockGrid::LastRow; ++row) {
        Lock(row, "L" + std::to_string(row), "");
    }
    EXPECT_EQ(Told("Bezeichnung\nHof\n"), "line 2, Hof: no free row is left\n");
}

TEST_F(F12_Import, nothing_is_taken_from_the_unit_and_locks_that_the_sheet_lacks_stay) {
    const Blattplan plan = Plan("Bezeichnung;QVM;OBJEKT;Kartenfehler;-\nTor;STE;;;\n");
    EXPECT_TRUE(plan.Steps.empty());
    EXPECT_EQ(plan.Left, (std::vector<std::string>{"QVM", "OBJEKT", "Kartenfehler", "-"}));
    EXPECT_EQ(plan.Missing, std::vector<std::string>{"Keller"});
}

TEST_F(F12_Import, an_export_of_any_table_changes_nothing) {
    std::mt19937 random(815);
    const auto pick = [&](std::string_view from, std::size_t most) {
        std::string text;
        for (std::size_t n = random() % (most + 1); n > 0; --n) {
            text += from[random() % from.size()];
        }
        return text;
    };
    constexpr std::string_view any = "aB;,\"'=+-@\t\r\n \xFC\xC3\xBC\x80\xE9.1X";
    for (int turn = 0; turn < 200; ++turn) {
        for (int row = 1; row <= 199; ++row) { // the last lock is not exported
            Lock(row, pick(turn % 3 == 0 ? "ab" : any, 19),
                 turn % 2 == 0 ? pick(any, 11) : "01.02.03." + HexText(random() % 150, 2));
            for (int column = 4; column <= 8; ++column) {
                constexpr int pictures[] = {LockPicture::None, LockPicture::On, LockPicture::Off};
                grid.SetPicture(row, column, pictures[random() % 3]);
            }
            grid.SetText(row, LockColumn::Priority, pick("1239x", 1));
            grid.SetPicture(row, LockColumn::Emi, 9 + static_cast<int>(random() % 3));
        }
        const std::string text = F12_CsvText(kern, grid);
        ASSERT_EQ(Told(text), "") << "turn " << turn;
        ASSERT_EQ(Told("\xEF\xBB\xBF" + NachUtf8(text)), "") << "turn " << turn;
    }
}

} // namespace
} // namespace qvm
