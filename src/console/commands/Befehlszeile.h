#pragma once

#include <functional>

namespace CLI {
class App;
}

namespace qvm {

/// Shows the command line's definition, the one that Befehlszeile_Lesen reads by, to what tells of it: manual page and
/// completion. It lives as long as the call.
void Befehlszeile_Zeigen(const std::function<void(const CLI::App& app)>& visitor);

} // namespace qvm
