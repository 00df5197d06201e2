#pragma once

#include "Controls.h"
#include "Programmierlauf.h"

namespace qvm {

/// Window F18: the wait box of a channel search.
struct F18 {
    explicit F18(Programmierlauf& programmierlauf) : run(programmierlauf) {
        Balken.Minimum = 100;
        Balken.Maximum = 200;
        Balken.Value = 100;
    }

    Programmierlauf& run;
    Window Fenster;
    Label Schloss; ///< which lock is searched
    Label Text;
    ProgressBar Balken; ///< 100 to 200
    Button Command1;    ///< ends the search at its next reply

    std::function<void()> F9_Zeigen; ///< the progress window takes over, with its close button live

    void F18_Zeigen();
    /// Catalogue line `line` as the text.
    void Text_Zeigen(int line);
    /// Words from the catalogue anew.
    void Texte_Setzen();
    void F18_Schliessen() { Fenster.Visible = false; }
    void Command1_Click();

private:
    int textLine_ = 0;
};

} // namespace qvm
