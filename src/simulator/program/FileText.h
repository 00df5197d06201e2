#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qvm {

/// What was tried, and what the system says (`errno`) about its failure.
std::string SystemFault(const std::string& what);

/// The whole file; nothing with a sentence in `fault` when it cannot be read.
std::optional<std::string> FileText_Read(const std::string& path, std::string& fault);

/// Puts the text in the file's place: all of it or nothing.
bool FileText_Replace(const std::string& path, std::string_view text, std::string& fault);

} // namespace qvm
