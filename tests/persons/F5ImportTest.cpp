// A spreadsheet of users: what it would change is told first, by the rules of what is typed, and an export changes
// nothing.

#include "F5_Csv.h"
#include "F5_Import.h"
#include "F5_Marken.h"
#include "PersonsFixture.h"
#include "Text.h"

#include <random>

namespace qvm {
namespace {

struct F5_Import : test::Persons {
    F5_Import() {
        auto& lines = kern.Sprache.LanguageText;
        lines[37] = "Nr.";
        lines[54] = "Name";
        lines[39] = "Zeitgruppe";
        lines[40] = "Recht";
        lines[41] = "Code";
        lines[42] = "Bezeichnung";
        lines[43] = "E-Key / Transponder";
        Grup_Name(table, 1, "Tor 1");
        Grup_Name(table, 3, "Keller");
        User(1, "Anna", "Rad", "111111");
        User(2, "Bert", "Auto", "222222");
        table.FGK4.SetText(3, UserColumn::FingerId, "7");
        Marke_Setzen(table.FGK4, 2, UserGrid::ColumnOf(1), 'X');
        // As the window shows them.
        for (int column = 1; column <= 6; ++column) {
            const int line[] = {0, 54, 39, 40, 41, 42, 43};
            table.FGK4.SetText(1, column, kern.Zeile(line[column]));
        }
        table.FGK4.SetText(1, UserColumn::Finger, "FS");
        for (int lock = 1; lock <= 200; ++lock) {
            table.FGK4.SetText(1, UserGrid::ColumnOf(lock), std::to_string(lock));
        }
    }

