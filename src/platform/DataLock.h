#pragma once

#include "FileHandle.h"
#include "Platform.h"

#include <memory>
#include <string>

namespace qvm {

/// A lock on a data directory that all programs of the PC see, whoever started them. It lies on the handle of a
/// directory: nothing is written, so that a directory that can only be read is locked as well, and the system lets go
/// however the program ends. Where the system has no such locks everything is granted.
class DataLock {
public:
    enum class Use {
        Write,   ///< for all who may write, as long as they may; one at a time
        Read,    ///< for the moment in which files are read that belong together; many at a time
        Replace, ///< for the moment in which such files are replaced; alone, and not beside a Read
    };

    /// `directory`: UTF-8. Takes nothing yet.
    DataLock(const std::string& directory, Use use);

    /// False when another holds it. Asking again is granted.
    bool Try() const;
    /// Waits until it can be had.
    void Wait() const;
    /// One who holds it, as far as the system tells.
    DataHolder Holder() const;

private:
    int Kind() const;

    Use use_;
    FileHandle handle_;
};

} // namespace qvm
