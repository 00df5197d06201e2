#pragma once

#include "FileStore.h"

#include <string>

namespace qvm {

/// Where a file lies that comes with the program and is only read: a language file, a manual. One in the program's
/// directory goes before that in `programFiles`, so that an operator can put his own there. Both paths end in a
/// separator; `programFiles` may be empty. The path in `appPath` when there is no such file.
std::string Beigabe_Pfad(const FileStore& files, const std::string& appPath, const std::string& programFiles,
                         const std::string& name);

} // namespace qvm
