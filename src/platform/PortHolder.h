#pragma once

#include <string>

namespace qvm {

/// "name (process number)" of a process that has the device open, by a handle other than this program's `ownHandle`;
/// empty when the system tells none. Processes of other users are hidden from all but the administrator. UTF-8.
std::string PortHolder_Name(const std::string& device, int ownHandle = -1);

} // namespace qvm
