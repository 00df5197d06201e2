#pragma once

#include "Blattplan.h"
#include "Grid.h"

#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

/// What the rows of a sheet want of the rows of a table, while a plan is made of it.
namespace qvm {

/// A row of a sheet that has found its row of the table.
struct Blattwunsch {
    const Blattzeile* Line = nullptr;
    int Row = 0;        ///< of the grid
    bool Added = false; ///< the row was free

    /// The field of a column, nullptr when the sheet has none for it.
    const std::string* Feld(int column) const { return Line->Feld(column); }
};

/// A text that a row is to get in a column where no two may have the same.
struct Blatttext {
    std::size_t Wish = 0; ///< of which wish
    std::string Text;
};

/// Which of the wishes cannot have their text, as another row would have the same: the later one of two. Blanks at the
/// end do not count, empty texts are never the same.
/// @param firstRow of the rows that are looked at, to the last one of the grid
std::set<std::size_t> Blatt_Doppelte(const Grid& grid, int firstRow, int column, const std::vector<Blattwunsch>& wishes,
                                     const std::vector<Blatttext>& texts);

/// Makes the steps of a plan.
class Blattschreiber {
public:
    Blattschreiber(Blattplan& plan, const Blatt& sheet) : plan_(plan), sheet_(sheet) {}

    /// Who stands in the row, for the steps that follow.
    void Wer(std::string name) { who_ = std::move(name); }
    void Neu(const Blattwunsch& wish);
    void Aendern(const Blattwunsch& wish, int column, std::string old, std::string text);
    void Ablehnen(const Blattwunsch& wish, int column, Word why);
    /// A row of the sheet that finds no row of the table.
    void Zeile_Ablehnen(const Blattzeile& line, std::string name, Word why);
    bool Unpassend(const Blattwunsch& wish, int column) const { return wish.Line->Unfit.contains(column); }

private:
    /// A step of the row; column 0: of the row as a whole.
    Blattschritt& Schritt(Blattart kind, const Blattwunsch& wish, int column);

    Blattplan& plan_;
    const Blatt& sheet_;
    std::string who_;
};

/// A text that only holds what the filter lets through as it is, and is not longer; otherwise what is wrong with it.
std::optional<Word> Eingabe_Mangel(std::string_view text, int (*filter)(int key), std::size_t longest);

/// The number that a field holds, 1 to `last`; 0 for any other text.
int Blattnummer(std::string_view field, int last);

} // namespace qvm
