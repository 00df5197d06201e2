#pragma once

#include "Grid.h"

#include <string>

namespace qvm {

/// The user table as lines of fields, each with a semicolon behind it: the names of the locks behind six empty fields,
/// the headings, the users. Lines end in CR LF. The last lock is left out: the export ends one column short.
std::string F5_CsvText(const Grid& users);

} // namespace qvm
