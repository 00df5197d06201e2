#pragma once

#include "FileStore.h"
#include "Finding.h"

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

inline constexpr std::string_view ExportFormat = "qvm7702-export";
inline constexpr int ExportVersion = 1;

/// Every data file of `directory` (with a trailing separator) as one document. A missing file is left out, an empty
/// record too; "counts" keeps how many records a file holds. A file that cannot be read is named in `faults` and left
/// out. The document holds user codes in clear: they are data.
nlohmann::ordered_json Export_Erstellen(const FileStore& files, const std::string& directory,
                                        std::vector<Finding>& faults);

} // namespace qvm
