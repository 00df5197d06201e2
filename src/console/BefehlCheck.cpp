#include "Befehle.h"
#include "Check.h"

#include <nlohmann/json.hpp>
#include <ostream>

namespace qvm {

ExitCode Befehl_Check(const Umgebung& world, const Console& console) {
    if (const std::string why = world.Datenverzeichnis_Fehler(); !why.empty()) {
        return console.Fehlschlag("check", {why});
    }
    std::vector<Finding> findings = Daten_Pruefen(world.Welt.Files, world.DatPfad());
    const std::vector<Finding> language = Sprachdatei_Pruefen(world.Welt.Files, world.AppPath);
    findings.insert(findings.end(), language.begin(), language.end());
    if (console.Json) {
        nlohmann::ordered_json list = nlohmann::ordered_json::array();
        for (const Finding& finding : findings) {
            list.push_back(Befund_Json(finding));
        }
        console.Ergebnis({{"command", "check"}, {"clean", findings.empty()}, {"findings", list}});
    } else if (findings.empty()) {
        console.Out << "All data files are in order.\n";
    } else {
        for (const Finding& finding : findings) {
            console.Out << finding.Kind << "  " << Anzeigetext(Befund_Text(finding)) << "\n";
        }
        console.Out << findings.size() << (findings.size() == 1 ? " finding\n" : " findings\n");
    }
    return findings.empty() ? ExitCode::Good : ExitCode::Fault;
}

} // namespace qvm
