#pragma once

#include "Gebaeude.h"
#include "GebaeudeFenster.h"
#include "Messages.h"
#include "Programm.h"
#include "QtPlatform.h"

#include <memory>
#include <optional>
#include <string>

namespace qvm::ui {

class Oberflaeche;
class BuildingWindow;

/// What comes behind a session of the program.
enum class Danach { Ende, Wirklich, Gebaeude, Vorfuehrung };

/// The program with its windows, from its start to its end: in the real world, or in the virtual building, as a copy of
/// the data files or as the demonstration. One at a time; `boxes` follows the words of the last one.
class Sitzung {
public:
    Sitzung(QtPlatform& platform, MessageBoxes& boxes, const std::string& directory, Danach which);
    ~Sitzung();
    Sitzung(const Sitzung&) = delete;
    Sitzung& operator=(const Sitzung&) = delete;

    /// The start sequence; `claim`: that this is the only instance is found out first.
    StartResult Starten(bool claim);
    const Programm& Das_Programm() const { return *programm_; }
    /// Shows the windows and handles events until the end.
    Danach Laufen();

private:
    void Haken_Setzen();
    void Gebaeude_Oeffnen();
    void Wechseln(Danach next);

    QtPlatform& platform_;
    MessageBoxes& boxes_;
    Danach which_;
    Danach next_ = Danach::Ende, wanted_ = Danach::Ende;
    std::unique_ptr<Gebaeude> building_;
    std::unique_ptr<Programm> programm_;
    std::unique_ptr<GebaeudeFenster> buildingModel_;
    std::unique_ptr<Oberflaeche> windows_;
    std::unique_ptr<BuildingWindow> buildingWindow_;
};

} // namespace qvm::ui
