// The filter of every time, against all sequences of up to five keys.

#include "Filter.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace qvm {
namespace {

/// What the box is to hold, by the rules once more: text, caret, still open.
struct TimeByRule {
    std::string Text;
    int Caret;
    bool Open = true;

    void Press(int key) {
        if (!Open || Caret == 2) {
            return;
        }
        if (key == Key::Tab || key == Key::Enter || key == Key::Escape) {
            Open = false;
        }
        if (key < '0' || key > '9' || Caret > 4) {
            return;
        }
        const char most = Caret == 0 ? '2' : Caret == 3 ? '5' : '9';
        Text[static_cast<std::size_t>(Caret)] = key > most ? most : static_cast<char>(key);
        Caret += Caret == 1 ? 2 : 1;
        if (Text.substr(0, 2) > "23") {
            Text.replace(0, 2, "23");
            Caret = 3;
        }
    }
    /// The arrow keys, which a view hands on as a new place of the caret.
    void Move(int by) { Caret = std::max(0, std::min(5, Caret + by)); }
};

constexpr int Left = -1, Right = -2;
constexpr int Keys[] = {
    '0',         '1', '2',  '3',  '4', '5', '6', '7', '8', '9', ':', Key::Tab, Key::Enter, Key::Escape, Key::Backspace,
    Key::Delete, 'a', Left, Right};

bool IsTime(const std::string& text) {
    const auto digit = [&](std::size_t at) { return text[at] >= '0' && text[at] <= '9'; };
    return text.size() == 5 && digit(0) && digit(1) && text[2] == ':' && digit(3) && digit(4) &&
           text.substr(0, 2) <= "23" && text.substr(3) <= "59";
}

/// All that can follow, depth first; gives the number of sequences.
int Follow(const TimeByRule& rule, int depth) {
    int count = 0;
    for (const int key : Keys) {
        TextBox box;
        box.Text = rule.Text;
        box.Caret = rule.Caret;
        TimeByRule next = rule;
        ZeitTaste told = ZeitTaste::Verschluckt;
        if (key == Left || key == Right) {
            next.Move(key == Left ? -1 : 1);
            box.Caret = next.Caret;
        } else {
            told = Zeit_Taste(box, key);
            next.Press(key);
        }
        ++count;
        const bool closed = told == ZeitTaste::Bestaetigt || told == ZeitTaste::Abgebrochen;
        if (box.Text() != next.Text || box.Caret() != next.Caret || closed == next.Open || !IsTime(box.Text())) {
            ADD_FAILURE() << rule.Text << " at " << rule.Caret << ", key " << key << ": " << box.Text() << " at "
                          << box.Caret() << ", not " << next.Text << " at " << next.Caret;
            return count;
        }
        if (depth > 1 && next.Open) {
            count += Follow(next, depth - 1);
        }
    }
    return count;
}

TEST(Zeit_Taste, holds_a_time_by_the_rules_through_every_sequence_of_five_keys) {
    EXPECT_GT(Follow({.Text = "00:00", .Caret = 0}, 5), 1000000);
    EXPECT_GT(Follow({.Text = "23:59", .Caret = 0}, 4), 50000);
    EXPECT_GT(Follow({.Text = "19:30", .Caret = 1}, 4), 50000);
}

TEST(Zeit_Oeffnen, is_followed_by_every_sequence_of_four_keys_by_the_same_rules) {
    for (int key = 1; key < 256; ++key) {
        TextBox box;
        Zeit_Oeffnen(box, key);
        const char first = key >= '0' && key <= '9' ? (key > '2' ? '2' : static_cast<char>(key)) : '0';
        ASSERT_EQ(box.Text(), std::string(1, first) + "0:00") << key;
        ASSERT_EQ(box.Caret(), 1) << key;
    }
    for (const char first : {'0', '1', '2'}) {
        EXPECT_GT(Follow({.Text = std::string(1, first) + "0:00", .Caret = 1}, 4), 50000);
    }
}

} // namespace
} // namespace qvm
