#include "F5_Csv.h"

#include "Csv.h"
#include "UserTable.h"

#include <algorithm>
#include <string_view>

namespace qvm {
namespace {

constexpr int LastColumn = 206;
constexpr std::string_view LineEnd = "\r\n";

std::string Felder(const Grid& users, int row, int firstColumn) {
    std::string line;
    for (int column = firstColumn; column <= LastColumn; ++column) {
        std::string text = users.Text(row, column);
        // The names of the locks stand upright.
        text.erase(std::remove_if(text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n'; }), text.end());
        line += Csv_Feld(text) + ";";
    }
    return line;
}

} // namespace

std::string F5_CsvText(const Grid& users) {
    std::string text = ";;;;;;" + Felder(users, 0, UserColumn::Finger);
    text += LineEnd;
    for (int row = 1; row <= UserGrid::LastRow; ++row) {
        text += Felder(users, row, UserColumn::Name);
        text += LineEnd;
    }
    return text;
}

} // namespace qvm
