#pragma once

#include <array>
#include <string_view>

/// Where the words of the language file go that no window fetches for itself: menus, tool tips and a label, which keep
/// the words of their design until a language file is loaded.
namespace qvm {

/// The names of the languages, as they stand in the configuration and in the names of the language files.
inline constexpr std::array<std::string_view, 4> SprachNamen{"Deutsch", "English", "Francais", "Nederlands"};

struct TextSlot {
    /// "window.control". A toolbar button goes by its number: "F2.Toolbar1.9". The entry that deletes in a window's
    /// context menu is "window.Delete".
    std::string_view Where;
    int Line; ///< of the catalogue
};

inline constexpr std::array TextSlots{
    TextSlot{"F2.F2_Datei", 116},      TextSlot{"F2.F2_Sprache", 125},   TextSlot{"F2.F2_Schnittstelle", 21},
    TextSlot{"F2.F2_Ende", 24},        TextSlot{"F2.F2_Einzel", 3},      TextSlot{"F2.F2_Perm", 4},
    TextSlot{"F2.F2_Gasttimer", 209},  TextSlot{"F2.F2_Help", 135},      TextSlot{"F2.F2_Version", 136},
    TextSlot{"F2.F2_PersonB", 177},    TextSlot{"F2.F2_SchlossB", 178},  TextSlot{"F2.Toolbar1.1", 26},
    TextSlot{"F2.Toolbar1.9", 27},     TextSlot{"F2.Toolbar1.11", 28},   TextSlot{"F2.Toolbar1.13", 29},
    TextSlot{"F2.Toolbar1.15", 30},    TextSlot{"F2.Toolbar1.17", 31},   TextSlot{"F2.Toolbar1.19", 213},
    TextSlot{"F2.Toolbar1.21", 32},    TextSlot{"F2.Toolbar1.23", 33},   TextSlot{"F2.Label7", 148},
    TextSlot{"F3.Delete", 127},        TextSlot{"F4.Delete", 127},       TextSlot{"F41.Delete", 127},
    TextSlot{"F5.Delete", 127},        TextSlot{"F10.Delete", 127},      TextSlot{"F12.Delete", 127},
    TextSlot{"F42.Delete", 127},       TextSlot{"F5.key_anlernen", 45},  TextSlot{"F5.Key_loeschen", 46},
    TextSlot{"F5.key_suchen", 142},    TextSlot{"F5.key_synchron", 143}, TextSlot{"F5.key_ausschneiden", 47},
    TextSlot{"F5.key_einfuegen", 48},  TextSlot{"F5.F5_Extras", 128},    TextSlot{"F5.F5_Markierung", 129},
    TextSlot{"F5.F5_M5ON", 130},       TextSlot{"F5.F5_M5_OFF", 131},    TextSlot{"F5.F5_Sort", 126},
    TextSlot{"F5.F5_Search", 107},     TextSlot{"F12.SNA_save", 149},    TextSlot{"F12.SNA_Input", 150},
    TextSlot{"F12.SNA_Function", 161},
};

} // namespace qvm
