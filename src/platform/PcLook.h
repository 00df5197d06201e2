#pragma once

#include "DoctorFix.h"
#include "FileStore.h"
#include "PcFacts.h"

#include <optional>
#include <string>
#include <vector>

namespace qvm {

/// Takes down what the PC is now: `ports` by number, as PortNumbers tells them for `directory` (with a trailing
/// separator, where DAT and HIST lie) and `device`. Opens no port, changes nothing, starts no program. The adapters are
/// not asked.
PcFacts PcFacts_Look(const std::string& directory, const std::optional<std::string>& device,
                     const std::vector<int>& ports);

/// Gives the owner `more` permission bits of the path and takes `less` away, nothing else. Follows no link, and leaves
/// alone what belongs to another user. Empty when done, else why not, in the system's words.
std::string Path_Permit(const std::string& path, unsigned more, unsigned less);

/// Takes down the latency timer of a port that the program has opened meanwhile, which asks for a short one.
void Latency_LookAgain(PortFacts& port);

/// Sets the latency timer at `file` to 1 ms. Empty when done, else why not, in the system's words.
std::string Latency_Shorten(const std::string& file);

/// Does what the doctor proposes, in the program's `directory`, which ends with a separator. Empty when done, else why
/// not, in the system's words.
std::string Pc_Mend(const std::string& directory, const FileStore& files, const DoctorFix& fix);

} // namespace qvm
