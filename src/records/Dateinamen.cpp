#include "Dateinamen.h"

#include "Tables.h"
#include "UnitRecords.h"
#include "UserRecords.h"

#include <vector>

namespace qvm {

namespace {

/// The names of all files that the program keeps in the data directory.
std::vector<std::string_view> Dateinamen() {
    std::vector names{UserRecordV1::Record.File, UserRecordV2::Record.File, UnitRecordOld::Record.File};
    for (const RecordLayout* layout : Satztabellen()) {
        names.push_back(layout->File);
    }
    for (const LineFile& entry : Zeilendateien()) {
        names.push_back(entry.File);
    }
    return names;
}

} // namespace

void Reste_Entfernen(const FileStore& files, const std::string& directory) {
    if (!files.Sweep) {
        return;
    }
    const std::vector<std::string_view> names = Dateinamen();
    files.Sweep(directory, names);
    for (const std::string& name : files.List(directory)) {
        if (name.starts_with(BackupPrefix)) {
            files.Sweep(directory + name + "/", names);
        }
    }
}

} // namespace qvm
