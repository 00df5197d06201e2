#include "RealWorld.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace qvm {
namespace {

class World_ : public test::RealWorld {};

TEST_F(World_, the_front_end_gets_messages_and_dialogs_as_they_are_and_its_answers_come_back) {
    std::vector<std::string> asked;
    auto options = test::OptionsFor(Directory.Path());
    options.ShowMessage = [&](const Message& message) {
        asked.push_back(message.Title + "|" + message.Text);
        return Answer::Yes;
    };
    options.OpenFile = [&](const FileDialog& dialog) {
        asked.push_back("open " + dialog.Filter);
        return std::optional<std::string>("opened");
    };
    options.SaveFile = [&](const FileDialog& dialog) {
        asked.push_back("save " + dialog.Title);
        return std::optional<std::string>("saved");
    };
    options.OpenWithLinkedApp = [&](const std::string& target, const std::string& directory) {
        asked.push_back("shell " + target + " in " + directory);
        return true;
    };
    QtPlatform platform(std::move(options));
    const Platform& world = platform.World();
    EXPECT_EQ(world.ShowMessage({.Text = "text \xFC", .Title = "title", .Choice = Buttons::YesNo}), Answer::Yes);
    EXPECT_EQ(world.OpenFile({.Title = "a", .Filter = "f|*.F|", .Directory = "d"}), "opened");
    EXPECT_EQ(world.SaveFile({.Title = "b", .Filter = "g", .Directory = "e"}), "saved");
    EXPECT_TRUE(world.OpenWithLinkedApp("page", "here"));
    EXPECT_EQ(asked, (std::vector<std::string>{"title|text \xFC", "open f|*.F|", "save b", "shell page in here"}));
}

TEST_F(World_, without_a_front_end_a_question_is_answered_with_the_last_of_its_buttons) {
    const auto answer = [this](Buttons choice) {
        return World().ShowMessage({.Text = "text", .Title = "title", .Choice = choice});
    };
    EXPECT_EQ(answer(Buttons::Ok), Answer::Ok);
    EXPECT_EQ(answer(Buttons::OkCancel), Answer::Cancel);
    EXPECT_EQ(answer(Buttons::YesNo), Answer::No);
    EXPECT_EQ(answer(Buttons::YesNoCancel), Answer::Cancel);
}

TEST_F(World_, without_a_front_end_dialogs_are_cancelled_and_nothing_is_opened) {
    EXPECT_EQ(World().OpenFile({.Title = "a", .Filter = "f", .Directory = "d"}), std::nullopt);
    EXPECT_EQ(World().SaveFile({.Title = "a", .Filter = "f", .Directory = "d"}), std::nullopt);
    EXPECT_FALSE(World().OpenWithLinkedApp("page", "here"));
}

TEST_F(World_, the_hourglass_is_the_front_ends_and_does_nothing_without_one) {
    World().Hourglass(true);
    World().Hourglass(false);
    std::vector<bool> shown;
    auto options = test::OptionsFor(Directory.Path());
    options.Hourglass = [&shown](bool on) { shown.push_back(on); };
    QtPlatform platform(std::move(options));
    platform.World().Hourglass(true);
    platform.World().Hourglass(false);
    EXPECT_EQ(shown, (std::vector{true, false}));
}

TEST_F(World_, there_is_no_device_manager_to_open) {
    EXPECT_FALSE(World().DeviceManager);
}

TEST_F(World_, random_fractions_lie_below_1_and_cover_the_range) {
    int lower = 0;
    double least = 1;
    double most = 0;
    for (int n = 0; n < 10000; ++n) {
        const double fraction = World().Random();
        ASSERT_GE(fraction, 0.0);
        ASSERT_LT(fraction, 1.0);
        lower += fraction < 0.5 ? 1 : 0;
        least = std::min(least, fraction);
        most = std::max(most, fraction);
    }
    EXPECT_GT(lower, 4500); // ten standard deviations from the middle
    EXPECT_LT(lower, 5500);
    EXPECT_LT(least, 0.01);
    EXPECT_GT(most, 0.99);
}

TEST_F(World_, two_programs_get_different_random_numbers) {
    QtPlatform other(test::OptionsFor(Directory.Path()));
    std::vector<double> here;
    std::vector<double> there;
    for (int n = 0; n < 4; ++n) {
        here.push_back(World().Random());
        there.push_back(other.World().Random());
    }
    EXPECT_NE(here, there);
}

} // namespace
} // namespace qvm
