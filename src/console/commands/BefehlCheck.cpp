#include "Befehle.h"
#include "Check.h"

#include <nlohmann/json.hpp>
#include <ostream>

namespace qvm {

namespace {

std::vector<Finding> Pruefen(const Umgebung& world, const Console& console) {
    const DataLock lock(world.DatPfad(), DataLock::Use::Read);
    Sperre_Holen(lock, console);
    std::vector<Finding> findings = Daten_Pruefen(world.Welt.Files, world.DatPfad());
    const std::vector<Finding> language = Sprachdatei_Pruefen(world.Welt.Files, world.AppPath, world.Welt.ProgramFiles);
    findings.insert(findings.end(), language.begin(), language.end());
    return findings;
}

} // namespace

ExitCode Befehl_Check(const Umgebung& world, const Console& console) {
    if (const std::string why = world.Datenverzeichnis_Fehler(); !why.empty()) {
        return console.Fehlschlag("check", {why});
    }
    const std::vector<Finding> findings = Pruefen(world, console);
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
