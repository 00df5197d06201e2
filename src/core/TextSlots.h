#pragma once

#include <Lines.h>
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

inline constexpr auto TextSlots = std::to_array<TextSlot>({
    {"F2.F2_Datei", Line::File},
    {"F2.F2_Sprache", Line::Language},
    {"F2.F2_Schnittstelle", Line::Interface},
    {"F2.F2_Ende", Line::Exit},
    {"F2.F2_Einzel", Line::SingleHolidays},
    {"F2.F2_Perm", Line::PermanentHolidays},
    {"F2.F2_Gasttimer", Line::GuestTimers},
    {"F2.F2_Help", Line::Help},
    {"F2.F2_Version", Line::Version},
    {"F2.F2_PersonB", Line::PersonSwitchClock},
    {"F2.F2_SchlossB", Line::LockSwitchClock},
    {"F2.Toolbar1.1", Line::ExitProgram},
    {"F2.Toolbar1.9", Line::ViewHistory},
    {"F2.Toolbar1.11", Line::Calendars},
    {"F2.Toolbar1.13", Line::SwitchClocks},
    {"F2.Toolbar1.15", Line::ManageUsers},
    {"F2.Toolbar1.17", Line::SetRadioChannel},
    {"F2.Toolbar1.19", Line::GuestCard},
    {"F2.Toolbar1.21", Line::ProgramLocks},
    {"F2.Toolbar1.23", Line::SetUpLocks},
    {"F2.Label7", Line::UsbAdapter},
    {"F3.Delete", Line::Delete},
    {"F4.Delete", Line::Delete},
    {"F41.Delete", Line::Delete},
    {"F5.Delete", Line::Delete},
    {"F10.Delete", Line::Delete},
    {"F12.Delete", Line::Delete},
    {"F42.Delete", Line::Delete},
    {"F5.key_anlernen", Line::Learn},
    {"F5.Key_loeschen", Line::Remove},
    {"F5.key_suchen", Line::SearchKey},
    {"F5.key_synchron", Line::SynchroniseKey},
    {"F5.key_ausschneiden", Line::Cut},
    {"F5.key_einfuegen", Line::Paste},
    {"F5.F5_Extras", Line::Extras},
    {"F5.F5_Markierung", Line::Highlighting},
    {"F5.F5_M5ON", Line::On},
    {"F5.F5_M5_OFF", Line::HighlightOff},
    {"F5.F5_Sort", Line::Sort},
    {"F5.F5_Search", Line::Search},
    {"F12.SNA_save", Line::ReadSerial},
    {"F12.SNA_Input", Line::EnterSerial},
    {"F12.SNA_Function", Line::ManualConfiguration},
});

} // namespace qvm
