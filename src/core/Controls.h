#pragma once

#include "Secret.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

/// Control models: what a window shows, without a widget. A front end binds to the `Changed` hooks.
namespace qvm {

/// A value that tells its view when it changes.
template <class T>
class Observed {
public:
    Observed() = default;
    Observed(T value) : value_(std::move(value)) {}
    Observed(const Observed&) = delete;
    Observed& operator=(const Observed&) = delete;

    Observed& operator=(T value) {
        if (!(value_ == value)) {
            value_ = std::move(value);
            if (Changed) {
                Changed();
            }
        }
        return *this;
    }
    operator const T&() const { return value_; }
    const T& operator()() const { return value_; }
    /// Overwrites a text that nobody is to find in memory, and leaves it empty.
    void Vergessen() requires std::is_same_v<T, std::string> {
        qvm::Vergessen(value_);
        if (Changed) {
            Changed();
        }
    }

    std::function<void()> Changed;

private:
    T value_{};
};

/// 0xBBGGRR: red in the lowest byte.
using Colour = std::uint32_t;
inline constexpr Colour Black = 0x000000, White = 0xFFFFFF;

struct Label {
    Observed<std::string> Text;
    Observed<Colour> ForeColor{Black};
    Observed<bool> Visible{true};
    Observed<bool> Enabled{true};
};

struct TextBox {
    Observed<std::string> Text;
    Observed<bool> Visible{true};
    Observed<bool> Enabled{true};
    Observed<int> Caret{0}; ///< position before which the next character goes, from 0
    int MaxLength = 0;      ///< 0: no limit
    std::function<void()> SetFocus;
    std::function<void()> SelectAll; ///< the whole text is selected, so that the next character takes its place
};

struct Button {
    Observed<std::string> Text;
    Observed<bool> Visible{true};
    Observed<bool> Enabled{true};
};

struct CheckBox {
    Observed<std::string> Text;
    Observed<bool> Checked{false};
    Observed<bool> Visible{true};
    Observed<bool> Enabled{true};
};

struct ProgressBar {
    Observed<int> Minimum{0};
    Observed<int> Maximum{100};
    Observed<int> Value{0};
    Observed<bool> Visible{true};
};

/// A list box or the list of a combo box.
struct ListBox {
    Observed<std::vector<std::string>> Entries;
    Observed<int> Selected{-1}; ///< index of the selected entry, -1: none
    Observed<bool> Visible{true};
    Observed<bool> Enabled{true};
};

struct Picture {
    Observed<int> Id{0};        ///< which picture; 0: none
    Observed<std::string> Name; ///< what it says, for those who do not see it; also its tool tip
    Observed<bool> Visible{true};
};

/// An entry of a menu.
struct MenuEntry {
    Observed<std::string> Text;
    Observed<bool> Enabled{true};
};

/// A button of a tool bar, told by its key.
struct ToolButton {
    std::string_view Key;
    int Number = 0; ///< as the catalogue's text slots count the buttons
    Observed<std::string> Tip{};
    Observed<bool> Enabled{true};
    Observed<bool> Visible{true};
    Observed<std::string> Warum{}; ///< why it does nothing at present; empty: it acts
};

/// A fact under its caption, which may lead to a window.
struct Fact {
    Observed<std::string> Caption;
    Observed<std::string> Text;
    Observed<std::string> Tip;   ///< what stands behind the text; may be empty
    Observed<std::string> Warum; ///< as that of a ToolButton
    Observed<bool> Leads{false}; ///< a click opens a window
};

/// What every window has. Geometry is the front end's affair.
struct Window {
    Observed<std::string> Title;
    Observed<bool> Visible{false};
    Observed<bool> Enabled{true};
};

/// Key codes as the windows' handlers take them: characters by their code page 1252 value, the rest as here.
namespace Key {
inline constexpr int Backspace = 8, Tab = 9, Enter = 13, Escape = 27, Delete = 127;
}

} // namespace qvm
