#include "LinkFixture.h"

namespace qvm {
namespace {

using test::LinkFixture;
using GoldenRoh = LinkFixture;

TEST_F(GoldenRoh, TelAdapterKennung) {
    EXPECT_TRUE(TelAdapterKennung_Senden(link, {0x71, 0x02, 0x73, 0x74, 0x75}));
    EXPECT_EQ(Wire(), "02 0E 68 71 02 00 73 74 75 00 00 00 00 00 00 00 72");
}

TEST_F(GoldenRoh, TelAdapterKanal) {
    link.TargetChannel = 12;
    EXPECT_TRUE(TelAdapterKanal_Senden(link));
    EXPECT_EQ(Wire(), "02 0E 6B 0C 11 22 33 44 00 00 00 00 00 00 00 37");
}

TEST_F(GoldenRoh, TelAdapterDaten) {
    EXPECT_TRUE(TelAdapterDaten_Senden(link));
    EXPECT_EQ(Wire(), "02 0E 6C AA BB CC DD EE 00 00 00 00 00 00 00 3C");
}

TEST_F(GoldenRoh, TelAdapterName) {
    EXPECT_TRUE(TelAdapterName_Senden(link, "PROGSTATION 2"));
    EXPECT_EQ(Wire(), "02 18 6D 50 52 4F 47 53 54 41 54 49 4F 4E 20 32 00 00 00 00 00 00 00 00 00 56");
}

TEST_F(GoldenRoh, TelAdapterName_is_cut_behind_20_characters) {
    EXPECT_TRUE(TelAdapterName_Senden(link, "ABCDEFGHIJKLMNOPQRSTUVWX"));
    EXPECT_EQ(Wire(), "02 18 6D 41 42 43 44 45 46 47 48 49 4A 4B 4C 4D 4E 4F 50 51 52 53 54 00 00 A0");
}

TEST_F(GoldenRoh, TelAdapterZiel) {
    link.TargetChannel = 3;
    EXPECT_TRUE(TelAdapterZiel_Senden(link, 1));
    EXPECT_EQ(Wire(), "02 0E 6F 03 01 11 22 33 44 00 00 00 00 00 00 44");
}

TEST_F(GoldenRoh, raw_telegrams_show_no_progress) {
    int shown = 0;
    link.Hooks.Fortschritt = [&] { ++shown; };
    EXPECT_TRUE(TelAdapterDaten_Senden(link));
    EXPECT_EQ(shown, 0);
    EXPECT_EQ(link.Lauf.Progress.TelegramCounter, 0);
    EXPECT_EQ(link.Lauf.Progress.SecondProgress, 0);
}

} // namespace
} // namespace qvm
