// What is handed over: the reports of the users as the window shows them.

#include "Berichte.h"
#include "F5.h"

namespace qvm {

void F5::F5_Bericht_Click(ReportKind kind, ReportWay way) {
    if (!Fenster.Enabled) {
        return;
    }
    Editor_Uebernehmen();
    Berichte.Ausgeben(kind, way);
}

std::optional<Report> F5::Bericht_Erstellen(ReportKind kind) const {
    if (Tabelle.LoadFailed) {
        return std::nullopt;
    }
    const int user = FGK4.Row - UserGrid::FirstRow + 1;
    switch (kind) {
    case ReportKind::Doors:
        return Bericht_Tueren(kern, Tabelle, user);
    case ReportKind::Receipt:
        return Bericht_Empfang(kern, Tabelle, user);
    default:
        return Bericht_Benutzer(kern, Tabelle);
    }
}

} // namespace qvm
