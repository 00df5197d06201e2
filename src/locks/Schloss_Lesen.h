#pragma once

#include "Record.h"

#include <array>
#include <string>

namespace qvm {

/// A lock's record taken apart, as the programming window shows it.
struct LockInfo {
    std::string Name;
    std::string Serial; ///< "aa.bb.cc.dd"; empty unless all four parts are set
    std::string OffsetId;
    std::array<std::string, 5> Switches; ///< "X" on, else empty or what the file holds

    bool operator==(const LockInfo&) const = default;
};

/// Record n of C64UX12H3D.EBW. All fields are empty when the file does not hold it.
LockInfo Schloss_Lesen(const RecordFile& locks, int n);

} // namespace qvm
