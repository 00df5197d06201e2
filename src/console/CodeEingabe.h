#pragma once

#include "Befehle.h"

#include <functional>
#include <optional>
#include <string>

namespace qvm {

/// The administrator code: one line from `from` (a path, or "-" for standard input), or typed on the terminal without
/// echo when `from` is empty. Six characters, letters as on a telephone keypad. Nothing after a message.
/// `interrupted`: true once the operator pressed Ctrl-C.
std::optional<std::string> Code_Holen(const Umgebung& world, const Console& console, const std::string& from,
                                      const std::function<bool()>& interrupted);

} // namespace qvm
