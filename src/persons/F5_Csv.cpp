#include "F5_Csv.h"

#include "Csv.h"
#include "Text.h"
#include "UserTable.h"

#include <string_view>

namespace qvm {
namespace {

constexpr int LastColumn = 206;
constexpr std::string_view LineEnd = "\r\n";

std::string Felder(const Grid& users, int row, int firstColumn) {
    std::string line;
    for (int column = firstColumn; column <= LastColumn; ++column) {
        line += Csv_Feld(Ohne_Zeilenenden(users.Text(row, column))) + ";"; // the names of the locks stand upright
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
