#pragma once

#include "HistorieLesen.h"

#include <nlohmann/json_fwd.hpp>
#include <string>

namespace qvm {

/// A table with one line an event, UTF-8, columns as wide as their contents.
std::string Historie_Tabelle(const HistoryFile& history);
nlohmann::ordered_json Historie_Json(const HistoryFile& history);

} // namespace qvm
