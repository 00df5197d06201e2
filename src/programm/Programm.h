#pragma once

#include "AdapterListe.h"
#include "Kern.h"
#include "Link.h"
#include "Network_USB.h"
#include "Programmierlauf.h"

#include <functional>
#include <memory>
#include <string>

namespace qvm {

struct MainWindows;
struct TransferWindows;
struct HistoryWindows;
struct PersonWindows;
struct LockWindows;
struct TimeWindows;

/// One of everything, with all hooks filled; still no widget. A front end (or a test) makes one over its Platform.
struct Programm {
    /// `directory`: the program's directory; a trailing separator is added when it has none.
    Programm(Platform& world, const std::string& directory);
    ~Programm();
    Programm(const Programm&) = delete;
    Programm& operator=(const Programm&) = delete;

    Kern kern;
    Link link;
    AdapterListe Adapter;
    Programmierlauf Run;
    Netzlauf Netz;
    // Groups of windows. Each has a header of its own, so that a new window concerns only those who use its group.
    std::unique_ptr<MainWindows> Main;
    std::unique_ptr<TransferWindows> Transfer;
    std::unique_ptr<HistoryWindows> History;
    std::unique_ptr<PersonWindows> Persons;
    std::unique_ptr<LockWindows> Locks;
    std::unique_ptr<TimeWindows> Times;

    DataHolder Datenbesitzer;                                ///< who has the data files, when Programm_Start says so
    std::function<void(const std::string& path)> F7_Oeffnen; ///< shows the history file of a run, by F7 or otherwise
};

enum class StartResult {
    Started,
    AlreadyRunning, ///< another instance was brought to the foreground; end at once, without a message
    NoDirectory,    ///< DAT or HIST cannot be made
    DataHeld, ///< another program may write the data files, Programm::Datenbesitzer; language and words are loaded
};

/// The start sequence up to showing the main window: one instance, defaults, directories, the right to write the data
/// files, configuration, language, conversion of older files. `claimInstance` false leaves the first step out. A front
/// end with windows then opens F2.
StartResult Programm_Start(Programm& programm, bool claimInstance);

/// Who has the data files, after StartResult::DataHeld, as a sentence in the language in use.
std::string Datenbesitzer_Text(const Programm& programm);

/// Shut-down: configuration saved, port closed, request-to-send off. False when the configuration was not saved.
bool Programm_Ende(Programm& programm);

} // namespace qvm
