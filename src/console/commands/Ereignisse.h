#pragma once

#include "HistorieLesen.h"

#include <nlohmann/json_fwd.hpp>
#include <string>

namespace qvm {

/// A table with one line an event, UTF-8, columns as wide as their contents.
std::string Historie_Tabelle(const HistoryFile& history);
nlohmann::ordered_json Historie_Json(const HistoryFile& history);
/// A line for each event, UTF-8, fields separated by ";": file, lock, name, date, time, event, state. A field stands in
/// quotes where it needs them.
std::string Historie_Csv(const std::string& file, const HistoryFile& history);
/// The line before them, which names the fields.
std::string Historie_Csv_Kopf();

} // namespace qvm
