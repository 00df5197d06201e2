#pragma once

#include "Grid.h"
#include "Words.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <unordered_map>
#include <vector>

namespace qvm {

/// What a step of a GridUndo was.
struct UndoStep {
    Word What;                 ///< its name
    std::optional<Word> Stays; ///< what of it is on the disk already and is not taken back
    int Row = 0, Column = 0;   ///< the first cell that it changed
};

/// Undo and redo of what an operator does in a grid. A step is one action, whatever number of cells it changes; whole
/// cells are kept, with colours and pictures. What changes outside a step (a load, a tint of the view) is not kept and
/// not taken back. Cells that are equal are kept once, and cells side by side in one entry.
class GridUndo {
public:
    static constexpr std::size_t Most = 100; ///< steps that can be taken back; older ones are forgotten

    /// The grid must outlive the undo, which takes its hook `Changing`.
    explicit GridUndo(Grid& grid);
    ~GridUndo();
    GridUndo(const GridUndo&) = delete;
    GridUndo& operator=(const GridUndo&) = delete;

    /// A step begins, and cells that change from here on belong to it. A step inside a step is part of the outer one.
    void Begin(Word what);
    /// Something of the step that is open, if one is, is on the disk already.
    void Keep(Word stays);
    /// The step ends. False when no cell is another one than before: then there was no step.
    bool End();
    /// No step is known any more: the grid was loaded anew, or nobody is to read in it. The texts are overwritten.
    void Forget();

    /// Takes the last step back, or does the step again that was taken back last. Nothing when there is none, and while
    /// a step is open.
    std::optional<UndoStep> Undo() { return Exchange(undo_, redo_); }
    std::optional<UndoStep> Redo() { return Exchange(redo_, undo_); }
    /// The step that Undo, or Redo, would take; nullptr when there is none.
    const UndoStep* NextUndo() const { return undo_.empty() ? nullptr : &undo_.back().Told; }
    const UndoStep* NextRedo() const { return redo_.empty() ? nullptr : &redo_.back().Told; }
    /// The texts of a column that steps would bring back, of undo and redo alike; one may come more than once.
    std::vector<std::string> Texts(int column) const;
    std::size_t Steps() const { return undo_.size(); }

private:
    /// Cells side by side in a row that were equal before.
    struct Run {
        int Row, Column, Count;
        std::uint32_t Cell; ///< which of cells_
    };
    struct Step {
        UndoStep Told;
        std::vector<Run> Runs;
    };
    struct CellHash {
        std::size_t operator()(const Cell& cell) const;
    };

    std::uint32_t Number(const Cell& cell);
    const Cell& Kept(std::uint32_t number) const { return *cells_[number]; }
    static void Append(std::vector<Run>& runs, int row, int column, std::uint32_t cell);
    /// The first value of each cell among those that a step has noted, where the cell has another one now.
    std::vector<Run> Changes(std::vector<Run> noted) const;
    std::optional<UndoStep> Exchange(std::deque<Step>& from, std::deque<Step>& to);

    Grid& grid_;
    int depth_ = 0;
    Step open_{};                  ///< while depth_ is not 0; its runs are single cells in the order of their change
    std::deque<Step> undo_, redo_; ///< the last one is the next
    std::unordered_map<Cell, std::uint32_t, CellHash> numbers_;
    std::vector<const Cell*> cells_; ///< keys of numbers_, by number
};

} // namespace qvm
