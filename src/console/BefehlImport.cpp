#include "Befehle.h"
#include "Import.h"

#include <iostream>
#include <iterator>
#include <nlohmann/json.hpp>

namespace qvm {

namespace {

using Json = nlohmann::ordered_json;

ExitCode Fehler_Melden(const Console& console, const std::vector<Finding>& faults) {
    for (const Finding& fault : faults) {
        console.Meldung(Befund_Text(fault));
    }
    console.Meldung(std::to_string(faults.size()) + (faults.size() == 1 ? " fault" : " faults") +
                    ". Nothing was written.");
    if (console.Json) {
        Json list = Json::array();
        for (const Finding& fault : faults) {
            list.push_back(Befund_Json(fault));
        }
        console.Ergebnis({{"command", "import"}, {"ok", false}, {"faults", list}});
    }
    return ExitCode::Fault;
}

ExitCode Bericht_Ausgeben(const Console& console, const ImportReport& report) {
    for (const std::string& fault : report.Faults) {
        console.Meldung(fault);
    }
    if (console.Json) {
        console.Ergebnis({{"command", "import"},
                          {"ok", report.Done},
                          {"replaced", report.Replaced},
                          {"created", report.Created},
                          {"unchanged", report.Unchanged},
                          {"backup", report.Backup},
                          {"failures", report.Faults}});
    } else if (report.Done) {
        for (const std::string& name : report.Created) {
            console.Out << "new        " << name << "\n";
        }
        for (const std::string& name : report.Replaced) {
            console.Out << "replaced   " << name << "\n";
        }
        for (const std::string& name : report.Unchanged) {
            console.Out << "unchanged  " << name << "\n";
        }
        if (!report.Backup.empty()) {
            console.Out << "Copies of the replaced files: " << Anzeigetext(report.Backup) << "\n";
        }
    }
    return report.Done ? ExitCode::Good : ExitCode::Fault;
}

} // namespace

std::string Eingabe_Lesen(const Umgebung& world, const std::string& file, std::string& bytes) {
    if (file == "-") {
        bytes.assign(std::istreambuf_iterator<char>(std::cin), {});
        return std::cin.bad() ? "Standard input cannot be read." : "";
    }
    const ReadStatus status = world.Welt.Files.ReadAll(file, bytes);
    if (status == ReadStatus::Ok) {
        return {};
    }
    return "The file " + file + (status == ReadStatus::Missing ? " is not there." : " cannot be read.");
}

ExitCode Befehl_Import(const Umgebung& world, const Console& console, const std::string& file) {
    std::string text;
    if (const std::string why = Eingabe_Lesen(world, file, text); !why.empty()) {
        return console.Fehlschlag("import", {why});
    }
    const ImportPlan plan = Import_Pruefen(text);
    if (!plan.Faults.empty()) {
        return Fehler_Melden(console, plan.Faults);
    }
    return Bericht_Ausgeben(console, Import_Schreiben(world.Welt.Files, world.DatPfad(), world.Welt.Now(), plan));
}

} // namespace qvm
