// Mouse and keyboard on the grid, and what they do to marks and cells.

#include "F5.h"
#include "F5_Laden.h"
#include "F5_Marken.h"
#include "F5_Sortieren.h"
#include "Fragen.h"

#include <algorithm>

namespace qvm {
namespace {

constexpr int LastClearedColumn = 206; ///< one short of the last lock
constexpr int FirstMarkOfMenu = 9;     ///< the menu clears marks from here on, the key from column 7 on

} // namespace

void F5::FGK4_MouseUp(MouseButton button, int row, int column) {
    if (!Fenster.Enabled) {
        return;
    }
    Editor_Uebernehmen();
    if (row < UserGrid::FirstRow || !FGK4.Holds(row, column)) {
        return;
    }
    FsRow = NoRow;
    const bool inBlock = FGK4.Row >= UserGrid::FirstRow && Auswahl.Larger() && Auswahl.Holds(row, column);
    if (inBlock) {
        Auswahl.Within(row, column);
    } else {
        Auswahl.Go(row, column);
    }
    if (button == MouseButton::Left && column == UserColumn::Group) {
        FixedCols = 1;
    }
    const bool menu = Menue_Oeffnen(row, column, button);
    if (!menu && !inBlock && button == MouseButton::Left && UserGrid::IsLock(column)) {
        Aendern(Word::StepMark, [&] { Marke_Schalten(FGK4, row, column); });
    }
}

void F5::FGK4_DblClick(int row, int column) {
    if (!Fenster.Enabled) {
        return;
    }
    Editor_Uebernehmen();
    if (row >= UserGrid::FirstRow && column >= UserColumn::Name && column <= UserColumn::KeyLabel) {
        Auswahl.Go(row, column);
        Editor_Oeffnen(Key::Enter);
    }
}

/// The menu that the button opens on the cell, if there is one.
bool F5::Menue_Oeffnen(int row, int column, MouseButton button) {
    F5Menu which = F5Menu::M_FGK4;
    if (button == MouseButton::Left && column == UserColumn::Finger) {
        FsRow = row;
        which = F5Menu::F5_Fingerscan;
    } else if (button == MouseButton::Left && column == UserColumn::KeyId) {
        MenuRow = row;
        which = F5Menu::F5_E_Key;
    } else if (button == MouseButton::Right &&
               (column == UserColumn::Name || column == UserColumn::Code || column > UserColumn::KeyId)) {
        MenuRow = row;
    } else {
        return false;
    }
    if (Menue_Zeigen) {
        Menue_Zeigen(which);
    }
    return true;
}

void F5::FGK4_Kontext() {
    const int row = FGK4.Row;
    const int column = FGK4.Column;
    if (!Fenster.Enabled || row < UserGrid::FirstRow) {
        return;
    }
    Editor_Uebernehmen();
    FsRow = NoRow;
    const bool leftMenu = column == UserColumn::KeyId || column == UserColumn::Finger;
    Menue_Oeffnen(row, column, leftMenu ? MouseButton::Left : MouseButton::Right);
}

void F5::FGK4_KeyPress(int key) {
    const int row = FGK4.Row;
    const int column = FGK4.Column;
    if (!Fenster.Enabled || key == Key::Escape || row < UserGrid::FirstRow) {
        return;
    }
    Editor_Uebernehmen();
    if (key == Key::Tab) {
        if (column < LastTabColumn) {
            Auswahl.Go(row, column + 1);
        }
    } else if (key == Key::Delete && Taste_Loeschen()) {
        return;
    } else if (column == UserColumn::KeyId || (column == UserColumn::Finger && key == ' ')) {
        Menue_Oeffnen(row, column, MouseButton::Left);
    } else if (column > UserColumn::KeyId && (key == Key::Enter || key == ' ')) {
        const GridBlock block = Auswahl.Block();
        Block_Schalten();
        if (key == Key::Enter) {
            Auswahl.Go(std::min(block.Bottom + 1, UserGrid::LastRow), block.Left);
        }
    } else if (key != Key::Delete) {
        Editor_Oeffnen(key);
    }
}

void F5::Block_Schalten() {
    const GridBlock block = Auswahl.Block();
    Aendern(Word::StepMark, [&] {
        for (int row = block.Top; row <= block.Bottom; ++row) {
            for (int column = block.Left; column <= block.Right; ++column) {
                Marke_Schalten(FGK4, row, column);
            }
        }
    });
}

/// False where the key is none of the grid's.
bool F5::Taste_Loeschen() {
    const int column = FGK4.Column;
    if (column == UserColumn::Name) {
        MenuRow = FGK4.Row;
        Benutzer_Loeschen();
        return true;
    }
    const bool cleared = column == UserColumn::Code || column == UserColumn::KeyLabel ||
                         (column >= UserColumn::Finger && column <= LastClearedColumn);
    if (cleared) {
        Zellen_Leeren(column);
    }
    return cleared;
}

void F5::F5_Loeschen_Click() {
    if (!Fenster.Enabled || FGK4.Row < UserGrid::FirstRow) {
        return;
    }
    Editor_Uebernehmen();
    const int column = FGK4.Column;
    if (column == UserColumn::Name) {
        Benutzer_Loeschen();
    } else if (column == UserColumn::Code || column == UserColumn::KeyLabel ||
               (column >= FirstMarkOfMenu && column <= LastClearedColumn)) {
        Zellen_Leeren(column);
    }
}

/// The cells of the column in the selected rows. A picture stays.
void F5::Zellen_Leeren(int column) {
    Aendern(Word::StepDelete, [&] {
        for (const int row : Auswahl.Rows()) {
            if (UserGrid::IsLock(column)) {
                Marke_Setzen(FGK4, row, column, '-');
            } else {
                FGK4.SetText(row, column, "");
            }
        }
    });
}

void F5::Finger_Leeren(int row) {
    if (row >= UserGrid::FirstRow) {
        FGK4.SetText(row, UserColumn::FingerId, "");
        FGK4.SetPicture(row, UserColumn::Finger, FingerPicture::None);
    }
}

/// The mark of the last lock and the data of the key stay: what stands in them is written over when the row is used
/// again.
void F5::Benutzer_Loeschen() {
    Aendern(Word::StepDeleteUser, [&] {
        Finger_Leeren(MenuRow);
        for (const int row : Auswahl.Rows()) {
            Neu_Besetzen(row);
            Finger_Leeren(row);
            for (int column = UserColumn::Name; column <= LastClearedColumn; ++column) {
                if (UserGrid::IsLock(column)) {
                    Marke_Setzen(FGK4, row, column, '-');
                } else {
                    FGK4.SetText(row, column, "");
                }
            }
        }
        Sortieren();
    });
}

void F5::Key_loeschen_Click() {
    if (!Fenster.Enabled || FGK4.Row < UserGrid::FirstRow) {
        return;
    }
    if (kern.Meldung(kern.Zeile(Line::DeleteSelection), Buttons::OkCancel, Icon::Question, "Key") == Answer::Ok) {
        Zellen_Leeren(UserColumn::KeyId);
    }
}

/// The channel of a key is that of its row's number.
void F5::Farben_Erneuern() {
    F5_KanalFarben(kern, Tabelle);
}

} // namespace qvm
