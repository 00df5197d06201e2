// Commands on the whole table, and what is tinted in it.

#include "CsvAusgabe.h"
#include "F5.h"
#include "F5_Csv.h"
#include "F5_Marken.h"
#include "F5_Sortieren.h"
#include "Fragen.h"
#include "Secret.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

namespace qvm {
namespace {

constexpr int SlowTrackInterval = 800; // ms
constexpr Colour RowHead = 0xE0E0E0, ColumnHead = 0xDCDCDC;
constexpr Colour HitInk = 0xFF0000;

} // namespace

void F5::F5_Sort_Click() {
    if (!Fenster.Enabled) {
        return;
    }
    Editor_Uebernehmen();
    Aendern(Word::StepSort, [this] { Sortieren(); });
}

/// Who stands in a row goes along with it; the channel of a key does not.
void F5::Sortieren() {
    const std::array before = who_;
    const std::vector<int> from = F5_Sortieren(FGK4);
    std::transform(from.begin(), from.end(), who_.begin(),
                   [&before](int row) { return before[static_cast<std::size_t>(row)]; });
    Farben_Erneuern();
}

void F5::F5_Search_Click() {
    if (!Fenster.Enabled || !F16_Oeffnen) {
        return;
    }
    Editor_Uebernehmen();
    F16_Oeffnen();
}

void F5::Neu() {
    if (!Verlust_Hinnehmen(kern, kern.Zeile(Line::DeleteAllEntries))) {
        return;
    }
    Aendern(Word::StepClear, [this] {
        for (int row = UserGrid::FirstRow; row <= UserGrid::LastRow; ++row) {
            for (int column = UserColumn::Name; column < FGK4.Columns(); ++column) {
                FGK4.SetText(row, column, "");
            }
            for (int lock = 1; lock <= UserGrid::Locks; ++lock) {
                Marke_Setzen(FGK4, row, UserGrid::ColumnOf(lock), '-');
            }
            FGK4.SetPicture(row, UserColumn::Finger, FingerPicture::None);
        }
        Alle_Neu_Besetzen();
        Farben_Erneuern();
    });
    Tabelle.UserDirty = true;
    Auswahl.Go(UserGrid::FirstRow, UserColumn::Name);
}

void F5::Csv_Schreiben() {
    std::string text = F5_CsvText(FGK4); // with all codes
    const Wiper wipeText(text);
    Csv_Ausgeben(kern, Label1.Text(), kern.Zeile(Line::UserManagement), text);
}

void F5::F5_M5ON_Click() {
    Timer1.Start(TintInterval);
    Timer2.Start(SlowTrackInterval);
}

void F5::F5_M5_OFF_Click() {
    Timer1.Stop();
    Timer2.Stop();
    Kreuz_Loeschen();
    mouse_ = {};
}

void F5::Maus_Verfolgen() {
    Place seen;
    if (Maus_Zelle && Maus_Zelle(seen.Row, seen.Column) && FGK4.Holds(seen.Row, seen.Column)) {
        mouse_ = seen;
    }
}

void F5::Kreuz_Zeichnen() {
    if (mouse_ == cross_ || mouse_.Row < UserGrid::FirstRow || mouse_.Column < FixedCols) {
        return;
    }
    Kreuz_Loeschen();
    cross_ = mouse_;
    FGK4.SetBackColor(cross_.Row, UserColumn::Number, RowHead);
    FGK4.SetBackColor(1, cross_.Column, ColumnHead);
}

void F5::Kreuz_Loeschen() {
    if (cross_.Row > 0) {
        FGK4.SetBackColor(cross_.Row, UserColumn::Number, White);
        FGK4.SetBackColor(1, cross_.Column, White);
    }
    cross_ = {};
}

void F5::Treffer_Zeigen(int row, int column, Colour ground) {
    Treffer_Loeschen();
    if (row < UserGrid::FirstRow || !FGK4.Holds(row, column)) {
        return;
    }
    hit_ = {row, column};
    hitInk_ = FGK4.At(row, column).ForeColor;
    FGK4.SetBackColor(row, column, ground);
    FGK4.SetForeColor(row, column, HitInk);
}

void F5::Treffer_Melden(int row) {
    kern.Meldung(kern.Zeile(Line::Number) + " " + FGK4.Text(row, UserColumn::Number) + "\r\n" + kern.Zeile(Line::User) +
                     ": " + FGK4.Text(row, UserColumn::Name),
                 Buttons::Ok, Icon::Information);
}

void F5::Treffer_Loeschen() {
    if (hit_.Row > 0) {
        FGK4.SetBackColor(hit_.Row, hit_.Column, White);
        FGK4.SetForeColor(hit_.Row, hit_.Column, hitInk_);
    }
    hit_ = {};
}

} // namespace qvm
