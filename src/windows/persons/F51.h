#pragma once

#include "Controls.h"
#include "Kern.h"
#include "Timer.h"
#include "Words.h"

#include <cstdint>
#include <functional>
#include <string>

namespace qvm {

/// Step codes of an enrolment, 0xA1.
namespace FingerStep {
inline constexpr std::uint8_t Begun = 0x0C, Second = 0x0D, Third = 0x0E, Fourth = 0x26, Fifth = 0x27, Done = 0x0A,
                              TooFast = 0x1C, Slanted = 0x1D, TooShort = 0x1E, OffCentre = 0x24;
}

/// Window F51: shows how the enrolment of a finger goes on. It stores nothing and sends nothing.
struct F51 {
    explicit F51(Kern& kernel);

    Kern& kern;
    Window Fenster;
    Label Schritt;                    ///< the step as the enrolment unit counts them
    Label Anleitung;                  ///< what to do now, in the language in use
    Label Fehler;                     ///< what went wrong with a swipe; hidden otherwise
    ProgressBar Balken;               ///< 0 to 1500
    Picture Arbeit, Fertig, Fehlbild; ///< working, done, error: at most one is to be seen
    Timer Timer1;                     ///< closes the window when the finger is enrolled
    Timer Timer2;                     ///< takes the error away; the unit repeats the step by itself
    Timer Wache;                      ///< looks at the adapter once a second
    Button Command1, Command2;        ///< both leave the enrolment

    std::function<bool()> Leser_Weg;  ///< the enrolment unit is gone
    std::function<void()> Aufgegeben; ///< nothing is to come of the enrolment any more; the window stays
    std::function<void()> Verlassen;  ///< the window was closed, by a button or by itself

    void F51_FormLaden();
    /// Words from the catalogue anew.
    void Texte_Setzen();
    /// A step that the unit has told of. Codes that mean nothing change nothing.
    void Schritt_Zeigen(std::uint8_t code);
    /// The finger is not stored, and what the unit still says is nobody's: calls Aufgegeben. The operator leaves by a
    /// button.
    void Gescheitert(const std::string& text);
    void Command1_Click() { Schliessen(); }
    void Command2_Click() { Schliessen(); }
    /// Hides the window, if it is open, and calls Verlassen.
    void Schliessen();

private:
    void Fehler_Zeigen(const std::string& text);
    void Fehler_Wegnehmen();
    void Anleitung_Setzen();

    int swipe_ = 1; ///< the swipe that is due; 0: none
    Listener words_ = Worte_Folgen(*this);
};

} // namespace qvm
