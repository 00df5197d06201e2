#pragma once

#include "Platform.h"

#include <string>

namespace qvm {

/// Keeps a copy of a file beside it, under its name and the date: "NAME-20260305-103000", with "-2" and so on behind it
/// when that is taken. No file is ever overwritten. False when the file could not be read or the copy not be written.
bool Beiseite_Legen(const FileStore& files, const std::string& path, const DateTime& now);

} // namespace qvm
