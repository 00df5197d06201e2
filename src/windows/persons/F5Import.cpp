// Taking a spreadsheet into the user table.

#include "Blattfrage.h"
#include "F5.h"
#include "F5_Import.h"
#include "Secret.h"

namespace qvm {

void F5::F5_Import_Click() {
    if (!Fenster.Enabled) {
        return;
    }
    Editor_Uebernehmen();
    if (Tabelle.LoadFailed) {
        kern.Meldung(Wort(kern, Word::UsersIncomplete), Buttons::Ok, Icon::Exclamation);
        return;
    }
    auto bytes = Blatt_Oeffnen(kern, kern.Zeile(Line::UserManagement));
    if (!bytes) {
        return;
    }
    const Wiper wipeBytes(*bytes); // an export holds all codes
    const Blattplan plan = F5_Blatt_Planen(kern, Tabelle, *bytes);
    if (Blattplan_Fragen(kern, plan)) {
        Aendern(Word::StepImport, [&] { F5_Blatt_Anwenden(Tabelle, plan); });
    }
}

} // namespace qvm
