#pragma once

#include "Kern.h"

#include <string_view>

namespace qvm {

/// Exports a table: asks for a file, appends the text to it, so that a second export to one file adds to it, and says
/// whether that was done. A dialog that was cancelled counts as not done.
/// @param title of the dialog
/// @param kind name of the file type
/// @param directory in which the dialog starts; empty: the one that it would take by itself
void Csv_Ausgeben(const Kern& kern, std::string_view title, std::string_view kind, std::string_view text,
                  std::string directory = {});

} // namespace qvm
