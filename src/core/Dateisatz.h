#pragma once

#include "FileStore.h"

#include <span>
#include <string>

namespace qvm {

/// What a file is to hold.
struct NeueDatei {
    std::string Path, Bytes;
};

/// Replaces files that belong together, in their order. True when each holds its bytes. False on the first that cannot
/// be read or written: those before it are written back, or removed where they were not there, as far as the disk
/// takes it.
bool Dateien_Ersetzen(const FileStore& store, std::span<const NeueDatei> files);

} // namespace qvm
