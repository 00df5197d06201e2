#include "F5_Speichern.h"

#include "GroupTable.h"
#include "Kern.h"
#include "Record.h"
#include "Text.h"
#include "UserRecords.h"

#include <string_view>

namespace qvm {

namespace {

/// Groups of the table, the two fixed ones included. Load looks at one entry more.
constexpr std::size_t GroupsAtSave = 7;

/// Identifier of the group with this name; "-" when there is none. An empty name is never looked for.
std::string Gruppenkennung(const GroupTable& groups, std::string_view name) {
    if (name.empty()) {
        return "-";
    }
    for (std::size_t n = 1; n <= GroupsAtSave; ++n) {
        if (Trim(groups[n].Name) == name) {
            return groups[n].PbId.empty() ? "-" : groups[n].PbId;
        }
    }
    return "-";
}

std::string_view Fingerkennzeichen(int picture) {
    if (picture == FingerPicture::Off) {
        return "NO";
    }
    return picture == FingerPicture::Standard || picture == FingerPicture::Premium ? "FS" : "--";
}

char Marke(const Cell& cell) {
    const std::string_view text = Trim(cell.Text);
    if (text == "X") {
        return 'X';
    }
    return text == "F" && cell.ForeColor == UserLook::MarkFinger ? 'F' : '-';
}

std::string Schlossmaske(const Grid& grid, int row) {
    std::string mask;
    mask.reserve(UserGrid::Locks);
    for (int lock = 1; lock <= UserGrid::Locks; ++lock) {
        mask += Marke(grid.At(row, UserGrid::ColumnOf(lock)));
    }
    return mask;
}

bool Zeile_Fehlerhaft(const Grid& grid, int row) {
    const bool named = !RTrim(grid.Text(row, UserColumn::Name)).empty();
    const bool nextNamed = !Trim(grid.Text(row + 1, UserColumn::Name)).empty();
    const bool key = !Trim(grid.Text(row, UserColumn::KeyId)).empty();
    return !named && (nextNamed || key);
}

} // namespace

bool F5_Pruefen(Kern& kern, const UserTable& table) {
    for (int row = UserGrid::FirstRow; row < UserGrid::LastRow; ++row) {
        if (Zeile_Fehlerhaft(table.FGK4, row)) {
            kern.Meldung(kern.Zeile(Line::CannotSave) + "\n" + kern.Zeile(Line::EntryInvalid) + "\n [" +
                             kern.Zeile(Line::Name) + " - " + kern.Zeile(Line::UserNumber) + " " + Ziffern(row - 1) +
                             "]",
                         Buttons::Ok, Icon::Exclamation);
            return false;
        }
    }
    return true;
}

std::string F5_Satz(const UserTable& table, int row) {
    const Grid& grid = table.FGK4;
    std::string record;
    record.reserve(UserRecord::Record.Length);
    const auto write = [&](const RecordField& field, int column) {
        Feld_Schreiben(record, field, RTrim(grid.Text(row, column)));
    };
    write(UserRecord::UserName, UserColumn::Name);
    Feld_Schreiben(record, UserRecord::UserGroupId,
                   Gruppenkennung(table.GroupTablePerson, Trim(grid.Text(row, UserColumn::Group))));
    write(UserRecord::UserRight, UserColumn::Right);
    write(UserRecord::UserCode, UserColumn::Code);
    write(UserRecord::KeyLabel, UserColumn::KeyLabel);
    write(UserRecord::KeyId, UserColumn::KeyId);
    write(UserRecord::KeyData, UserColumn::KeyData);
    Feld_Schreiben(record, UserRecord::FingerFlag, Fingerkennzeichen(grid.At(row, UserColumn::Finger).Picture));
    write(UserRecord::FingerId, UserColumn::FingerId);
    Feld_Schreiben(record, UserRecord::LockMask, Schlossmaske(grid, row));
    return record;
}

bool F5_Speichern(Kern& kern, UserTable& table) {
    if (!F5_Pruefen(kern, table) || table.LoadFailed) {
        return false;
    }
    RecordFile users(UserRecord::Record);
    if (users.Laden(kern.Welt.Files, kern.DatPfad()) == ReadStatus::Error) {
        return false;
    }
    for (int user = 1; user <= UserGrid::Users; ++user) {
        users.SetRecord(user, F5_Satz(table, UserGrid::RowOf(user)));
    }
    if (!users.Speichern(kern.Welt.Files, kern.DatPfad())) {
        return false;
    }
    table.UserDirty = false;
    return true;
}

} // namespace qvm
