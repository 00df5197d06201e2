#pragma once

#include <string>

namespace qvm::test {

/// What a file of the disk holds, as bytes; empty if it cannot be read.
std::string Inhalt(const std::string& path);

} // namespace qvm::test
