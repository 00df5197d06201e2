#include "Befehle.h"
#include "Export.h"
#include "FileHandle.h"
#include "FilePath.h"

#include <fcntl.h>
#include <nlohmann/json.hpp>
#include <ostream>
#include <sys/stat.h>

namespace qvm {

namespace {

/// Not beside an import, which would give files of before it and files of after it.
nlohmann::ordered_json Lesen(const Umgebung& world, const Console& console, std::vector<Finding>& faults) {
    const DataLock lock(world.DatPfad(), DataLock::Use::Read);
    Sperre_Holen(lock, console);
    return Export_Erstellen(world.Welt.Files, world.DatPfad(), faults);
}

} // namespace

bool Ausgabedatei_Schreiben(const Umgebung& world, const std::string& file, const std::string& text) {
    struct stat info {};
    const auto name = FilePath_Nativ(file);
    if (!name || ::stat(name->c_str(), &info) != 0 || S_ISREG(info.st_mode)) {
        return world.Welt.Files.Replace(file, text);
    }
    if (!S_ISCHR(info.st_mode) && !S_ISFIFO(info.st_mode)) {
        return false;
    }
    FileHandle handle(*name, O_WRONLY);
    return handle.Good() && handle.Write(text) && handle.Close();
}

ExitCode Befehl_Export(const Umgebung& world, const Console& console, const std::string& file) {
    if (const std::string why = world.Datenverzeichnis_Fehler(); !why.empty()) {
        return console.Fehlschlag("export", {why});
    }
    std::vector<Finding> faults;
    const nlohmann::ordered_json document = Lesen(world, console, faults);
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
    if (!Ausgabedatei_Schreiben(world, file, Json_Text(document, 2) + "\n")) {
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
