#include "Ereignisse.h"

#include "Console.h"
#include "Csv.h"
#include "Text.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>

namespace qvm {

namespace {

constexpr std::size_t Columns = HistoryFieldCount;

std::array<std::string, Columns + 1> Zellen(const HistoryEvent& event) {
    return {std::string(RTrim(event.Name)), event.Date, event.Time, event.Event, event.State};
}

} // namespace

std::string Historie_Tabelle(const HistoryFile& history) {
    std::array<std::size_t, Columns> widths{};
    for (const HistoryEvent& event : history.Events) {
        const auto cells = Zellen(event);
        for (std::size_t n = 0; n < Columns; ++n) {
            // One byte a character in code page 1252, so that the widths count characters.
            widths[n] = std::max(widths[n], cells[n].size());
        }
    }
    std::string text;
    for (const HistoryEvent& event : history.Events) {
        const auto cells = Zellen(event);
        std::string line;
        for (std::size_t n = 0; n < Columns; ++n) {
            line += Anzeige_Aus_1252(cells[n]) + std::string(widths[n] - cells[n].size() + 2, ' ');
        }
        line += Anzeige_Aus_1252(cells[Columns]);
        text += std::string(RTrim(line)) + "\n";
    }
    return text;
}

nlohmann::ordered_json Historie_Json(const HistoryFile& history) {
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const HistoryEvent& event : history.Events) {
        const auto cells = Zellen(event);
        list.push_back({{"name", NachUtf8(cells[0])},
                        {"date", NachUtf8(cells[1])},
                        {"time", NachUtf8(cells[2])},
                        {"event", NachUtf8(cells[3])},
                        {"state", NachUtf8(cells[4])}});
    }
    return list;
}

std::string Historie_Csv_Kopf() {
    return "file;lock;name;date;time;event;state\n";
}

std::string Historie_Csv(const std::string& file, const HistoryFile& history) {
    const std::string front = Csv_Feld(Anzeigetext(file)) + ";" + Csv_Feld(Anzeige_Aus_1252(RTrim(history.Serial)));
    std::string text;
    for (const HistoryEvent& event : history.Events) {
        text += front;
        for (const std::string& cell : Zellen(event)) {
            text += ";" + Csv_Feld(Anzeige_Aus_1252(cell));
        }
        text += "\n";
    }
    return text;
}

} // namespace qvm
