#include "Befehle.h"
#include "Export.h"

#include <nlohmann/json.hpp>
#include <ostream>

namespace qvm {

ExitCode Befehl_Export(const Umgebung& world, const Console& console, const std::string& file) {
    if (const std::string why = world.Datenverzeichnis_Fehler(); !why.empty()) {
        return console.Fehlschlag("export", {why});
    }
    std::vector<Finding> faults;
    const nlohmann::ordered_json document = Export_Erstellen(world.Welt.Files, world.DatPfad(), faults);
    if (!faults.empty()) {
        std::vector<std::string> messages;
        messages.reserve(faults.size() + 1);
        for (const Finding& fault : faults) {
            messages.push_back(Befund_Text(fault));
        }
        messages.emplace_back("Nothing was exported.");
        return console.Fehlschlag("export", messages);
    }
    if (file.empty() || file == "-") {
        console.Ergebnis(document);
        return console.Out.good() ? ExitCode::Good : ExitCode::Fault;
    }
    if (!world.Welt.Files.Replace(file, document.dump(2) + "\n")) {
        return console.Fehlschlag("export", {"The file " + file + " cannot be written."});
    }
    const std::size_t tables = document["tables"].size() + document["lines"].size();
    if (console.Json) {
        console.Ergebnis({{"command", "export"}, {"ok", true}, {"file", file}, {"files", tables}});
    } else {
        console.Out << "Exported " << tables << " data files to " << Anzeigetext(file) << "\n";
    }
    return ExitCode::Good;
}

} // namespace qvm
