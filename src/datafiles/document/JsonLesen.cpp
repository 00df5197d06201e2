#include "JsonLesen.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace qvm {

namespace {

using Json = nlohmann::json;

constexpr std::size_t LongestQuote = 40;

/// Position behind the text that begins at `start`, its quote; of the quote's end, of a control character, which no
/// text holds, or of the end of the document.
std::size_t Textende(std::string_view text, std::size_t start) {
    std::size_t at = start + 1;
    while (at < text.size() && text[at] != '"' && static_cast<unsigned char>(text[at]) >= 0x20) {
        at += text[at] == '\\' ? 2U : 1U;
    }
    return std::min(at + 1, text.size());
}

} // namespace

std::optional<std::size_t> Json_Zu_Langes_Stueck(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = at;
        at = text[at] == '"' ? Textende(text, at) : text.find_first_of("{}[]:,\"", at);
        at = std::min(at, text.size());
        if (at - start > LongestJsonPiece) {
            return start + 1;
        }
        if (at == start) {
            ++at;
        }
    }
    return std::nullopt;
}

std::string Json_Fehlertext(std::string_view complaint) {
    // "[json.exception.parse_error.101] parse error at line ...: ...; last read: ..."
    complaint = complaint.substr(0, complaint.find("; last read"));
    const std::size_t end = complaint.find("] ");
    return std::string(end == std::string_view::npos ? complaint : complaint.substr(end + 2));
}

std::string Json_Zitat(const Json& value) {
    return Json_Kurz(value.is_structured() ? std::string(value.type_name())
                                           : value.dump(-1, ' ', true, Json::error_handler_t::replace));
}

std::string Json_Kurz(std::string_view name) {
    if (name.size() <= LongestQuote) {
        return std::string(name);
    }
    // Not in the middle of a UTF-8 character.
    std::size_t end = LongestQuote - 3;
    while (end > 0 && (static_cast<unsigned char>(name[end]) & 0xC0U) == 0x80) {
        --end;
    }
    return std::string(name.substr(0, end)) + "...";
}

} // namespace qvm
