#include "F5_Sortieren.h"

#include "Secret.h"
#include "Suchtext.h"
#include "Text.h"
#include "UserTable.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qvm {
namespace {

constexpr std::string_view EmptyMark = "ZZZZZZZZZZ";

struct UserOrder {
    bool Empty;
    std::string Name; ///< as it is compared
    int Row;          ///< where it stands

    bool operator<(const UserOrder& other) const {
        return std::pair(Empty, std::string_view(Name)) < std::pair(other.Empty, std::string_view(other.Name));
    }
};

std::vector<UserOrder> Reihenfolge(const Grid& users) {
    std::vector<UserOrder> order;
    for (int row = UserGrid::FirstRow; row <= UserGrid::LastRow; ++row) {
        const std::string& name = users.Text(row, UserColumn::Name);
        const bool empty = Trim(name).empty() || name == EmptyMark;
        order.push_back({.Empty = empty, .Name = empty ? std::string() : Sortierform(name), .Row = row});
    }
    std::stable_sort(order.begin(), order.end());
    return order;
}

std::vector<Cell> Zeile(const Grid& users, int row) {
    std::vector<Cell> cells;
    cells.reserve(static_cast<std::size_t>(users.Columns())); // no growth, which would leave codes behind
    for (int column = UserColumn::Name; column < users.Columns(); ++column) {
        cells.push_back(users.At(row, column));
    }
    return cells;
}

} // namespace

std::vector<int> F5_Sortieren(Grid& users) {
    std::vector<int> from(UserGrid::LastRow + 1);
    std::iota(from.begin(), from.end(), 0);
    std::vector<std::pair<int, std::vector<Cell>>> moved; // to which row
    int target = UserGrid::FirstRow;
    for (const UserOrder& user : Reihenfolge(users)) {
        from[static_cast<std::size_t>(target)] = user.Row;
        if (user.Row != target) {
            moved.emplace_back(target, Zeile(users, user.Row));
        }
        ++target;
    }
    for (auto& [row, cells] : moved) {
        int column = UserColumn::Name;
        for (Cell& cell : cells) {
            users.Set(row, column++, cell);
            Vergessen(cell.Text);
        }
    }
    for (int row = UserGrid::FirstRow; row <= UserGrid::LastRow; ++row) {
        users.SetText(row, UserColumn::Number, Ziffern(row - 1));
        users.SetBackColor(row, UserColumn::Number, White);
        const std::string& name = users.Text(row, UserColumn::Name);
        if (Trim(name).empty() || name == EmptyMark) {
            users.SetText(row, UserColumn::Name, "");
        }
    }
    return from;
}

} // namespace qvm
