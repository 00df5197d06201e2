#pragma once

#include "FileStore.h"

#include <string>
#include <string_view>

namespace qvm {

/// The copies of an import lie in directories of the data directory whose names begin so.
inline constexpr std::string_view BackupPrefix = "backup-";

/// Removes what killed programs left of the files they were writing in the data directory (with a separator at its
/// end), older forms among them, and in the directories of copies. What a living program is writing stays.
void Reste_Entfernen(const FileStore& files, const std::string& directory);

} // namespace qvm
