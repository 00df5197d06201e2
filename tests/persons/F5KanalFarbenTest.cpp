#include "PersonsFixture.h"

namespace qvm {
namespace {

using test::Blanks;
using test::Nulls;
using test::PlainUser;

struct F5_KanalFarben : test::Persons {
    static constexpr Colour Red = 0x0000FF;

    Colour KeyColour(int row) const { return table.FGK4.At(row, 6).ForeColor; }
    void Key(int row, const char* text) { table.FGK4.SetText(row, 6, text); }
    void Channels(int user, const char* record) {
        std::string& file = File(ChannelFile);
        file.resize(static_cast<std::size_t>(user) * 15, '\0');
        file.replace(static_cast<std::size_t>(user - 1) * 15, 15, record);
    }
};

TEST_F(F5_KanalFarben, a_key_on_another_channel_than_the_target_is_red) {
    Key(2, "1 : 2 : 3 : 4");
    Key(3, "1 : 2 : 3 : 5");
    Channels(1, "1  5  7  0  1  ");
    Channels(2, "1  7  7  0  0  ");
    EXPECT_TRUE(qvm::F5_KanalFarben(kern, table));
    EXPECT_EQ(KeyColour(2), Red);
    EXPECT_EQ(KeyColour(3), Black);
}

TEST_F(F5_KanalFarben, a_transponder_is_never_red) {
    Key(2, "  #1-ID#1:2:3");
    Channels(1, "1  5  7  0  1  ");
    EXPECT_TRUE(qvm::F5_KanalFarben(kern, table));
    EXPECT_EQ(KeyColour(2), Black);
}

TEST_F(F5_KanalFarben, a_transponder_is_not_red_when_the_whole_window_is_loaded) {
    File(UserFile) = PlainUser("Anna", "");
    File(UserFile).replace(61, 12, "#1-ID#1:2:3:");
    Channels(1, "1  5  7  0  1  ");
    EXPECT_TRUE(F5_TabelleLaden(kern, table));
    EXPECT_EQ(KeyColour(2), Black);
}

TEST_F(F5_KanalFarben, a_blank_key_channel_means_1) {
    Channels(1, "1     1  0  0  ");
    Channels(2, "1     2  0  0  ");
    EXPECT_TRUE(qvm::F5_KanalFarben(kern, table));
    EXPECT_EQ(KeyColour(2), Black);
    EXPECT_EQ(KeyColour(3), Red);
}

TEST_F(F5_KanalFarben, a_blank_target_means_no_change) {
    Channels(1, "1  5     0  0  ");
    EXPECT_TRUE(qvm::F5_KanalFarben(kern, table));
    EXPECT_EQ(KeyColour(2), Black);
}

TEST_F(F5_KanalFarben, channels_are_compared_by_value) {
    Channels(1, "1  05 5  0  0  ");
    EXPECT_TRUE(qvm::F5_KanalFarben(kern, table));
    EXPECT_EQ(KeyColour(2), Black);
}

TEST_F(F5_KanalFarben, users_behind_the_locks_are_coloured_too) {
    Channels(250, "1  5  7  0  1  ");
    EXPECT_TRUE(qvm::F5_KanalFarben(kern, table));
    EXPECT_EQ(KeyColour(251), Red);
    EXPECT_EQ(KeyColour(250), Black);
}

TEST_F(F5_KanalFarben, without_the_file_or_the_record_a_key_is_black) {
    table.FGK4.SetForeColor(2, 6, Red);
    table.FGK4.SetForeColor(251, 6, Red);
    EXPECT_TRUE(qvm::F5_KanalFarben(kern, table));
    EXPECT_EQ(KeyColour(2), Black);
    EXPECT_EQ(KeyColour(251), Black);

    table.FGK4.SetForeColor(251, 6, Red);
    File(ChannelFile) = "1  5";
    EXPECT_TRUE(qvm::F5_KanalFarben(kern, table));
    EXPECT_EQ(KeyColour(2), Black);
    EXPECT_EQ(KeyColour(251), Black);
}

TEST_F(F5_KanalFarben, a_file_error_leaves_the_colours) {
    table.FGK4.SetForeColor(2, 6, Red);
    Welt.Disk.FailAt = 1;
    EXPECT_FALSE(qvm::F5_KanalFarben(kern, table));
    EXPECT_EQ(KeyColour(2), Red);
    EXPECT_FALSE(table.LoadFailed); // no row is lost by it
}

} // namespace
} // namespace qvm
