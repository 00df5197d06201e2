#include "JsonLesen.h"

#include <nlohmann/json.hpp>
#include <set>

namespace qvm {

namespace {

using Json = nlohmann::json;

/// Watches the keys while the parser works, one set for each object that is open.
class KeyWatch {
public:
    explicit KeyWatch(std::vector<std::string>& doubled) : doubled_(doubled) {}

    void See(Json::parse_event_t event, const Json& parsed) {
        switch (event) {
        case Json::parse_event_t::object_start:
            open_.emplace_back();
            break;
        case Json::parse_event_t::object_end:
            if (!open_.empty()) {
                open_.pop_back();
            }
            break;
        case Json::parse_event_t::key:
            if (!open_.empty() && parsed.is_string() && !open_.back().insert(parsed.get<std::string>()).second) {
                doubled_.push_back(parsed.get<std::string>());
            }
            break;
        default:
            break;
        }
    }

private:
    std::vector<std::set<std::string>> open_;
    std::vector<std::string>& doubled_;
};

} // namespace

std::optional<Json> Json_Lesen(std::string_view text, std::string& fault, std::vector<std::string>& doubled) {
    KeyWatch watch(doubled);
    const auto callback = [&watch](int, Json::parse_event_t event, Json& parsed) {
        watch.See(event, parsed);
        return true;
    };
    try {
        return Json::parse(text, callback);
    } catch (const Json::exception& error) {
        // "[json.exception.parse_error.101] parse error at line ...": the bracket is of no use to the reader.
        // "last read: ..." quotes the document, which may hold codes.
        std::string_view what = error.what();
        what = what.substr(0, what.find("; last read"));
        const std::size_t end = what.find("] ");
        fault = std::string(end == std::string_view::npos ? what : what.substr(end + 2));
        return std::nullopt;
    }
}

std::string Json_Zitat(const Json& value) {
    std::string text = value.is_structured() ? std::string(value.type_name())
                                             : value.dump(-1, ' ', true, Json::error_handler_t::replace);
    if (text.size() > 40) {
        text = text.substr(0, 37) + "...";
    }
    return text;
}

} // namespace qvm
