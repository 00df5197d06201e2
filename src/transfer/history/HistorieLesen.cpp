#include "HistorieLesen.h"

#include "Steuerzeichen.h"
#include "Text.h"

#include <algorithm>

namespace qvm {
namespace {

/// The next line without its end; `rest` then begins behind it.
std::string_view Naechste_Zeile(std::string_view& rest) {
    const std::size_t end = rest.find('\n');
    std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    if (line.ends_with('\r')) {
        line.remove_suffix(1);
    }
    return line;
}

std::string Feld(std::string_view raw) {
    return Steuerzeichen_Ersetzen(raw.substr(0, LongestHistoryField));
}

HistoryLine Zerlegen(std::string_view line) {
    HistoryLine parts;
    for (bool more = true; more; ++parts.Count) {
        const std::size_t tab = line.find('\t');
        if (parts.Count < HistoryFieldCount) {
            parts.Fields[parts.Count] = Feld(line.substr(0, tab));
        }
        more = tab != std::string_view::npos;
        line.remove_prefix(more ? tab + 1 : line.size());
    }
    return parts;
}

bool Leer(const HistoryLine& line) {
    return std::all_of(line.Fields.begin(), line.Fields.end(),
                       [](const std::string& field) { return Trim(field).empty(); });
}

} // namespace

HistoryLineKind Historie_Zeilenart(const HistoryLine& line) {
    if (line.Count != HistoryFieldCount) {
        return HistoryLineKind::Other;
    }
    const auto& field = line.Fields;
    const bool state = field[0].empty() && field[1].empty() && field[2].empty();
    return state ? HistoryLineKind::State : HistoryLineKind::Event;
}

HistoryLines Historie_Zeilen(std::string_view bytes, std::size_t most) {
    HistoryLines result;
    while (!bytes.empty() && result.Lines.size() < most) {
        result.Lines.push_back(Zerlegen(Naechste_Zeile(bytes)));
    }
    result.Total = result.Lines.size() + static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n'));
    if (!bytes.empty() && bytes.back() != '\n') {
        ++result.Total;
    }
    return result;
}

HistoryFile Historie_Lesen(std::string_view bytes) {
    HistoryFile history;
    bool first = true;
    while (!bytes.empty()) {
        const HistoryLine line = Zerlegen(Naechste_Zeile(bytes));
        const auto& field = line.Fields;
        const HistoryLineKind kind = Historie_Zeilenart(line);
        const bool state = kind == HistoryLineKind::State;
        if (first) {
            history.Serial = field[0];
        } else if (kind == HistoryLineKind::Event) {
            history.Events.push_back({field[0], field[1], field[2], field[3], {}});
        } else if (state && !history.Events.empty() && history.Events.back().State.empty()) {
            history.Events.back().State = field[3];
        } else if (!Leer(line)) {
            ++history.Skipped;
        }
        first = false;
    }
    return history;
}

} // namespace qvm
