#include "Liste.h"

#include <algorithm>
#include <cstddef>
#include <ostream>

namespace qvm {

namespace {

/// How many characters a UTF-8 text has.
std::size_t Zeichen(const std::string& text) {
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char byte) { return (byte & 0xC0) != 0x80; }));
}

} // namespace

void Tabelle_Schreiben(std::ostream& out, const std::vector<std::vector<std::string>>& rows) {
    std::vector<std::size_t> widths(rows.front().size());
    for (const auto& row : rows) {
        for (std::size_t n = 0; n < row.size(); ++n) {
            widths[n] = std::max(widths[n], Zeichen(row[n]));
        }
    }
    for (const auto& row : rows) {
        for (std::size_t n = 0; n + 1 < row.size(); ++n) {
            out << row[n] << std::string(widths[n] - Zeichen(row[n]) + 2, ' ');
        }
        out << row.back() << "\n";
    }
}

ExitCode Liste_Ausgeben(const Umgebung& world, const Console& console, std::string_view word, std::string_view of,
                        const std::function<bool(Kern& kern, Liste& list)>& read) {
    if (const std::string why = world.Datenverzeichnis_Fehler(); !why.empty()) {
        return console.Fehlschlag(word, {why});
    }
    const DataLock lock(world.DatPfad(), DataLock::Use::Read);
    Sperre_Holen(lock, console);
    Kern kern(world.Welt);
    kern.AppPath = world.AppPath;
    Liste list;
    if (!read(kern, list)) {
        return console.Fehlschlag(word, {"The files of " + std::string(of) + " cannot be read; check names them."});
    }
    if (console.Json) {
        console.Ergebnis({{"command", word}, {"ok", true}, {"exit", 0}, {std::string(word), list.Records}});
    } else if (list.Rows.size() < 2) {
        console.Out << "No " << word << ".\n";
    } else {
        Tabelle_Schreiben(console.Out, list.Rows);
    }
    return ExitCode::Good;
}

} // namespace qvm
