#pragma once

#include "Grid.h"

#include <array>
#include <string_view>

namespace qvm {

/// The rights, the default first.
inline constexpr std::array<std::string_view, 6> Benutzerrechte{"1", "0", "1/2", "1/3", "ADMI", "FS+"};

/// A text into a cell of a user, columns 1 to 5. A name brings a group and a right where there is none; another name
/// than before puts a finger in use.
void Benutzerzelle_Schreiben(Grid& users, int row, int column, std::string_view text);

} // namespace qvm
