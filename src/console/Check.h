#pragma once

#include "FileStore.h"
#include "Finding.h"

#include <string>
#include <vector>

namespace qvm {

/// Walks all data files of `directory` (with a trailing separator) and names what is damaged, dangling, out of range,
/// doubled, or a gap in the user table. Empty when all is well. No finding quotes a code.
std::vector<Finding> Daten_Pruefen(const FileStore& files, const std::string& directory);

} // namespace qvm
