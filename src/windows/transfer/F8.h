#pragma once

#include "Controls.h"
#include "F7.h"

#include <array>

namespace qvm {

/// Window F8: searches the lines that F7 shows.
struct F8 {
    explicit F8(F7& view) : f7(view), kern(view.kern) {}

    F7& f7;
    Kern& kern;

    Window Fenster;
    std::array<CheckBox, 4> Option; ///< one of them is checked: option n searches column n + 1 of F7
    CheckBox Enthaelt;              ///< a part of a cell's text is enough; off whenever the window opens
    TextBox Text1;
    Button Command1;

    void F8_Laden();
    /// Words from the catalogue anew.
    void Texte_Setzen();
    void Option_Click(int index);
    void Enthaelt_Click(bool on);
    /// Only Return acts: it searches.
    void Text1_KeyPress(int key);
    /// Marks each row whose column is the search text (or contains it, if that is chosen), upper and lower case alike,
    /// lists it in F7's Text1, and shows the first one in F7. Without a search text only a message is shown. The window
    /// closes either way.
    void Command1_Click();
    /// Closed without a search.
    void F8_Schliessen();

private:
    int Spalte() const;
    bool Ist_Treffer(std::string_view text, std::string_view wanted) const;
    /// The row of the first hit, 0 without any.
    int Suchen();
    void Zeigen(int row);

    Listener words_ = Worte_Folgen(*this);
};

} // namespace qvm
