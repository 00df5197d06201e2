#pragma once

#include "Console.h"
#include "LockResult.h"

#include <nlohmann/json_fwd.hpp>
#include <vector>

/// What became of locks, as text and as documents.
namespace qvm {

nlohmann::ordered_json Ergebnis_Json(const Umgebung& world, const LockResult& result);
/// `historyOnly`: the events follow.
void Ergebnis_Text(const Umgebung& world, const Console& console, const LockResult& result, bool historyOnly);
/// The exit code of all locks; there is at least one.
ExitCode Gesamtcode(const std::vector<LockResult>& results);

} // namespace qvm
