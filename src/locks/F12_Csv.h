#pragma once

#include "Grid.h"

#include <string>

namespace qvm {

struct Kern;

/// The lock table as lines of fields, each with a semicolon behind it: a heading of 13 fields, then columns 1 to 11 of
/// the locks, pictures as "X" where they are on, else as a blank. Lines end in CR LF. The last lock is left out: the
/// export ends one row short.
std::string F12_CsvText(const Kern& kern, const Grid& locks);

} // namespace qvm
