// What windows tell each other.

#include "WindowBoard.h"

#include "Controls.h"
#include "Kern.h"
#include "VirtualPlatform.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace qvm::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Signal_Listen : ::testing::Test {
    Signal signal;
    std::vector<std::string> heard;

    Listener Note(const std::string& name) {
        return signal.Listen([this, name] { heard.push_back(name); });
    }
};

TEST_F(Signal_Listen, all_hear_in_the_order_in_which_they_came) {
    const Listener first = Note("first");
    const Listener second = Note("second");
    signal();
    signal();
    EXPECT_THAT(heard, ElementsAre("first", "second", "first", "second"));
}

TEST_F(Signal_Listen, who_lets_go_hears_no_more) {
    Listener first = Note("first");
    const Listener second = Note("second");
    first.reset();
    signal();
    EXPECT_THAT(heard, ElementsAre("second"));
}

TEST_F(Signal_Listen, who_lets_go_while_it_is_told_is_passed_over) {
    Listener second;
    const Listener first = signal.Listen([&second] { second.reset(); });
    second = Note("second");
    const Listener third = Note("third");
    signal();
    EXPECT_THAT(heard, ElementsAre("third"));
}

TEST_F(Signal_Listen, who_comes_while_it_is_told_hears_of_the_next_time) {
    Listener late;
    const Listener first = signal.Listen([&] {
        if (!late) {
            late = Note("late");
        }
    });
    signal();
    EXPECT_THAT(heard, IsEmpty());
    signal();
    EXPECT_THAT(heard, ElementsAre("late"));
}

struct Board_Window {
    explicit Board_Window(Kern& kernel) : kern(kernel) {}

    Kern& kern;
    Window Fenster;
    int Words = 0;

    void Texte_Setzen() { ++Words; }
    Listener words = Worte_Folgen(*this);
};

TEST(Worte_Folgen, only_an_open_window_takes_its_words_anew) {
    VirtualPlatform world;
    Kern kern(world.World);
    Board_Window window(kern);
    kern.Windows.WordsChanged();
    EXPECT_EQ(window.Words, 0);
    window.Fenster.Visible = true;
    kern.Windows.WordsChanged();
    EXPECT_EQ(window.Words, 1);
}

TEST(WindowBoard_Weg, leads_to_the_window_of_that_name_and_to_no_other) {
    WindowBoard board;
    int opened = 0;
    board.Open["F14"] = [&opened] { ++opened; };
    board.Weg("F14")();
    EXPECT_EQ(opened, 1);
    EXPECT_FALSE(board.Weg("F1"));
}

} // namespace
} // namespace qvm::test
