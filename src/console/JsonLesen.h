#pragma once

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

/// A parsed document, or nothing with `fault` telling why. A key that stands twice in one object is a fault of its own,
/// as a parser keeps only one of the two; the doubled keys are listed in `doubled`.
std::optional<nlohmann::json> Json_Lesen(std::string_view text, std::string& fault, std::vector<std::string>& doubled);

/// A value as a message quotes it: at most 40 characters, control characters replaced. Not for values that may be
/// codes.
std::string Json_Zitat(const nlohmann::json& value);

} // namespace qvm
