// Taking a spreadsheet into the lock table.

#include "Blattfrage.h"
#include "F12.h"
#include "F12_Import.h"
#include "Kanal.h"

#include <algorithm>

namespace qvm {

void F12::F12_Import_Click() {
    if (!Fenster.Enabled) {
        return;
    }
    Editor_Uebernehmen();
    if (Tabelle.LoadFailed) {
        kern.Meldung(Wort(kern, Word::LocksIncomplete), Buttons::Ok, Icon::Exclamation);
        return;
    }
    const auto plan = Blattplan_Holen(kern, kern.Zeile(Line::Settings), [this](std::string_view bytes) {
        return F12_Blatt_Planen(kern, Tabelle, bytes);
    });
    if (!plan) {
        return;
    }
    // A lock may be another one afterwards: it is noted at once that its channel is to be changed.
    const std::vector<int> serials = F12_Blatt_Serien(*plan);
    if (!std::all_of(serials.begin(), serials.end(), [this](int row) { return Kanal_Offen(kern, row); })) {
        kern.Meldung(Wort(kern, Word::LockChannelUnsaved), Buttons::Ok, Icon::Exclamation);
        return;
    }
    Aendern(Word::StepImport, [&] {
        F12_Blatt_Anwenden(Tabelle, *plan);
        if (!serials.empty()) {
            Verlauf.Keep(Word::LockChannelStays);
        }
    });
}

} // namespace qvm
