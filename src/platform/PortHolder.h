#pragma once

#include <string>

namespace qvm {

/// "name (process number)" of another process that has the device open; empty when the system tells none. Processes of
/// other users are hidden from all but the administrator. UTF-8.
std::string PortHolder_Name(const std::string& device);

} // namespace qvm
