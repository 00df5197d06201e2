#include "F5_Marken.h"

#include "Text.h"
#include "UserTable.h"

#include <string_view>

namespace qvm {

void Marke_Setzen(Grid& users, int row, int column, char mark) {
    const bool set = mark == 'X' || mark == 'F';
    // Made anew rather than copied: fifty thousand are set when the table is loaded.
    const Cell& before = users.At(row, column);
    Cell cell{.Text = {},
              .ForeColor = mark == 'X'   ? UserLook::MarkAccess
                           : mark == 'F' ? UserLook::MarkFinger
                                         : UserLook::MarkNone,
              .BackColor = before.BackColor,
              .FontSize = set ? UserLook::MarkSize : UserLook::PlainSize,
              .Picture = before.Picture,
              .Bold = before.Bold};
    if (set) {
        cell.Text.push_back(mark);
    }
    users.Set(row, column, cell);
}

void Marke_Schalten(Grid& users, int row, int column) {
    const bool inRange = row >= UserGrid::FirstRow && row <= UserGrid::LastRow && column >= UserColumn::Finger &&
                         column <= UserGrid::ColumnOf(UserGrid::Locks);
    // The head of column 7 is empty, so that it cannot be stepped.
    if (!inRange || users.Text(0, column).empty() || Trim(users.Text(row, UserColumn::Name)).empty()) {
        return;
    }
    const std::string_view mark = Trim(users.Text(row, column));
    const bool finger = !users.Text(row, UserColumn::FingerId).empty();
    Marke_Setzen(users, row, column, mark.empty() ? 'X' : mark == "X" && finger ? 'F' : '-');
}

} // namespace qvm
