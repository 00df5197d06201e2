#pragma once

#include "FileStore.h"
#include "Finding.h"
#include "Platform.h"
#include "Record.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

/// What an import is to write: whole files, ready made.
struct ImportFile {
    std::string Name; ///< in the data directory
    std::string Bytes;
    const RecordLayout* Table = nullptr; ///< of a record file
    int Lines = 0;                       ///< of a file of lines: how many are read
};

struct ImportPlan {
    std::vector<ImportFile> Files;
    std::vector<Finding> Faults; ///< nothing may be written unless this is empty
    std::size_t MoreFaults = 0;  ///< faults besides, which are only counted
};

/// Checks a document (UTF-8 JSON as Export_Erstellen makes it) completely and makes the files of it. Never throws;
/// every fault is counted, the first hundred are named. Tables that the document does not hold are not part of the
/// plan. The work grows with the length of the document; besides it the data files are held, whatever it says.
ImportPlan Import_Pruefen(std::string_view json);

struct ImportReport {
    bool Done = false;
    std::vector<std::string> Replaced;  ///< names of the files that were there and have been replaced
    std::vector<std::string> Created;   ///< names of the files that were not there
    std::vector<std::string> Unchanged; ///< files that held just these bytes
    std::string Backup;                 ///< directory of the copies with a trailing separator; empty: none was needed
    std::vector<std::string> Faults;    ///< what failed, and what has been put back
};

/// Copies the files that change to a new directory backup-YYYYMMDD-HHMMSS/ in `directory`, then replaces each all or
/// nothing. When one fails, those already replaced get their old bytes back, and those that were new are removed.
ImportReport Import_Schreiben(const FileStore& files, const std::string& directory, const DateTime& now,
                              const ImportPlan& plan);

} // namespace qvm
