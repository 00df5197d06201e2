#pragma once

#include "Controls.h"
#include "Kern.h"
#include "Zeit.h"

#include <functional>
#include <string>

namespace qvm {

/// A moment as the windows of a list run show it: hour ":" minute " / " date.
std::string Startzeit_Text(const DateTime& moment);

/// Window F92: the time of a delayed start.
struct F92 {
    explicit F92(Kern& kernel);

    Kern& kern;

    Window Fenster;
    Label Kopf;      ///< the time chosen
    ListBox Stunden; ///< 24 hours
    ListBox Minuten; ///< 60 minutes
    Datum Tag;       ///< the day that the month view shows as chosen
    Button OK;
    Button Abbrechen;

    std::function<void(const DateTime& start)> Gewaehlt;
    std::function<void()> Verworfen;     ///< closed without a choice
    std::function<void()> Tag_Geaendert; ///< for the month view

    /// Preset to now.
    void F92_Laden();
    void Texte_Setzen();
    /// The first day that can be picked.
    Datum Erster_Tag() const;
    /// A day of the month view; one that does not exist changes nothing.
    void Tag_Waehlen(const Datum& day);
    /// Hour 0 to 23 and minute 0 to 59; others change nothing.
    void Zeit_Waehlen(int hour, int minute);
    void OK_Click();
    /// Cancel, and the frame's close button: no time is chosen.
    void Schliessen_Click();

private:
    DateTime Zeitpunkt() const;
    void Rufen_Tag() const;
    void Kopf_Setzen();

    Listener words_ = Worte_Folgen(*this);
};

} // namespace qvm
