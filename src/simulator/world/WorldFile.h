#pragma once

#include "VirtualSystem.h"

#include <string>
#include <string_view>

/// World and state as JSON, UTF-8. The schema stands in docs/simulator.md; the state is a world with the findings and
/// the line's counters behind it, and can be loaded as a world again.
namespace qvm {

/// Reads a world. On a fault `world` stays as it was and `fault` is one sentence that names the place.
bool World_FromJson(std::string_view text, VirtualWorld& world, std::string& fault);

/// Reads one thing to be laid on the desk, as it stands in a world's desk. Likewise.
bool Credential_FromJson(std::string_view text, Credential& credential, std::string& fault);

std::string World_ToJson(const VirtualWorld& world);
std::string State_ToJson(const VirtualSystem& system);

} // namespace qvm
