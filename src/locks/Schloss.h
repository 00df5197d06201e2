#pragma once

#include "LockRecords.h"
#include "Record.h"

#include <array>
#include <string>

namespace qvm {

/// A lock as the programming window and the dataset look at it.
struct LockInfo {
    std::string Name;
    std::string Serial; ///< "aa.bb.cc.dd", or empty unless all four parts are there
    std::string OffsetId;
    std::array<std::string, 5> Switches; ///< "X" or empty
};

/// Lock 1 to 200 of a loaded file; an empty lock for a record that the file does not hold.
LockInfo Schloss_Lesen(const RecordFile& locks, int number);

} // namespace qvm
