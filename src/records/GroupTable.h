#pragma once

#include <array>
#include <string>

namespace qvm {

/// One timer group, as the tables of groups hold it.
struct GroupEntry {
    std::string Num;   ///< number of the group as text
    std::string Name;  ///< shown name
    std::string Days;  ///< day selectors of its slots
    std::string Count; ///< how many slots it uses
    std::string PbId;  ///< identifier by which other tables refer to the group
};

/// Eight groups, entries 1 to 8; entry 0 is never used. The table of person groups fills seven, the eighth stays empty.
using GroupTable = std::array<GroupEntry, 9>;

} // namespace qvm
