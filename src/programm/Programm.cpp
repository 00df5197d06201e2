#include "Programm.h"

#include "Dateinamen.h"
#include "HistoryWindows.h"
#include "LockWindows.h"
#include "MainWindows.h"
#include "Migration.h"
#include "PersonWindows.h"
#include "TimeWindows.h"
#include "TransferWindows.h"
#include "Words.h"

namespace qvm {

Programm::Programm(Platform& world, const std::string& directory)
    : kern(world), link(kern), Run(link), Netz(link, Run.Daten), Main(std::make_unique<MainWindows>(*this)),
      Transfer(std::make_unique<TransferWindows>(*this)), History(std::make_unique<HistoryWindows>(*this)),
      Persons(std::make_unique<PersonWindows>(*this)), Locks(std::make_unique<LockWindows>(*this)),
      Times(std::make_unique<TimeWindows>(*this)) {
    kern.AppPath = directory;
    if (kern.AppPath.empty() || kern.AppPath.back() != '/') {
        kern.AppPath += '/';
    }
    Main->Verbinden();
    Transfer->Verbinden();
    History->Verbinden();
    Persons->Verbinden();
    Locks->Verbinden();
    Times->Verbinden();
}

Programm::~Programm() = default;

namespace {

/// False when another program may write the data files.
bool Daten_Beanspruchen(Programm& programm) {
    const Kern& kern = programm.kern;
    const auto holder = kern.Welt.ClaimData ? kern.Welt.ClaimData(kern.DatPfad()) : std::nullopt;
    programm.Datenbesitzer = holder.value_or(DataHolder{});
    return !holder;
}

} // namespace

StartResult Programm_Start(Programm& programm, bool claimInstance) {
    Kern& kern = programm.kern;
    if (claimInstance && !kern.Welt.ClaimInstance()) {
        return StartResult::AlreadyRunning;
    }
    Globale_Defaults(kern.Globals);
    if (!kern.Welt.Files.MakeDirectory(kern.AppPath + "DAT") || !kern.Welt.Files.MakeDirectory(kern.AppPath + "HIST")) {
        return StartResult::NoDirectory;
    }
    const bool mayWrite = Daten_Beanspruchen(programm);
    if (mayWrite) {
        Reste_Entfernen(kern.Welt.Files, kern.DatPfad());
        Sendelog_Entfernen(kern);
    }
    Konfiguration_Laden(kern);
    programm.link.PortNummer = kern.Config.PortNummer;
    Sprache_Defaults(kern.Sprache);
    if (Sprachdatei_Laden(kern) == SprachdateiStatus::Fehlt && !kern.Config.EinstellungenMangel.File.empty()) {
        // The name of the language is damaged, too. The operator needs words to put it right.
        kern.Config.Sprache = Konfiguration{}.Sprache;
        Sprachdatei_Laden(kern);
    }
    if (!mayWrite) {
        return StartResult::DataHeld;
    }
    Konfiguration_Verlangen(kern);
    // A conversion that fails loses nothing and is tried again at the next start.
    Dateien_Umstellen(kern);
    return StartResult::Started;
}

std::string Datenbesitzer_Text(const Programm& programm) {
    const DataHolder& holder = programm.Datenbesitzer;
    std::string who = holder.Program;
    if (holder.Process > 0) {
        who += (who.empty() ? "" : ", ") + std::to_string(holder.Process);
    }
    if (!holder.User.empty()) {
        who += (who.empty() ? "" : ", ") + holder.User;
    }
    return Wort(programm.kern, Word::DataHeld, {who.empty() ? Wort(programm.kern, Word::UnknownProgram) : who});
}

bool Programm_Ende(Programm& programm) {
    return Herunterfahren(programm.kern);
}

} // namespace qvm
