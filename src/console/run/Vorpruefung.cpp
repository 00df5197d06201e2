#include "Vorpruefung.h"

#include "TransferWindows.h"

#include <algorithm>
#include <string>

namespace qvm {

namespace {

std::vector<FileTrouble> Datendateien_Pruefen(const F13& grid, const std::vector<int>& locks) {
    std::vector<FileTrouble> found;
    for (const int lock : locks) {
        for (FileTrouble& trouble : grid.Dateien_Pruefen(lock)) {
            if (std::find(found.begin(), found.end(), trouble) == found.end()) {
                found.push_back(std::move(trouble));
            }
        }
    }
    return found;
}

std::vector<std::string> Einstellungsmaengel(const Konfiguration& config) {
    std::vector<std::string> messages;
    for (const FileTrouble& trouble : Konfiguration_Maengel(config)) {
        messages.push_back(FileTrouble_English(trouble) +
                           ". Until this is put right no lock is addressed, as the radio channel is not certain.");
    }
    return messages;
}

} // namespace

bool Dateien_Vorpruefen(const Console& console, std::string_view word, Programm& program, const std::vector<int>& locks,
                        bool programming, bool force) {
    std::vector<std::string> obstacles = Einstellungsmaengel(program.kern.Config);
    std::vector<std::string> warnings;
    if (programming) {
        program.Transfer->F13.TuerInfo_laden();
        program.Run.SchadenHinnehmen = force;
        for (const FileTrouble& trouble : Datendateien_Pruefen(program.Transfer->F13, locks)) {
            const std::string what = FileTrouble_English(trouble) + ".";
            if (trouble.Fault != FileFault::None) {
                obstacles.push_back(what);
            } else if (force) {
                warnings.push_back(what + " It is taken as it is.");
            } else {
                obstacles.push_back(what + " A lock would lack what is missing; --force goes on all the same.");
            }
        }
    }
    if (!obstacles.empty()) {
        console.Fehlschlag(word, obstacles);
        return false;
    }
    for (const std::string& warning : warnings) {
        console.Meldung(warning);
    }
    return true;
}

} // namespace qvm
