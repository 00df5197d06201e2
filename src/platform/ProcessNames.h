#pragma once

#include <string>

namespace qvm {

/// What a process calls itself, UTF-8; empty when the system tells nothing. `number`: its number, as a text.
std::string Process_Name(const std::string& number);
/// The name of the user that a process runs for, his number when he has no name; empty when the system tells nothing.
std::string Process_User(const std::string& number);

} // namespace qvm
