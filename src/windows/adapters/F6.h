#pragma once

#include "AdapterListe.h"
#include "Controls.h"
#include "Grid.h"
#include "Link.h"
#include "Text.h"

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

/// Columns of the adapter grid.
namespace F6Column {
inline constexpr int Number = 0, Address = 1, Name = 2, Port = 3, State = 4, Count = 5;
}

/// Window F6: the serial port or the automatic search, and the adapters with their names.
struct F6 {
    F6(Link& serialLink, AdapterListe& adapters);

    static constexpr int Records = 20;              ///< of COMSETUPADAPTER.ADP, one a grid row
    static constexpr int Searched = 18;             ///< rows that a search fills at most
    static constexpr Colour ChangedName = 0x80FFFF; ///< background of a row whose adapter bears another name by now
    static constexpr int NameWidth = 20;
    using Zeile = std::array<std::string, 3>; ///< address, name and port of a grid row

    Link& link;
    Kern& kern;
    AdapterListe& Adapter;

    Window Fenster;
    CheckBox Check1;                ///< automatic search
    ListBox Combo1;                 ///< 16 ports; hidden in automatic mode
    Button Command1;                ///< searches the adapters
    Grid FGK6{22, F6Column::Count}; ///< hidden in manual mode
    TextBox Text3;                  ///< editor over a cell of the name column
    MenuEntry F6_MSGM;              ///< device manager; its text is empty where there is none
    std::array<ToolButton, 2> Toolbar1{{{.Key = u8"Zurück"_w, .Number = 1}, {.Key = "Speichern", .Number = 3}}};

    std::function<void()> Port_Eingerichtet; ///< the port was made ready anew: light and supervision follow

    void F6_Laden();
    /// Words from the catalogue anew; the cells stay.
    void Texte_Setzen();
    void Check1_Click(bool on);
    void Combo1_Click(int index);
    void Command1_Click();
    /// A click on, or a key in, a cell opens the editor when it lies in the name column of a row that is stored.
    void FGK6_Click(int row, int column);
    void FGK6_KeyPress(int key);
    /// One key in the editor: Tab and Return take the text over, Escape puts the old one back.
    void Text3_KeyPress(int key);
    /// The editor's text as the view holds it.
    void Text3_Change(std::string_view text);
    /// The editor lost the focus: takes the text over.
    void Text3_LostFocus();
    /// "Zurück" or "Speichern".
    void Toolbar1_ButtonClick(std::string_view key);
    void F6_MSGM_Click();

    bool Adapter_Liste_Laden();
    bool Adapter_Liste_Speichern();
    /// Writes the name to the row's adapter and reports by message. False when it did not answer or read back something
    /// else: the cell shows `oldName` then; or when the row has no port (no message then, the cell stays).
    bool Transmit_USB_WORD(int row, std::string_view name, std::string_view oldName);

private:
    void Gitter_Leeren();
    void Zeilen_Zurueck(const std::vector<Zeile>& rows);
    void Modus_Zeigen();
    void Zustand_Setzen(int row, int picture);
    void Zustand_Zeigen(int row);
    void Fund_Eintragen();
    bool Ist_Da(int row) const;
    void Zeile_Faerben(int row, Colour colour);
    void Editor_Oeffnen(int row, std::string_view text);
    void Editor_Schliessen();
    void Editor_Uebernehmen();
    bool Name_Vergeben(int row, std::string_view name) const;
    bool Name_Schreiben(int port, std::string_view name);
    void Speichern();
    void Schliessen();

    std::optional<Konfiguration> before_; ///< the settings before a save that failed
    int editedRow_ = 0;                   ///< row under the editor, 0: none
    bool dirty_ = false;
    bool busy_ = false; ///< an adapter is waited for: no key does anything
    Listener words_ = Worte_Folgen(*this);
};

} // namespace qvm
