#pragma once

#include "AdapterListe.h"
#include "F1.h"
#include "F11.h"
#include "F13.h"
#include "F14.h"
#include "F15.h"
#include "F18.h"
#include "F2.h"
#include "F6.h"
#include "F7.h"
#include "F8.h"
#include "F9.h"
#include "F91.h"
#include "F92.h"
#include "Kern.h"
#include "Link.h"
#include "Network_USB.h"
#include "Programmierlauf.h"

#include <functional>
#include <string>

namespace qvm {

/// One of everything, with all hooks filled; still no widget. A front end (or a test) makes one over its Platform.
struct Programm {
    /// `directory`: the program's directory; a trailing separator is added when it has none.
    Programm(Platform& world, const std::string& directory);
    Programm(const Programm&) = delete;
    Programm& operator=(const Programm&) = delete;

    Kern kern;
    Link link;
    AdapterListe Adapter;
    Programmierlauf Lauf;
    Netzlauf Netz;
    struct F9 F9;
    struct F18 F18;
    struct F11 F11;
    struct F13 F13;
    struct F91 F91;
    struct F92 F92;
    struct F1 F1;
    struct F2 F2;
    struct F6 F6;
    struct F7 F7;
    struct F8 F8;
    struct F14 F14;
    struct F15 F15;

    // Rows of the reply chain, and ends of a run, that lead to windows of the front end. May be empty.
    LinkHooks Fensterhaken;
    DataHolder Datenbesitzer;                                ///< who has the data files, when Programm_Start says so
    std::function<void(const std::string& path)> F7_Oeffnen; ///< shows the history file of a run, by F7 or otherwise

private:
    void Ansicht_Verbinden();
    void Hauptfenster_Verbinden();
    void Fenster_Verbinden();
    void Haken_Verbinden();
    void Liste_Verbinden();
    void Liste_Ansicht_Verbinden();
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
