#pragma once

namespace qvm {

/// Where the mouse is over a grid: the cell, row 0 being the heading, and the place in pixels, by which a mouse that
/// rests is told from one that moves within a cell. Column is -1 outside of both.
struct GridPointer {
    int Row = -1, Column = -1;
    int X = 0, Y = 0;

    bool operator==(const GridPointer&) const = default;
};

} // namespace qvm
