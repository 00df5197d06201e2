#pragma once

#include "UiFixture.h"

#include <cstddef>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace qvm::test {

/// What one test asks of every window. It is made anew for each tour, and may count.
class TourLook {
public:
    virtual ~TourLook() = default;
    /// At each window that stands on the screen; `name` tells it and its state, "F9-finished" for one.
    virtual void at(QWidget& window, const char* name) = 0;
    /// Behind the last one.
    virtual void end() {}
};

/// When a look is had at a window: those that leave it as it is come first.
enum class Turn { Reads, Types, MovesFocus, Closes };

/// To open every window takes a hundred times as long as to look at it: so each language's are opened once, for all the
/// tests that look at them. What a look found is told by its own test.
class Tour {
public:
    using Make = std::unique_ptr<TourLook> (*)();

    /// Enters a look, before the first tour; gives its number.
    static std::size_t enter(Make make, Turn turn);

    /// The tour in this language. It is made when it is first asked for, in the fixture's world, which holds nothing
    /// yet.
    static const Tour& of(std::string_view language, UiFixture& fixture);

    /// Where the manual was opened so far, in the tour that is under way: destinations, empty for the first page.
    static std::vector<std::string>& manualPlaces();

    /// The look of this number; what failed there fails the test that asks for it.
    const TourLook& take(std::size_t number) const;

private:
    struct Stop {
        std::unique_ptr<TourLook> Look;
        Turn When = Turn::Reads;
        std::vector<::testing::TestPartResult> Failures{};
    };

    Tour(std::string_view language, UiFixture& fixture);
    static void have(Stop& stop, const std::function<void(TourLook& look)>& part);

    std::vector<Stop> stops_; ///< by number
};

template <class Look>
inline const std::size_t
    LookNumber = Tour::enter([]() -> std::unique_ptr<TourLook> { return std::make_unique<Look>(); }, Look::When);

/// Has the look, a TourLook with its Turn as `When`, that is the test's own.
template <class Look>
const Look& take(std::string_view language, UiFixture& fixture) {
    return static_cast<const Look&>(Tour::of(language, fixture).take(LookNumber<Look>));
}

} // namespace qvm::test
