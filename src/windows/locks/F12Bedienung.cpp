// Mouse and keyboard on the grid, and what they do to switches.

#include "F12.h"
#include "Filter.h"

namespace qvm {
namespace {

constexpr int StillColumn = 7;  ///< at it and behind it Tab does not move
constexpr int SilentColumn = 6; ///< takes no key but the space bar
constexpr int HiddenColumn = 3; ///< Tab passes over it

bool Schaltbar(int column) {
    return LockColumn::IstSchalter(column) || column == LockColumn::Emi;
}

} // namespace

void F12::FGK12_MouseUp(MouseButton button, int row, int column) {
    if (!Fenster.Enabled) {
        return;
    }
    Editor_Uebernehmen();
    if (OpenColumn != 0 || row < LockGrid::FirstRow || !FGK12.Holds(row, column)) {
        return;
    }
    const bool inBlock = FGK12.Row >= LockGrid::FirstRow && Auswahl.Larger() && Auswahl.Holds(row, column);
    if (inBlock) {
        Auswahl.Within(row, column);
    } else {
        Auswahl.Go(row, column);
    }
    const bool menu = Menue_Oeffnen(column, button);
    if (!menu && !inBlock && button == MouseButton::Left && Schaltbar(column)) {
        Aendern(Word::StepSwitch, [&] { Zelle_Schalten(row, column); });
    }
}

void F12::FGK12_DblClick(int row, int column) {
    if (!Fenster.Enabled) {
        return;
    }
    Editor_Uebernehmen();
    if (OpenColumn == 0 && row >= LockGrid::FirstRow && FGK12.Holds(row, column)) {
        Auswahl.Go(row, column);
        Editor_Oeffnen(Key::Enter);
    }
}

/// The menu that the button opens on the current cell, if there is one.
bool F12::Menue_Oeffnen(int column, MouseButton button) {
    const bool serial = button == MouseButton::Left && column == LockColumn::Serial;
    const bool name = button == MouseButton::Right && column == LockColumn::Name;
    if ((serial || name) && Menue_Zeigen) {
        Menue_Zeigen(serial ? F12Menu::FGK12_AN : F12Menu::F12_del);
    }
    return serial || name;
}

void F12::FGK12_Kontext() {
    if (!Fenster.Enabled || FGK12.Row < LockGrid::FirstRow) {
        return;
    }
    Editor_Uebernehmen();
    if (OpenColumn == 0) {
        Menue_Oeffnen(FGK12.Column, FGK12.Column == LockColumn::Serial ? MouseButton::Left : MouseButton::Right);
    }
}

void F12::FGK12_KeyPress(int key) {
    const int row = FGK12.Row;
    const int column = FGK12.Column;
    if (!Fenster.Enabled || key == Key::Escape || row < LockGrid::FirstRow) {
        return;
    }
    Editor_Uebernehmen();
    if (OpenColumn != 0) {
        return; // a name is still to be put right
    }
    if (key == ' ' && Schaltbar(column)) {
        Block_Schalten();
    } else if (column == SilentColumn) {
        return;
    } else if (key == Key::Tab) {
        if (column < StillColumn) {
            Auswahl.Go(row, column + 1 == HiddenColumn ? column + 2 : column + 1);
        }
    } else if (column == LockColumn::Name || key == Key::Enter || SN_ASCII_FILTER(key) != 0) {
        Schaltbar(column) ? Block_Schalten() : Editor_Oeffnen(key);
    }
}

void F12::Block_Schalten() {
    const GridBlock block = Auswahl.Block();
    Aendern(Word::StepSwitch, [&] {
        for (int row = block.Top; row <= block.Bottom; ++row) {
            for (int column = block.Left; column <= block.Right; ++column) {
                Zelle_Schalten(row, column);
            }
        }
    });
}

/// A lock without an EMI setting has none to toggle.
void F12::Zelle_Schalten(int row, int column) {
    const int picture = FGK12.At(row, column).Picture;
    if (Schaltbar(column) && picture != LockPicture::NotApplicable) {
        FGK12.SetPicture(row, column, picture == LockPicture::On ? LockPicture::Off : LockPicture::On);
    }
}

void F12::Maus_Verfolgen() {
    int row = 0;
    int column = 0;
    if (Maus_Zelle && Maus_Zelle(row, column) && FGK12.Holds(row, column)) {
        mouseRow_ = row;
    }
}

void F12::Zeile_Toenen() {
    if (mouseRow_ == tintedRow_ || mouseRow_ < LockGrid::FirstRow) {
        return;
    }
    Toenung_Loeschen();
    tintedRow_ = mouseRow_;
    constexpr Colour RowHead = 0xE0E0E0;
    FGK12.SetBackColor(tintedRow_, LockColumn::Number, RowHead);
}

void F12::Toenung_Loeschen() {
    if (tintedRow_ > 0) {
        FGK12.SetBackColor(tintedRow_, LockColumn::Number, White);
    }
    tintedRow_ = 0;
}

void F12::F12_COURon_Click() {
    Timer1.Start(TintInterval);
    Timer2.Start();
}

void F12::F12_COURoff_Click() {
    Timer1.Stop();
    Timer2.Stop();
    Toenung_Loeschen();
    mouseRow_ = 0;
}

} // namespace qvm
