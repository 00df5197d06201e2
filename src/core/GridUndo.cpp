#include "GridUndo.h"

#include "Secret.h"

#include <algorithm>
#include <functional>
#include <string>
#include <tuple>
#include <utility>

namespace qvm {

GridUndo::GridUndo(Grid& grid) : grid_(grid) {
    grid_.Changing = [this](int row, int column, const Cell& before) {
        if (depth_ > 0) {
            open_.Runs.push_back({row, column, 1, Number(before)});
        }
    };
}

GridUndo::~GridUndo() {
    grid_.Changing = nullptr;
}

std::size_t GridUndo::CellHash::operator()(const Cell& cell) const {
    const auto parts = (static_cast<std::size_t>(cell.ForeColor) << 24U) ^ cell.BackColor ^
                       (static_cast<std::size_t>(cell.FontSize) << 8U) ^ static_cast<std::size_t>(cell.Picture);
    return std::hash<std::string>()(cell.Text) ^ (parts * 31U + (cell.Bold ? 1U : 0U));
}

std::uint32_t GridUndo::Number(const Cell& cell) {
    const auto [found, isNew] = numbers_.try_emplace(cell, static_cast<std::uint32_t>(cells_.size()));
    if (isNew) {
        cells_.push_back(&found->first);
    }
    return found->second;
}

void GridUndo::Append(std::vector<Run>& runs, int row, int column, std::uint32_t cell) {
    if (!runs.empty()) {
        Run& last = runs.back();
        if (last.Row == row && last.Column + last.Count == column && last.Cell == cell) {
            ++last.Count;
            return;
        }
    }
    runs.push_back({row, column, 1, cell});
}

void GridUndo::Begin(Word what) {
    if (depth_++ == 0) {
        open_ = {.Told = {.What = what, .Stays = {}}, .Runs = {}};
    }
}

void GridUndo::Keep(Word stays) {
    if (depth_ > 0) {
        open_.Told.Stays = stays;
    }
}

std::vector<GridUndo::Run> GridUndo::Changes(std::vector<Run> noted) const {
    const auto place = [](const Run& run) { return std::tuple(run.Row, run.Column); };
    std::stable_sort(noted.begin(), noted.end(), [&](const Run& a, const Run& b) { return place(a) < place(b); });
    std::vector<Run> runs;
    const Run* before = nullptr;
    for (const Run& run : noted) {
        const bool first = before == nullptr || place(*before) != place(run);
        before = &run;
        if (first && !(Kept(run.Cell) == grid_.At(run.Row, run.Column))) {
            Append(runs, run.Row, run.Column, run.Cell);
        }
    }
    return runs;
}

bool GridUndo::End() {
    if (depth_ == 0 || --depth_ > 0) {
        return false;
    }
    Step step = std::exchange(open_, {});
    step.Runs = Changes(std::move(step.Runs));
    if (step.Runs.empty()) {
        return false;
    }
    step.Told.Row = step.Runs.front().Row;
    step.Told.Column = step.Runs.front().Column;
    redo_.clear();
    undo_.push_back(std::move(step));
    if (undo_.size() > Most) {
        undo_.pop_front();
    }
    return true;
}

void GridUndo::Forget() {
    open_ = {};
    undo_.clear();
    redo_.clear();
    cells_.clear();
    while (!numbers_.empty()) {
        auto kept = numbers_.extract(numbers_.begin());
        Vergessen(kept.key().Text);
    }
}

std::vector<std::string> GridUndo::Texts(int column) const {
    std::vector<std::string> texts;
    for (const std::deque<Step>* steps : {&undo_, &redo_}) {
        for (const Step& step : *steps) {
            for (const Run& run : step.Runs) {
                if (column >= run.Column && column < run.Column + run.Count) {
                    texts.push_back(Kept(run.Cell).Text);
                }
            }
        }
    }
    return texts;
}

std::optional<UndoStep> GridUndo::Exchange(std::deque<Step>& from, std::deque<Step>& to) {
    if (depth_ > 0 || from.empty()) {
        return {};
    }
    Step step = std::move(from.back());
    from.pop_back();
    std::vector<Run> now;
    for (const Run& run : step.Runs) {
        for (int column = run.Column; column < run.Column + run.Count; ++column) {
            Append(now, run.Row, column, Number(grid_.At(run.Row, column)));
            grid_.Set(run.Row, column, Kept(run.Cell));
        }
    }
    step.Runs = std::move(now);
    to.push_back(std::move(step));
    return to.back().Told;
}

} // namespace qvm
