#pragma once

#include "Console.h"
#include "Kern.h"

#include <functional>
#include <iosfwd>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

/// What a command lists: once as a table, and once as documents.
struct Liste {
    std::vector<std::vector<std::string>> Rows; ///< the headings first; each row has as many texts as they, UTF-8
    nlohmann::ordered_json Records = nlohmann::ordered_json::array();
};

/// Columns as wide as their widest text, two blanks between them.
/// @param rows at least the headings; each has as many texts as they, UTF-8
void Tabelle_Schreiben(std::ostream& out, const std::vector<std::vector<std::string>>& rows);

/// The commands that list records of the data files (users, locks, units): the files are read by `read` while nobody
/// replaces them, and nothing is written.
/// @param word the command, and the name of the documents in its own
/// @param of whose files they are, as "the users"
/// @param read false when the files cannot be read, which is reported
ExitCode Liste_Ausgeben(const Umgebung& world, const Console& console, std::string_view word, std::string_view of,
                        const std::function<bool(Kern& kern, Liste& list)>& read);

} // namespace qvm
