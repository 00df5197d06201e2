// What is handed over: who has which of the locks that the window shows.

#include "Berichte.h"
#include "F12.h"
#include "F5_Laden.h"
#include "Zeitgruppen.h"

namespace qvm {

void F12::F12_Bericht_Click(ReportKind kind, ReportWay way) {
    if (!Fenster.Enabled) {
        return;
    }
    Editor_Uebernehmen();
    Berichte.Ausgeben(kind, way);
}

std::optional<Report> F12::Bericht_Erstellen(ReportKind kind) const {
    UserTable users;
    users.GroupTablePerson = PersonGruppen_Vorgabe();
    if (Tabelle.LoadFailed || !PersonGruppen_Laden(kern, users.GroupTablePerson)) {
        return std::nullopt;
    }
    // The names must stand: a mark for a lock without one is dropped.
    for (int lock = LockGrid::FirstRow; lock <= LockGrid::LastRow; ++lock) {
        Grup_Name(users, lock, FGK12.Text(lock, LockColumn::Name));
    }
    if (!F5_Laden(kern, users)) {
        return std::nullopt;
    }
    return kind == ReportKind::Persons
               ? Bericht_Personen(kern, users, FGK12.Row, Trim(FGK12.Text(FGK12.Row, LockColumn::Name)))
               : Bericht_Benutzer(kern, users);
}

} // namespace qvm
