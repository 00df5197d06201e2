#include "F5_Laden.h"

#include "F5_Marken.h"
#include "GroupTable.h"
#include "Kern.h"
#include "LockRecords.h"
#include "Record.h"
#include "Text.h"
#include "UserRecords.h"

#include <algorithm>
#include <array>
#include <string>

namespace qvm {

namespace {

constexpr int HeadHeight = 2000, HeightPerCharacter = 200; // twips

/// Load knows eight groups, save seven: the eighth entry is always empty.
constexpr std::size_t GroupsAtLoad = 8;

/// The name, one character a line.
std::string Text_Strecken(std::string_view name) {
    std::string out;
    for (const char character : Trim(name)) {
        if (!out.empty()) {
            out += '\n';
        }
        out += character == ' ' ? '\n' : character;
    }
    return out;
}

/// Name of the group with this identifier; "-" when there is none. An empty identifier is never looked for: unused
/// entries are empty, too.
std::string Gruppenname(const GroupTable& groups, std::string_view id) {
    if (id.empty() || id == "-") {
        return "-";
    }
    for (std::size_t n = 1; n <= GroupsAtLoad; ++n) {
        if (Trim(groups[n].PbId) == id) {
            return groups[n].Name;
        }
    }
    return "-";
}

int Fingerbild(std::string_view flag, std::string_view fingerId) {
    if (fingerId.empty()) {
        return FingerPicture::None;
    }
    if (flag == "FS") {
        return fingerId.starts_with("PR") ? FingerPicture::Premium : FingerPicture::Standard;
    }
    return flag == "NO" ? FingerPicture::Off : FingerPicture::None;
}

/// Which locks have a name, from the first on.
using NamedLocks = std::array<bool, UserGrid::Locks>;

NamedLocks Benannte_Schloesser(const Grid& grid) {
    NamedLocks named{};
    for (std::size_t n = 0; n < named.size(); ++n) {
        named[n] = !grid.Text(0, UserGrid::ColumnOf(static_cast<int>(n) + 1)).empty();
    }
    return named;
}

void Marken_Laden(Grid& grid, const NamedLocks& named, int row, const std::string& mask) {
    for (std::size_t n = 0; n < named.size(); ++n) {
        Marke_Setzen(grid, row, UserGrid::ColumnOf(static_cast<int>(n) + 1), named[n] ? mask[n] : '-');
    }
}

void Benutzer_Laden(Grid& grid, const GroupTable& groups, const NamedLocks& named, int row, const std::string& record) {
    const std::string name = Feld_Lesen(record, UserRecord::UserName);
    const std::string fingerId = Feld_Lesen(record, UserRecord::FingerId);
    grid.SetText(row, UserColumn::Name, name);
    grid.SetText(row, UserColumn::Group, Gruppenname(groups, Feld_Lesen(record, UserRecord::UserGroupId)));
    grid.SetText(row, UserColumn::Right, Feld_Lesen(record, UserRecord::UserRight));
    grid.SetText(row, UserColumn::Code, Feld_Lesen(record, UserRecord::UserCode));
    grid.SetText(row, UserColumn::KeyLabel, Feld_Lesen(record, UserRecord::KeyLabel));
    grid.SetText(row, UserColumn::KeyId, Feld_Lesen(record, UserRecord::KeyId));
    grid.SetText(row, UserColumn::KeyData, Feld_Lesen(record, UserRecord::KeyData));
    grid.SetText(row, UserColumn::FingerId, fingerId);
    if (!name.empty()) {
        grid.SetPicture(row, UserColumn::Finger, Fingerbild(Feld_Lesen(record, UserRecord::FingerFlag), fingerId));
    }
    // The mask is taken raw: a blank in front is a lock's place.
    Marken_Laden(grid, named, row, Feld_Roh(record, UserRecord::LockMask));
}

/// A blank EKold means channel 1; a blank target means that no change is pending.
bool Schluessel_Nachzuegler(const RecordFile& channels, int user) {
    const std::string target = channels.Text(user, ChannelRecord::TargetChannel);
    const std::string old = channels.Text(user, ChannelRecord::EKold);
    return !target.empty() && Zahlwert(old.empty() ? "1" : old) != Zahlwert(target);
}

} // namespace

void Grup_Name(UserTable& table, int lock, std::string_view name) {
    if (lock < 1 || lock > UserGrid::Locks) {
        return;
    }
    const int column = UserGrid::ColumnOf(lock);
    Cell cell = table.FGK4.At(0, column);
    cell.Text = Text_Strecken(name);
    cell.FontSize = UserLook::PlainSize;
    cell.ForeColor = UserLook::LockName;
    table.FGK4.Set(0, column, cell);
}

std::string Schlossname(const Grid& users, int column) {
    // One character a line, a blank as an empty one.
    const std::string& upright = users.Text(0, column);
    std::string name;
    for (std::size_t n = 0; n < upright.size(); n += 2) {
        name += upright[n] == '\n' ? ' ' : upright[n];
    }
    return name;
}

int F5_KopfHoehe(const UserTable& table) {
    return std::max(HeadHeight, table.LongestLockName * HeightPerCharacter);
}

bool F5_SchloesserLaden(Kern& kern, UserTable& table) {
    RecordFile locks(LockRecord::Record);
    if (locks.Laden(kern.Welt.Files, kern.DatPfad()) == ReadStatus::Error) {
        table.LoadFailed = true;
        return false;
    }
    table.LongestLockName = 0;
    for (int lock = 1; lock <= UserGrid::Locks; ++lock) {
        const std::string name = locks.Text(lock, LockRecord::Name);
        table.LongestLockName = std::max(table.LongestLockName, static_cast<int>(name.size()));
        Grup_Name(table, lock, name);
    }
    return true;
}

bool F5_Laden(Kern& kern, UserTable& table) {
    RecordFile users(UserRecord::Record);
    const ReadStatus status = users.Laden(kern.Welt.Files, kern.DatPfad());
    if (status == ReadStatus::Error) {
        table.LoadFailed = true;
        return false;
    }
    if (status == ReadStatus::Missing) {
        return true;
    }
    const NamedLocks named = Benannte_Schloesser(table.FGK4);
    for (int user = 1; user <= UserGrid::Users; ++user) {
        Benutzer_Laden(table.FGK4, table.GroupTablePerson, named, UserGrid::RowOf(user), users.Record(user));
    }
    return true;
}

bool F5_KanalFarben(Kern& kern, UserTable& table) {
    RecordFile channels(ChannelRecord::Record);
    if (channels.Laden(kern.Welt.Files, kern.DatPfad()) == ReadStatus::Error) {
        return false;
    }
    for (int user = 1; user <= UserGrid::Users; ++user) {
        const int row = UserGrid::RowOf(user);
        const bool transponder = LTrim(table.FGK4.Text(row, UserColumn::KeyId)).starts_with('#');
        const bool late = !transponder && Schluessel_Nachzuegler(channels, user);
        table.FGK4.SetForeColor(row, UserColumn::KeyId, late ? UserLook::KeyOutOfStep : UserLook::KeyInStep);
    }
    return true;
}

bool F5_TabelleLaden(Kern& kern, UserTable& table) {
    table.LoadFailed = false;
    const bool locks = F5_SchloesserLaden(kern, table);
    const bool users = F5_Laden(kern, table);
    const bool colours = F5_KanalFarben(kern, table);
    return locks && users && colours;
}

} // namespace qvm
