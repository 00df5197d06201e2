// The time of a delayed start.

#include "FensterFixture.h"

namespace qvm::test {
namespace {

struct F92_Fenster : FensterFixture {
    std::vector<DateTime> Chosen;

    F92_Fenster() {
        Start();
        programm->Transfer->F92.Gewaehlt = [this](const DateTime& start) { Chosen.push_back(start); };
        programm->Transfer->F92.F92_Laden();
    }
    F92& Time() { return programm->Transfer->F92; }
};

TEST_F(F92_Fenster, offers_24_hours_and_60_minutes_preset_to_now) {
    ASSERT_EQ(Time().Stunden.Entries().size(), 24U);
    ASSERT_EQ(Time().Minuten.Entries().size(), 60U);
    EXPECT_EQ(Time().Stunden.Entries().front(), "00");
    EXPECT_EQ(Time().Minuten.Entries().back(), "59");
    EXPECT_EQ(Time().Stunden.Selected, 10);
    EXPECT_EQ(Time().Minuten.Selected, 30);
    EXPECT_EQ(Time().Kopf.Text(), "10:30 / 05.03.2026");
    EXPECT_EQ(Time().OK.Text(), "L84");
    EXPECT_EQ(Time().Abbrechen.Text(), "L83");
    EXPECT_TRUE(Time().Fenster.Visible);
}

TEST_F(F92_Fenster, the_head_follows_day_and_lists) {
    Time().Tag_Waehlen({.Year = 2026, .Month = 12, .Day = 31});
    Time().Zeit_Waehlen(0, 5);
    EXPECT_EQ(Time().Kopf.Text(), "00:05 / 31.12.2026");
}

TEST_F(F92_Fenster, takes_no_day_and_no_time_that_does_not_exist) {
    Time().Tag_Waehlen({.Year = 2026, .Month = 2, .Day = 29});
    Time().Zeit_Waehlen(24, 0);
    Time().Zeit_Waehlen(0, 60);
    Time().Zeit_Waehlen(-1, 0);
    EXPECT_EQ(Time().Kopf.Text(), "10:30 / 05.03.2026");
}

TEST_F(F92_Fenster, ok_gives_the_time_and_closes) {
    Time().Tag_Waehlen({.Year = 2027, .Month = 1, .Day = 2});
    Time().Zeit_Waehlen(23, 59);
    Time().OK_Click();
    EXPECT_FALSE(Time().Fenster.Visible);
    EXPECT_THAT(Chosen, ElementsAre(DateTime{.Year = 2027, .Month = 1, .Day = 2, .Hour = 23, .Minute = 59}));
}

TEST_F(F92_Fenster, its_frame_chooses_nothing) {
    int given = 0;
    Time().Verworfen = [&] { ++given; };
    Time().Schliessen_Click();
    EXPECT_FALSE(Time().Fenster.Visible);
    EXPECT_EQ(given, 1);
    EXPECT_THAT(Chosen, IsEmpty());
}

} // namespace
} // namespace qvm::test
