#pragma once

#include "Grid.h"
#include "GridFilter.h"
#include "Timer.h"

#include <string>

namespace qvm {

/// Typed letters lead to the next row whose name begins with them. What was typed is kept for a short time, so that
/// several letters in a row are one beginning; the same letter again and again goes from one such row to the next.
class GridJump {
public:
    static constexpr int Memory = 1000; ///< ms that a letter is remembered

    /// `column`: the names. `filter`: rows that it hides are passed over; nullptr: none are hidden.
    GridJump(Platform& world, const Grid& grid, int column, const GridFilter* filter = nullptr);

    /// One character, as code page 1252 has it. Gives the row to go to, looked for from the current one on and from the
    /// top again; 0 when there is none, and then the character is not remembered.
    int Letter(int character);
    /// What was typed counts no more.
    void Forget();

private:
    int Find(const std::string& beginning, int from) const;

    const Grid& grid_;
    int column_;
    const GridFilter* filter_;
    std::string typed_;
    Timer forget_;
};

} // namespace qvm
