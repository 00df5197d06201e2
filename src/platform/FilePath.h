#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qvm {

/// The path as the file system gets it: UTF-8 stays, a byte that belongs to no UTF-8 character is taken as code page
/// 1252 and converted. Nothing for an empty path and for one with 0x00 in it, which would end too early.
std::optional<std::string> FilePath_Nativ(std::string_view path);

/// The native path behind all links, or the path itself when nothing is there yet.
std::string FilePath_Ziel(const std::string& native);

} // namespace qvm
