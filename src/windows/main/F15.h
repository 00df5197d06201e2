#pragma once

#include "Controls.h"
#include "Kern.h"

namespace qvm {

/// Window F15, the choice of the language.
struct F15 {
    explicit F15(Kern& kernel);

    Kern& kern;
    Window Fenster;
    ListBox Sprachen; ///< the languages by their own names, in the order of SprachNamen
    Button OK, Cancel;

    void F15_Laden();
    /// Words from the catalogue anew.
    void Texte_Setzen();
    void Sprachen_Click(int index) { Sprachen.Selected = index; }
    /// The chosen language becomes the configured one, is saved, its file is loaded and the windows are told. A file
    /// that is missing keeps the words in use, and a message names it.
    void OK_Click();
    void Cancel_Click() { Fenster.Visible = false; }

private:
    /// By the time that the others are told this window is closed already.
    Listener words_ = kern.Windows.WordsChanged.Listen([this] { Texte_Setzen(); });
};

} // namespace qvm
