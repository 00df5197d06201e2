#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace qvm {

/// How many of something the data files hold.
struct Anzahl {
    std::optional<int> Wert; ///< none: a file that says so cannot be read
    std::string Datei;       ///< which one, then
};

/// What the main window tells of the data files.
struct Bestand {
    Anzahl Personen;
    Anzahl Schloesser;
    Anzahl Kanalwechsel; ///< locks that must still change their radio channel

    /// There are neither people nor locks.
    bool Leer() const { return Personen.Wert == 0 && Schloesser.Wert == 0; }
};

/// A history file, as a menu offers it.
struct Historiendatei {
    std::string Pfad;
    std::string Text; ///< the lock's name and the date, code page 1252
};

/// So many histories does the main window offer.
inline constexpr std::size_t LetzteHistorien = 10;

} // namespace qvm
