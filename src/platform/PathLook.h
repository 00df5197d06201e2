#pragma once

#include "PcFacts.h"

#include <string>
#include <sys/types.h>

namespace qvm {

/// Adds what is known of the directory's files and file system, and of the PC's time zone.
void PathFacts_Look(PcFacts& facts, const std::string& directory);

/// The user's name, or his number when he has none.
std::string User_Name(uid_t number);

} // namespace qvm
