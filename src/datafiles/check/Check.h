#pragma once

#include "FileStore.h"
#include "Finding.h"

#include <string>
#include <vector>

namespace qvm {

/// Walks all data files of `directory` (with a trailing separator) and names what is damaged, dangling, out of range,
/// doubled, or a gap in the user table. Empty when all is well. No finding quotes a code.
std::vector<Finding> Daten_Pruefen(const FileStore& files, const std::string& directory);

/// Looks at the language file of the configured language, in `appPath` or `programFiles` as Beigabe_Pfad goes: missing,
/// unreadable, or longer than the 300 lines that are read. A language that is none is a finding of the data files.
std::vector<Finding> Sprachdatei_Pruefen(const FileStore& files, const std::string& appPath,
                                         const std::string& programFiles = {});

} // namespace qvm
