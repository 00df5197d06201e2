#pragma once

#include "Beigaben.h"
#include "Catalogue.h"
#include "GlobaleVariablen.h"
#include "Konfiguration.h"
#include "Platform.h"
#include "WindowBoard.h"

#include <string>
#include <string_view>

namespace qvm {

/// Title of every window and message that names no other.
inline constexpr std::string_view SystemTitle = "QVM 7702 SOFTWARE SYSTEM";

/// What every part of the program shares: the world, the paths, the configuration and the words. One of it exists,
/// made by the program (or by a test) and passed by reference.
struct Kern {
    explicit Kern(Platform& world) : Welt(world) {}
    Kern(const Kern&) = delete;
    Kern& operator=(const Kern&) = delete;

    Platform& Welt;
    bool ImGebaeude = false; ///< the world is a virtual building, in which nothing is real
    std::string AppPath;     ///< the program's directory with a trailing separator
    GlobaleVariablen Globals;
    Konfiguration Config;
    Sprachkatalog Sprache;
    WindowBoard Windows;

    std::string DatPfad() const { return AppPath + "DAT/"; }
    std::string HistPfad() const { return AppPath + "HIST/"; }
    /// Where a file lies that comes with the program, by Beigabe_Pfad.
    std::string Beigabe(const std::string& name) const {
        return Beigabe_Pfad(Welt.Files, AppPath, Welt.ProgramFiles, name);
    }

    /// Catalogue line n (0 to 300); empty outside and for line 0.
    const std::string& Zeile(int n) const { return Sprache.Zeile(n); }

    /// A message box under the system title.
    Answer Meldung(std::string_view text, Buttons choice = Buttons::Ok, Icon sign = Icon::None,
                   std::string_view title = SystemTitle, int defaultButton = 1) const {
        return Welt.ShowMessage({.Text = std::string(text),
                                 .Title = std::string(title),
                                 .Choice = choice,
                                 .Sign = sign,
                                 .DefaultButton = defaultButton});
    }
};

} // namespace qvm
