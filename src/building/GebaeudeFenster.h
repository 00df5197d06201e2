#pragma once

#include "Controls.h"
#include "Gebaeude.h"
#include "Grid.h"
#include "GridSelection.h"
#include "Kern.h"
#include "Timer.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

/// Columns of the list of devices.
namespace BuildingColumn {
inline constexpr int Device = 0, Serial = 1, Channel = 2, Users = 3, Events = 4, Clock = 5, State = 6, Count = 7;
}

/// The window of the virtual building: what its devices hold, and what people do with them. It stays open beside all
/// others, and is closed with the building.
struct GebaeudeFenster {
    GebaeudeFenster(Kern& kernel, Gebaeude& building);

    static constexpr int FirstRow = 1;
    static constexpr int CodeLength = 10; ///< digits at most

    Kern& kern;

    Window Fenster;
    Grid FGK{FirstRow, BuildingColumn::Count}; ///< locks, then units
    GridSelection Auswahl{FGK, GridSelection::Unit::Rows};
    Button Wegnehmen; ///< takes the chosen device away, or brings it back
    Label Uhrwort;
    ListBox Uhr; ///< how wrong the chosen lock's clock is

    Label Tuer;
    TextBox Code;
    Button Eingeben, Vorhalten;
    Label Ergebnis; ///< what the lock, or the desk, says

    Label Tisch;
    ListBox Sachen; ///< what can be held
    Button Auflegen;
    CheckBox Karte;

    Label Adapterwort;
    ListBox Adapter;
    Button Ziehen; ///< pulls the adapter out, or plugs it in

    /// Fills and shows the window.
    void FormLaden();
    /// Words in the language in use.
    void Texte_Setzen();
    void Schliessen();
    /// A digit in the code's field; anything else does nothing. Return enters the code.
    void Code_Change(std::string_view text);
    void Eingeben_Click();
    void Vorhalten_Click();
    void Wegnehmen_Click();
    void Uhr_Click(int entry);
    void Auflegen_Click();
    void Karte_Click(bool on);
    void Adapter_Click(int entry);
    void Ziehen_Click();
    /// Width of a column, in the units of the other grids.
    static int Breite(int column);

private:
    std::optional<std::size_t> Schloss() const;
    OnAir* Geraet();
    std::string Geraetename(std::size_t lock);
    void Zeilen_Zeigen();
    void Schloss_Zeigen(std::size_t lock);
    void Unit_Zeigen(std::size_t unit);
    void Auswahl_Zeigen();
    void Listen_Fuellen();
    void Antwort_Zeigen(std::size_t lock, const DoorTry& result);
    std::string Uhrtext(std::size_t lock) const;
    Credential Neue_Sache(Credential::Kind kind);

    Gebaeude& building_;
    Timer clock_;
    Listener words_;
    std::vector<std::vector<std::uint8_t>> keys_; ///< E-Keys that were held, by their identification
};

} // namespace qvm
