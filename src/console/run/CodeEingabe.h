#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace qvm {

/// The administrator code: one line from `from` (a path, or "-" for standard input), or typed on the terminal when
/// `from` is empty. A terminal does not echo it. Six characters, as `F11` takes them (Code_Ziffer).
/// `interrupted`: true once the operator pressed Ctrl-C; it is asked while waiting. Gives why there is no code, a
/// sentence; empty when `code` holds it.
std::string Code_Holen(const std::string& from, const std::function<bool()>& interrupted, std::string& code);

/// A code that is asked for.
struct CodeFrage {
    std::string_view Prompt; ///< on the terminal
    std::string Code;
};
/// The same for several codes: a line each, one behind the other.
std::string Codes_Holen(const std::string& from, const std::function<bool()>& interrupted, std::span<CodeFrage> codes);

} // namespace qvm
