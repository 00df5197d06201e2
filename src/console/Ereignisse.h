#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

/// One event of a .HST file, code page 1252.
struct HistoryEvent {
    std::string Name, Date, Time, Event;
    std::string State; ///< of the line behind it; may be empty

    bool operator==(const HistoryEvent&) const = default;
};

/// A .HST file, taken apart.
struct HistoryFile {
    std::string Serial; ///< the first line
    std::vector<HistoryEvent> Events;
};

/// Takes the bytes of a .HST file apart. Lines that are neither event nor state are left out.
HistoryFile Historie_Lesen(std::string_view bytes);

/// A table with one line an event, UTF-8, columns as wide as their contents.
std::string Historie_Tabelle(const HistoryFile& history);
nlohmann::ordered_json Historie_Json(const HistoryFile& history);

} // namespace qvm
