#pragma once

#include "Controls.h"
#include "Programmierlauf.h"
#include "Timer.h"

#include <functional>
#include <string>

namespace qvm {

/// Window F18: the wait box of a channel search, of the login that checks a code, and of a scan by logins.
struct F18 {
    explicit F18(Programmierlauf& programmierlauf);

    Programmierlauf& run;
    Kern& kern;
    Window Fenster;
    Label Schloss;      ///< which lock is searched
    Label Text;         ///< that it is being searched, or that the adapter is gone
    ProgressBar Balken; ///< 100 to 200
    Button Command1;    ///< ends the search at its next reply, a scan at once; at once, too, when the adapter is gone
    Timer Wache;        ///< looks at the adapter once a second

    std::function<void()> F9_Zeigen;           ///< the progress window takes over, with its close button live
    std::function<void()> Anmeldung_Abbrechen; ///< the window that checks a code waits no longer

    std::function<void()> Suche_Abbrechen; ///< the scan is to end

    void F18_Zeigen();
    /// A scan is on this channel, 1 to 12, and `state` tells what it has found so far.
    void Suchstand_Zeigen(int channel, const std::string& state);
    /// Catalogue line `line` as the text.
    void Text_Zeigen(int line);
    /// Words from the catalogue anew.
    void Texte_Setzen();
    void F18_Schliessen();
    void Command1_Click();

private:
    void Text_Setzen();
    bool Code_Wird_Geprueft() const { return run.link.Lauf.Chain.CodeChangePending != 0; }
    bool Wird_Abgesucht() const { return run.link.Lauf.Chain.SuchLauf != 0; }

    int textLine_ = 0;
    std::string state_;   ///< of a scan, in place of the line
    bool pulled_ = false; ///< the adapter is gone, and that stands in place of the line
    Listener words_ = Worte_Folgen(*this);
};

} // namespace qvm
