// Taking a spreadsheet into the user table.

#include "Blattfrage.h"
#include "F5.h"
#include "F5_Import.h"

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
    const auto plan = Blattplan_Holen(kern, kern.Zeile(Line::UserManagement),
                                      [this](std::string_view bytes) { return F5_Blatt_Planen(kern, Tabelle, bytes); });
    if (plan) {
        Aendern(Word::StepImport, [&] { F5_Blatt_Anwenden(Tabelle, *plan); });
    }
}

} // namespace qvm
