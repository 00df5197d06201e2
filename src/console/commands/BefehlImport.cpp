#include "Befehle.h"
#include "Dateinamen.h"
#include "FileTrouble.h"
#include "Import.h"
#include "PosixFiles.h"

#include <cstdint>
#include <fstream>
#include <iostream>
#include <nlohmann/json.hpp>
#include <sys/stat.h>

namespace qvm {

namespace {

using Json = nlohmann::ordered_json;

ExitCode Fehler_Melden(const Console& console, const ImportPlan& plan) {
    for (const Finding& fault : plan.Faults) {
        console.Meldung(Befund_Text(fault));
    }
    if (plan.MoreFaults > 0) {
        console.Meldung("and " + std::to_string(plan.MoreFaults) + " more");
    }
    const std::size_t count = plan.Faults.size() + plan.MoreFaults;
    console.Meldung(std::to_string(count) + (count == 1 ? " fault" : " faults") + ". Nothing was written.");
    if (console.Json) {
        Json list = Json::array();
        for (const Finding& fault : plan.Faults) {
            list.push_back(Befund_Json(fault));
        }
        console.Ergebnis({{"command", "import"}, {"ok", false}, {"faults", list}, {"more", plan.MoreFaults}});
    }
    return ExitCode::Fault;
}

ImportReport Schreiben(const Umgebung& world, const Console& console, const ImportPlan& plan) {
    const DataLock lock(world.DatPfad(), DataLock::Use::Replace);
    Sperre_Holen(lock, console);
    return Import_Schreiben(world.Welt.Files, world.DatPfad(), world.Welt.Now(), plan);
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

/// All that comes, or one byte more than can be taken.
std::string Eingabe_Strom(std::istream& in) {
    constexpr std::size_t Piece = std::size_t{64} << 10U;
    std::string bytes;
    // The system gives memory as it is filled, so that nothing is moved about while it grows.
    bytes.reserve(LargestFile + Piece);
    while (in.good() && bytes.size() <= LargestFile) {
        const std::size_t size = bytes.size();
        bytes.resize(size + Piece);
        in.read(bytes.data() + size, Piece);
        bytes.resize(size + static_cast<std::size_t>(in.gcount()));
    }
    return bytes;
}

std::string Zu_Gross() {
    return " is larger than " + std::to_string(LargestFile >> 20U) + " MB, the most that is read.";
}

std::string Strom_Lesen(std::istream& in, const std::string& name, std::string& bytes) {
    bytes = Eingabe_Strom(in);
    if (bytes.size() > LargestFile) {
        return name + Zu_Gross();
    }
    return in.bad() ? name + " cannot be read." : "";
}

} // namespace

std::string Eingabe_Lesen(const Umgebung& world, const std::string& file, std::string& bytes) {
    if (file == "-") {
        return Strom_Lesen(std::cin, "Standard input", bytes);
    }
    struct stat info {};
    if (::stat(file.c_str(), &info) != 0 || S_ISREG(info.st_mode) || S_ISDIR(info.st_mode) || S_ISSOCK(info.st_mode)) {
        return Datei_Lesen(world, file, bytes);
    }
    // Who names a pipe or a device wants what comes from there.
    std::ifstream in(file, std::ios::binary);
    return in.is_open() ? Strom_Lesen(in, "The file " + file, bytes) : "The file " + file + " cannot be opened.";
}

std::string Datei_Lesen(const Umgebung& world, const std::string& file, std::string& bytes) {
    struct stat info {};
    if (::stat(file.c_str(), &info) == 0 && S_ISREG(info.st_mode) &&
        static_cast<std::uintmax_t>(info.st_size) > LargestFile) {
        return "The file " + file + Zu_Gross();
    }
    const ReadStatus status = world.Welt.Files.ReadAll(file, bytes);
    if (status == ReadStatus::Ok) {
        return {};
    }
    if (status == ReadStatus::Missing) {
        return "The file " + file + " is not there.";
    }
    return "The file " + file + " cannot be read: " + FileFault_English(Lesefehler(world.Welt.Files)) + ".";
}

ExitCode Befehl_Import(const Umgebung& world, const Console& console, const std::string& file) {
    std::string text;
    if (const std::string why = Eingabe_Lesen(world, file, text); !why.empty()) {
        return console.Fehlschlag("import", {why});
    }
    const ImportPlan plan = Import_Pruefen(text);
    if (!plan.Faults.empty()) {
        return Fehler_Melden(console, plan);
    }
    // Made before it is claimed; when that fails, the writing says so.
    world.Welt.Files.MakeDirectory(world.DatPfad());
    if (const std::string why = world.Daten_Beanspruchen(); !why.empty()) {
        return console.Fehlschlag("import", {why});
    }
    Reste_Entfernen(world.Welt.Files, world.DatPfad());
    return Bericht_Ausgeben(console, Schreiben(world, console, plan));
}

} // namespace qvm
