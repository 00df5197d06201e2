// A list beside damaged data files: its rows are passed over and say why.

#include "ListenFixture.h"

namespace qvm::test {
namespace {

struct List_Files : ListenFixture {
    std::string& Users = files.File("BX10X52WUJ9.UBW");
    const Row Cut{"-", u8"BX10X52WUJ9.UBW: zu kurz, am Ende fehlen Datensätze"_w};

    List_Files() {
        AddLock(1, "Tor", "00.0A.10.01", " XXX ");
        AddLock(2, "Keller", "00.0A.10.02", " XXX ");
        files.User(3, {.Name = "Anna", .Marks = {{1, 'X'}, {2, 'X'}}});
    }
    void CutUsers() { Users.resize(std::size_t{419} * 125); }
};

TEST_F(List_Files, every_row_is_passed_over_with_the_files_name_and_nothing_is_sent) {
    BeginList();
    CutUsers();
    ExpectNothingLeft();
    Prog({1, 2});
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(Cut, Cut));
    EXPECT_EQ(Lock("00.0A.10.01").Sessions, 0);
    EXPECT_EQ(Lock("00.0A.10.02").Sessions, 0);
}

TEST_F(List_Files, a_file_that_is_damaged_between_check_and_row_passes_the_row_over) {
    BeginList();
    Prog({1, 2});
    programm->Transfer->F91.Zeile_Fertig = [&](int row) {
        if (row == 1) {
            CutUsers();
        }
    };
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(Row(">>", "L266"), Cut));
    EXPECT_EQ(Lock("00.0A.10.02").Sessions, 0);
}

TEST_F(List_Files, histories_are_read_beside_a_cut_user_file) {
    BeginList();
    CutUsers();
    SaveHistory({1});
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(Row("<<", "L263")));
}

TEST_F(List_Files, who_takes_the_files_as_they_are_gets_them) {
    BeginList();
    CutUsers();
    programm->Run.SchadenHinnehmen = true;
    Prog({1, 2});
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(Row(">>", "L266"), Row(">>", "L266")));
    EXPECT_EQ(Lock("00.0A.10.01").Users.size(), 1U);
}

} // namespace
} // namespace qvm::test
