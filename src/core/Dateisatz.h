#pragma once

#include "FileStore.h"

#include <span>
#include <string>

namespace qvm {

/// What a file held, to put it back.
struct Dateistand {
    std::string Path;
    ReadStatus Status = ReadStatus::Missing; ///< Error: it could not be read, and nothing can be put back
    std::string Bytes;
};
Dateistand Datei_Merken(const FileStore& store, std::string path);
/// The file as it was; one that was not there is removed. False when the disk does not take it, or when it is not known
/// what the file held.
bool Datei_Zuruecknehmen(const FileStore& store, const Dateistand& before);

/// What a file is to hold.
struct NeueDatei {
    std::string Path, Bytes;
};

/// Replaces files that belong together, in their order. True when each holds its bytes. False on the first that cannot
/// be read or written: those before it are written back, or removed where they were not there, as far as the disk
/// takes it.
bool Dateien_Ersetzen(const FileStore& store, std::span<const NeueDatei> files);

} // namespace qvm