    void User(int number, std::string_view name, std::string_view label, std::string_view code) {
        const int row = UserGrid::RowOf(number);
        table.FGK4.SetText(row, UserColumn::Name, name);
        table.FGK4.SetText(row, UserColumn::Group, "-");
        table.FGK4.SetText(row, UserColumn::Right, "1");
        table.FGK4.SetText(row, UserColumn::Code, code);
        table.FGK4.SetText(row, UserColumn::KeyLabel, label);
    }
    Blattplan Plan(std::string_view bytes) { return F5_Blatt_Planen(kern, table, bytes); }
    /// The steps in English, a line each.
    std::string Told(std::string_view bytes) {
        const Blattplan plan = Plan(bytes);
        std::string told = Blattmangel_Text(plan, "English");
        for (const Blattschritt& step : plan.Steps) {
            told += Blattschritt_Text(step, "English") + "\n";
        }
        return told;
    }
    std::string Row(int number, int last = 5) {
        std::string row;
        for (int column = 1; column <= last; ++column) {
            row += (column == 1 ? "" : "|") + table.FGK4.Text(UserGrid::RowOf(number), column);
        }
        return row;
    }
};

TEST_F(F5_Import, a_row_is_that_of_the_user_with_its_name_in_any_order) {
    const std::string_view text = "Recht;Name;Zeitgruppe;3;1\n0;Bert;Timer-B;F;\n1;Anna;-;x;-\n";
    EXPECT_EQ(Told(text), "line 3, Anna: 1: X > (empty)\n"
                          "line 3, Anna: 3: (empty) > X\n"
                          "line 2, Bert: Zeitgruppe: - > Timer-B\n"
                          "line 2, Bert: Recht: 1 > 0\n"
                          "line 2, Bert: 3: (empty) > F\n");
}

TEST_F(F5_Import, nothing_changes_until_the_plan_is_taken) {
    const Blattplan plan = Plan("Name;Recht;1\nAnna;0;\nCora;;X\n");
    EXPECT_EQ(Row(1), "Anna|-|1|111111|Rad");
    F5_Blatt_Anwenden(table, plan);
    EXPECT_EQ(Row(1), "Anna|-|0|111111|Rad");
    EXPECT_EQ(Row(3), "Cora|-|1||");
    EXPECT_EQ(table.FGK4.Text(2, 8), "");
    EXPECT_EQ(table.FGK4.Text(4, 8), "X");
    EXPECT_EQ(table.FGK4.At(4, 8).ForeColor, UserLook::MarkAccess);
    EXPECT_EQ(Row(2), "Bert|-|1|222222|Auto");
    EXPECT_TRUE(Plan("Name;Recht;1\nAnna;0;\nCora;;X\n").Steps.empty());
}

TEST_F(F5_Import, a_number_finds_the_user_whose_name_is_then_changed) {
    const std::string_view text = "Nr.;Name\n2;Anna\n1;Bert\n"; // they change places
    EXPECT_EQ(Told(text), "line 3, Anna: Name: Anna > Bert\nline 2, Bert: Name: Bert > Anna\n");
    F5_Blatt_Anwenden(table, Plan(text));
    EXPECT_EQ(Row(1), "Bert|-|1|111111|Rad");
    EXPECT_EQ(Row(2), "Anna|-|1|222222|Auto");
}

TEST_F(F5_Import, codes_and_keys_are_never_taken_and_never_shown) {
    const Blattplan plan = Plan("Name;Code;E-Key / Transponder;FS\nAnna;999999;1 : 2 : 3 : 4;X\nCora;888888;;\n");
    F5_Blatt_Anwenden(table, plan);
    EXPECT_EQ(plan.Left, (std::vector<std::string>{"Code", "E-Key / Transponder", "FS"}));
    EXPECT_EQ(Row(1, 6), "Anna|-|1|111111|Rad|");
    EXPECT_EQ(Row(3, 6), "Cora|-|1|||");
    for (const std::string& line : Blattplan_Texte(plan, "English", 100)) {
        EXPECT_EQ(line.find("999999"), std::string::npos);
        EXPECT_EQ(line.find("888888"), std::string::npos);
    }
}

TEST_F(F5_Import, users_that_the_sheet_lacks_stay) {
    const Blattplan plan = Plan("Name\nBert\n");
    EXPECT_TRUE(plan.Steps.empty());
    EXPECT_EQ(plan.Missing, std::vector<std::string>{"Anna"});
    EXPECT_EQ(Blattplan_Texte(plan, "English", 10),
              (std::vector<std::string>{"New: 0, changed: 0, refused: 0, removed: 0",
                                        "Not in the file, stays as it is: 1 (Anna)"}));
}

TEST_F(F5_Import, values_go_by_the_rules_of_what_is_typed) {
    EXPECT_EQ(Told("Name;Zeitgruppe;Recht;Bezeichnung;1;2;3\n"
                   "Anna;Nacht;7;Auto;Y;X;F\n"
                   "Bert;;;12345678901234567;;;\n"),
              "line 2, Anna: Zeitgruppe: Nacht: none of the possible values\n"
              "line 2, Anna: Recht: 7: none of the possible values\n"
              "line 2, Anna: Bezeichnung: Auto: is in use already\n"
              "line 2, Anna: 1: Y: none of the possible values\n"
              "line 2, Anna: 2: X: the lock has no name\n"
              "line 2, Anna: 3: F: the user has no fingerprint\n"
              "line 3, Bert: Bezeichnung: 12345678901234567: too long\n");
}

TEST_F(F5_Import, names_that_cannot_be_are_refused_as_a_row) {
    EXPECT_EQ(Told("Name;1\nC/D;X\nCora Lang Mueller;X\nDora;\nDora;X\n\xD6zg\xFCr \x80;\n;X\n"),
              "line 2, C/D: Name: C/D: characters that are not allowed here\n"
              "line 3, Cora Lang Mueller: Name: Cora Lang Mueller: too long\n"
              "line 5, Dora: stands twice in the file\n"
              "line 6, \xD6zg\xFCr \x80: Name: \xD6zg\xFCr \x80: characters that are not allowed here\n"
              "line 4, Dora: new\n"
              "line 4, Dora: Name: (empty) > Dora\n");
}

TEST_F(F5_Import, numbers_that_cannot_be_are_refused) {
    EXPECT_EQ(Told("Nr.;Name\n0;Cora\n251;Dora\nx;Emil\n1;Anna\n1;Anna\n2;\n5;Franz\n4;\n;Bert\n"),
              "line 2, Cora: a number that does not exist\n"
              "line 3, Dora: a number that does not exist\n"
              "line 4, Emil: a number that does not exist\n"
              "line 6, Anna: stands twice in the file\n"
              "line 10, Bert: stands twice in the file\n"
              "line 7, Bert: Name: (empty): must not be empty\n"
              "line 8, Franz: Name: Franz: the row above is free\n");
}

TEST_F(F5_Import, a_full_table_takes_no_more) {
    for (int number = 3; number <= 250; ++number) {
        User(number, "U" + std::to_string(number), "L" + std::to_string(number), "");
    }
    EXPECT_EQ(Told("Name\nCora\n"), "line 2, Cora: no free row is left\n");
}

TEST_F(F5_Import, a_mark_for_a_lock_that_was_renamed_since_is_refused) {
    EXPECT_EQ(Told(";Tor1;Dach;Keller\nName;1;3;200\nBert;X;X;\n"),
              "line 3, Bert: 1: (empty) > X\n"
              "line 3, Bert: 3: X: the lock with this number has another name now than in the file\n");
}

TEST_F(F5_Import, the_designation_of_a_finger_stays) {
    table.FGK4.SetText(3, UserColumn::KeyLabel, "Slot_Nr: 007");
    EXPECT_EQ(Told("Name;Bezeichnung\nBert;Auto\n"), "line 2, Bert: Bezeichnung: Auto: belongs to a fingerprint\n");
    EXPECT_EQ(Told("Name;Bezeichnung\nBert;Slot_Nr: 007\n"), "");
}

TEST_F(F5_Import, headings_of_another_language_and_utf_8_are_taken) {
    std::string lines;
    for (int n = 1; n <= 60; ++n) {
        lines += (n == 54 ? "Nom" : n == 42 ? "D\xE9signation" : "x" + std::to_string(n)) + "\r\n";
    }
    File("/qvm/QVM_Francais.DAT") = lines;
    EXPECT_EQ(Told("D\xC3\xA9signation,Nom\nV\xC3\xA9lo,Anna\n"), "line 2, Anna: D\xE9signation: Rad > V\xE9lo\n");
    EXPECT_EQ(Told("D\xE9signation\tNom\nV\xE9lo\tAnna\n"), "line 2, Anna: D\xE9signation: Rad > V\xE9lo\n");
    EXPECT_EQ(Told("Nom;D\xC3\xA9signation\nAnna;\xCE\xA9\n"),
              "line 2, Anna: D\xE9signation: ?: characters that the system does not have\n");
}

TEST_F(F5_Import, an_export_twice_into_one_file_is_refused) {
    const std::string text = F5_CsvText(table.FGK4);
    EXPECT_EQ(Told(text + text), "A second table begins in line 254. A file may hold one export only.");
}

TEST_F(F5_Import, an_export_of_any_table_changes_nothing) {
    std::mt19937 random(4711);
    const auto pick = [&](std::string_view from, std::size_t most) {
        std::string text;
        for (std::size_t n = random() % (most + 1); n > 0; --n) {
            text += from[random() % from.size()];
        }
        return text;
    };
    constexpr std::string_view any = "aB;,\"'=+-@\t\r\n \xFC\xC3\xBC\x80\xE9.1X";
    for (int turn = 0; turn < 12; ++turn) {
        for (int lock = 1; lock <= UserGrid::Locks; ++lock) {
            Grup_Name(table, lock, pick(turn % 2 == 0 ? "Tor 1" : any, 5));
        }
        for (int number = 1; number <= UserGrid::Users; ++number) {
            // Names that a file alone can bring, too, and some of them twice.
            User(number, pick(turn % 3 == 0 ? "ab" : any, 16), pick(any, 16), pick("123456", 6));
            const int row = UserGrid::RowOf(number);
            table.FGK4.SetText(row, UserColumn::Group, pick("-AT", 3));
            table.FGK4.SetText(row, UserColumn::Right, pick("01/", 3));
            table.FGK4.SetText(row, UserColumn::KeyId, pick("1 : #", 9));
            for (int lock = 1; lock <= UserGrid::Locks; ++lock) {
                const bool named = !table.FGK4.Text(0, UserGrid::ColumnOf(lock)).empty();
                Marke_Setzen(table.FGK4, row, UserGrid::ColumnOf(lock), named ? "XF-"[random() % 3] : '-');
            }
        }
        const std::string text = F5_CsvText(table.FGK4);
        ASSERT_EQ(Told(text), "") << "turn " << turn;
        ASSERT_EQ(Told("\xEF\xBB\xBF" + NachUtf8(text)), "") << "turn " << turn;
    }
}

} // namespace
} // namespace qvm
