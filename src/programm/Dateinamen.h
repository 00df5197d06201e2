#pragma once

#include <span>
#include <string_view>

namespace qvm {

/// The names of all files that the program keeps in the data directory, older forms among them.
std::span<const std::string_view> Dateinamen();

} // namespace qvm
