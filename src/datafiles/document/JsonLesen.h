#pragma once

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <string_view>

/// What reading a document needs besides a parser.
namespace qvm {

/// No text and no number of a document is longer than this in bytes as it stands, and no run of blanks. A field has
/// 3000 characters at most, each of which may be written with six.
inline constexpr std::size_t LongestJsonPiece = 32768;

/// Position (from 1) of the first piece that is longer; nothing when there is none. A parser gathers a piece whole, and
/// more than once, before it tells of it, so that this is asked first.
std::optional<std::size_t> Json_Zu_Langes_Stueck(std::string_view text);

/// The sentence in a parser's complaint, without its number, and without a quotation of the document, which may hold
/// codes.
std::string Json_Fehlertext(std::string_view complaint);

/// A value as a message quotes it: at most 40 characters, control characters replaced. Not for values that may be
/// codes.
std::string Json_Zitat(const nlohmann::json& value);

/// A name out of a document, shortened to 40 bytes.
std::string Json_Kurz(std::string_view name);

} // namespace qvm
