#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The code page in which locks keep names, and UTF-8. Every byte has a character of its own, so that a name survives
/// the way through a file and back.
namespace qvm {

std::string OemToUtf8(std::span<const std::uint8_t> bytes);
/// Nothing when the text holds a character that the code page has not.
std::optional<std::vector<std::uint8_t>> Utf8ToOem(std::string_view text);

} // namespace qvm
