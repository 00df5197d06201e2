#include "Befehle.h"
#include "Export.h"

#include <ostream>

namespace qvm {

ExitCode Befehl_Export(const Umgebung& world, const Console& console, const std::string& file) {
    std::vector<Finding> faults;
    const nlohmann::ordered_json document = Export_Erstellen(world.Welt.Files, world.DatPfad(), faults);
    for (const Finding& fault : faults) {
        console.Meldung(Befund_Text(fault));
    }
    if (!faults.empty()) {
        console.Meldung("Nothing was exported.");
        return ExitCode::Fault;
    }
    if (file.empty() || file == "-") {
        console.Ergebnis(document);
        return console.Out.good() ? ExitCode::Good : ExitCode::Fault;
    }
    if (!world.Welt.Files.Replace(file, document.dump(2) + "\n")) {
        console.Meldung("The file " + file + " cannot be written.");
        return ExitCode::Fault;
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
