#include "Kalender.h"

#include "TimeFixture.h"

namespace qvm {
namespace {

using namespace std::string_literals;
using test::Zeile;

constexpr auto Einzel = KalenderBlock::Einzel, Permanent = KalenderBlock::Permanent;

std::string Leer(int records) {
    return std::string(static_cast<std::size_t>(records) * 21, ' ');
}

struct Kalender : test::TimeFixture {
    Grid single{21, 6}, permanent{21, 4};

    void Setzen(Grid& grid, int row, const std::string& from, const std::string& to, const std::string& kind) {
        grid.SetText(row, 1, from);
        grid.SetText(row, 2, to);
        grid.SetText(row, 3, kind);
    }
    std::string Satz(int n) { return files[Calendar].substr((static_cast<std::size_t>(n) - 1) * 21, 21); }
};

struct Kalender_Laden_Aus : Kalender {};

TEST_F(Kalender_Laden_Aus, a_missing_file_is_created_empty_by_the_single_calendar) {
    EXPECT_TRUE(Kalender_Laden(kern, single, Einzel));
    EXPECT_EQ(files, (std::map<std::string, std::string>{{Calendar, ""}}));
    EXPECT_EQ(Zeile(single, 1), "||||");
}

TEST_F(Kalender_Laden_Aus, a_missing_file_is_not_created_by_the_permanent_calendar) {
    EXPECT_TRUE(Kalender_Laden(kern, permanent, Permanent));
    EXPECT_TRUE(files.empty());
    EXPECT_EQ(Zeile(permanent, 20), "||");
}

TEST_F(Kalender_Laden_Aus, each_window_reads_its_own_block) {
    files[Calendar] = "24.12.202626.12.20260" + Leer(18) + "01.01.202701.01.20271" + "record 21 unused     " +
                      "24.12. - -26.12. - - " + Leer(18) + "01.05. - -01.05. - - ";
    EXPECT_TRUE(Kalender_Laden(kern, single, Einzel));
    EXPECT_TRUE(Kalender_Laden(kern, permanent, Permanent));
    EXPECT_EQ(Zeile(single, 1), "24.12.2026|26.12.2026|Einzelfeiertage||");
    EXPECT_EQ(Zeile(single, 2), "||||");
    EXPECT_EQ(Zeile(single, 20), "01.01.2027|01.01.2027|Perm. Feiertage||");
    EXPECT_EQ(Zeile(permanent, 1), "24.12. - -|26.12. - -|Perm. Feiertage");
    EXPECT_EQ(Zeile(permanent, 20), "01.05. - -|01.05. - -|Perm. Feiertage");
    EXPECT_EQ(single.Text(20, 0), "20");
}

TEST_F(Kalender_Laden_Aus, a_kind_that_is_neither_0_nor_1_stays_empty_in_the_single_calendar) {
    files[Calendar] = "24.12.202626.12.2026 "
                      "25.12.202626.12.20262";
    EXPECT_TRUE(Kalender_Laden(kern, single, Einzel));
    EXPECT_EQ(Zeile(single, 1), "24.12.2026|26.12.2026|||");
    EXPECT_EQ(Zeile(single, 2), "25.12.2026|26.12.2026|||");
}

TEST_F(Kalender_Laden_Aus, the_kind_of_a_permanent_date_is_always_the_second) {
    files[Calendar] = Leer(21) + "24.12. - -26.12. - -0";
    EXPECT_TRUE(Kalender_Laden(kern, permanent, Permanent));
    EXPECT_EQ(Zeile(permanent, 1), "24.12. - -|26.12. - -|Perm. Feiertage");
}

TEST_F(Kalender_Laden_Aus, records_of_zero_bytes_are_unused) {
    files[Calendar] = std::string(21 * 20, '\0') + "24.12.";
    EXPECT_TRUE(Kalender_Laden(kern, single, Einzel));
    EXPECT_EQ(Zeile(single, 1), "||||");
    EXPECT_EQ(Zeile(single, 20), "||||");
}

TEST_F(Kalender_Laden_Aus, a_record_without_a_from_date_is_unused_whatever_else_it_holds) {
    files[Calendar] = "          26.12.20261";
    EXPECT_TRUE(Kalender_Laden(kern, single, Einzel));
    EXPECT_EQ(Zeile(single, 1), "||||");
}

TEST_F(Kalender_Laden_Aus, rows_of_unused_records_are_emptied) {
    Setzen(single, 2, "alt", "alt", "alt");
    files[Calendar] = "24.12.202626.12.20260";
    EXPECT_TRUE(Kalender_Laden(kern, single, Einzel));
    EXPECT_EQ(Zeile(single, 2), "||||");
}

TEST_F(Kalender_Laden_Aus, a_last_record_cut_short_gives_what_it_has) {
    files[Calendar] = "24.12.202626.1";
    EXPECT_TRUE(Kalender_Laden(kern, single, Einzel));
    EXPECT_EQ(Zeile(single, 1), "24.12.2026|26.1|||");
}

TEST_F(Kalender_Laden_Aus, what_stands_behind_record_41_is_not_looked_at) {
    files[Calendar] = Leer(41) + "24.12. - -26.12. - - ";
    EXPECT_TRUE(Kalender_Laden(kern, permanent, Permanent));
    EXPECT_EQ(Zeile(permanent, 20), "||");
}

TEST_F(Kalender_Laden_Aus, a_file_error_leaves_the_grid) {
    Setzen(single, 1, "alt", "alt", "alt");
    files[Calendar] = "24.12.202626.12.20260";
    Brechen(1);
    EXPECT_FALSE(Kalender_Laden(kern, single, Einzel));
    EXPECT_EQ(single.Text(1, 1), "alt");
}

TEST_F(Kalender_Laden_Aus, a_file_that_is_missing_and_cannot_be_made_is_an_empty_calendar) {
    Setzen(single, 1, "alt", "alt", "alt");
    Brechen(2);
    EXPECT_TRUE(Kalender_Laden(kern, single, Einzel));
    EXPECT_EQ(Zeile(single, 1), "||||");
    EXPECT_FALSE(files.contains(Calendar));
}

struct Kalender_Speichern_Nach : Kalender {};

TEST_F(Kalender_Speichern_Nach, a_single_date_gives_these_bytes) {
    Setzen(single, 1, "24.12.2026", "26.12.2026", "Einzelfeiertage");
    Setzen(single, 2, "31.12.2026", "01.01.2027", "Perm. Feiertage");
    EXPECT_TRUE(Kalender_Speichern(kern, single, Einzel));
    EXPECT_EQ(files[Calendar], "24.12.202626.12.20260"
                               "31.12.202601.01.20271" +
                                   Leer(18));
    EXPECT_TRUE(single.Visible());
}

TEST_F(Kalender_Speichern_Nach, a_kind_that_is_not_the_second_counts_as_the_first) {
    Setzen(single, 1, "24.12.2026", "26.12.2026", "Holiday");
    EXPECT_TRUE(Kalender_Speichern(kern, single, Einzel));
    EXPECT_EQ(Satz(1), "24.12.202626.12.20260");
}

TEST_F(Kalender_Speichern_Nach, a_permanent_date_has_both_dates_in_the_short_form_and_no_kind) {
    Setzen(permanent, 3, "24.12. - -", "26.12. - -", "Perm. Feiertage");
    EXPECT_TRUE(Kalender_Speichern(kern, permanent, Permanent));
    EXPECT_EQ(files[Calendar], Leer(21) + "24.12. - -26.12. - - " + Leer(19));
    EXPECT_EQ(files[Calendar].size(), 861U); // 41 x 21
}

TEST_F(Kalender_Speichern_Nach, a_permanent_calendar_saved_first_leaves_no_rubbish_for_the_single_one) {
    Setzen(permanent, 1, "24.12. - -", "26.12. - -", "Perm. Feiertage");
    EXPECT_TRUE(Kalender_Speichern(kern, permanent, Permanent));
    EXPECT_TRUE(Kalender_Laden(kern, single, Einzel));
    for (int row = 1; row <= 20; ++row) {
        EXPECT_EQ(Zeile(single, row), "||||") << row;
    }
}

TEST_F(Kalender_Speichern_Nach, rows_are_sorted_by_text_so_that_the_day_of_the_month_leads) {
    Setzen(single, 1, "31.01.2026", "31.01.2026", "Einzelfeiertage");
    Setzen(single, 5, "01.02.2027", "02.02.2027", "Einzelfeiertage");
    EXPECT_TRUE(Kalender_Speichern(kern, single, Einzel));
    EXPECT_EQ(Zeile(single, 1), "01.02.2027|02.02.2027|Einzelfeiertage||");
    EXPECT_EQ(Zeile(single, 2), "31.01.2026|31.01.2026|Einzelfeiertage||");
    EXPECT_EQ(Satz(1), "01.02.202702.02.20270");
    EXPECT_EQ(Satz(2), "31.01.202631.01.20260");
}

TEST_F(Kalender_Speichern_Nach, rows_of_the_same_date_keep_their_order) {
    Setzen(single, 3, "24.12.2026", "26.12.2026", "Einzelfeiertage");
    Setzen(single, 4, "24.12.2026", "25.12.2026", "Einzelfeiertage");
    Setzen(single, 9, "24.12.2026", "31.12.2026", "Einzelfeiertage");
    EXPECT_TRUE(Kalender_Speichern(kern, single, Einzel));
    EXPECT_EQ(single.Text(1, 2), "26.12.2026");
    EXPECT_EQ(single.Text(2, 2), "25.12.2026");
    EXPECT_EQ(single.Text(3, 2), "31.12.2026");
}

TEST_F(Kalender_Speichern_Nach, empty_rows_stand_behind_all_dates_and_the_rows_are_numbered_anew) {
    single.SetText(7, 0, "7");
    Setzen(single, 1, "", "01.01.2026", "");
    Setzen(single, 2, "        ", "", "");
    Setzen(single, 7, "99.99.9999", "99.99.9999", "Einzelfeiertage");
    EXPECT_TRUE(Kalender_Speichern(kern, single, Einzel));
    EXPECT_EQ(single.Text(1, 1), "99.99.9999");
    EXPECT_EQ(single.Text(1, 0), "1");
    EXPECT_EQ(single.Text(20, 0), "20");
    EXPECT_EQ(Zeile(single, 2), "|01.01.2026|||");
    EXPECT_EQ(Zeile(single, 3), "||||");
}

TEST_F(Kalender_Speichern_Nach, a_row_that_lacks_something_is_dropped_from_the_file_but_stays_in_the_grid) {
    Setzen(single, 1, "01.01.2026", "", "Einzelfeiertage");
    Setzen(single, 2, "02.01.2026", "02.01.2026", "");
    Setzen(single, 3, "", "03.01.2026", "Einzelfeiertage");
    EXPECT_TRUE(Kalender_Speichern(kern, single, Einzel));
    EXPECT_EQ(files[Calendar], Leer(20));
    EXPECT_EQ(Zeile(single, 1), "01.01.2026||Einzelfeiertage||");
    EXPECT_EQ(Zeile(single, 2), "02.01.2026|02.01.2026|||");
    EXPECT_TRUE(Kalender_Laden(kern, single, Einzel));
    EXPECT_EQ(Zeile(single, 1), "||||");
}

TEST_F(Kalender_Speichern_Nach, the_hidden_columns_never_reach_the_file) {
    Setzen(single, 1, "24.12.2026", "26.12.2026", "Einzelfeiertage");
    single.SetText(1, 4, "hidden");
    single.SetText(1, 5, "hidden");
    EXPECT_TRUE(Kalender_Speichern(kern, single, Einzel));
    EXPECT_EQ(files[Calendar].find("hidden"), std::string::npos);
}

TEST_F(Kalender_Speichern_Nach, there_is_no_row_21) {
    Grid longer(25, 6);
    Setzen(longer, 20, "24.12.2026", "24.12.2026", "Einzelfeiertage");
    Setzen(longer, 21, "01.01.2026", "01.01.2026", "Einzelfeiertage");
    EXPECT_TRUE(Kalender_Speichern(kern, longer, Einzel));
    EXPECT_EQ(files[Calendar], "24.12.202624.12.20260" + Leer(19));
}

TEST_F(Kalender_Speichern_Nach, the_other_block_and_record_21_are_not_touched) {
    const std::string first(420, 'a'), unused(21, 'u'), second(420, 'b'), tail = "tail";
    files[Calendar] = first + unused + second + tail;
    EXPECT_TRUE(Kalender_Speichern(kern, single, Einzel));
    EXPECT_EQ(files[Calendar], Leer(20) + unused + second + tail);
    files[Calendar] = first + unused + second + tail;
    EXPECT_TRUE(Kalender_Speichern(kern, permanent, Permanent));
    EXPECT_EQ(files[Calendar], first + unused + Leer(20) + tail);
}

TEST_F(Kalender_Speichern_Nach, a_single_block_cut_short_is_filled_up_with_blanks) {
    files[Calendar] = "24.12.202626.12.20260"
                      "31.12.";
    EXPECT_TRUE(Kalender_Speichern(kern, permanent, Permanent));
    EXPECT_EQ(files[Calendar], "24.12.202626.12.20260"
                               "31.12.               " +
                                   Leer(39));
}

TEST_F(Kalender_Speichern_Nach, a_save_that_breaks_leaves_the_old_file) {
    Setzen(single, 1, "24.12.2026", "26.12.2026", "Einzelfeiertage");
    for (const int operation : {1, 2}) {
        files[Calendar] = "old";
        Brechen(operation);
        EXPECT_FALSE(Kalender_Speichern(kern, single, Einzel)) << operation;
        EXPECT_EQ(files[Calendar], "old") << operation;
        EXPECT_TRUE(single.Visible()) << operation;
    }
    Brechen(3);
    EXPECT_TRUE(Kalender_Speichern(kern, single, Einzel));
    EXPECT_EQ(disk.Operations, 2);
}

} // namespace
} // namespace qvm
