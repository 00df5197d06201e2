#pragma once

#include <functional>
#include <string>

namespace qvm {

/// The administrator code: one line from `from` (a path, or "-" for standard input), or typed on the terminal when
/// `from` is empty. A terminal does not echo it. Six characters, as `F11` takes them (Code_Ziffer).
/// `interrupted`: true once the operator pressed Ctrl-C; it is asked while waiting. Gives why there is no code, a
/// sentence; empty when `code` holds it.
std::string Code_Holen(const std::string& from, const std::function<bool()>& interrupted, std::string& code);

} // namespace qvm
