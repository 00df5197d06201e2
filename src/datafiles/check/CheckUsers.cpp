#include "CheckStand.h"
#include "LockRecords.h"
#include "Modelle.h"
#include "Text.h"
#include "TimeRecords.h"
#include "UserRecords.h"

#include <algorithm>
#include <set>

namespace qvm {

namespace {

const RecordLayout& Users = UserRecord::Record;

std::string Name(const CheckStand& stand, int user) {
    return stand.Text(Users, user, UserRecord::UserName);
}

/// The identifiers of the person timer groups. The first two are the program's own, whatever the file holds.
std::set<std::string> Personengruppen(const CheckStand& stand) {
    std::set<std::string> ids{"PB_2008TimA", "PB_2008TimB"};
    for (int group = 3; group <= std::min(stand.Letzter(TimeGroup::Record), 7); ++group) {
        ids.insert(stand.Text(TimeGroup::Record, group, TimeGroup::PbId));
    }
    ids.erase("");
    return ids;
}

void Luecken_Pruefen(CheckStand& stand, int user, int last) {
    if (!Name(stand, user).empty()) {
        return;
    }
    if (user < last && !Name(stand, user + 1).empty()) {
        stand.Melden(FindingKind::Gap, Users, user, UserRecord::UserName.Name,
                     "has no name, but the next user has; the user window refuses to save this");
    }
    if (!stand.Text(Users, user, UserRecord::KeyId).empty()) {
        stand.Melden(FindingKind::Gap, Users, user, UserRecord::KeyId.Name, "there is a key, but no user's name");
    }
}

void Code_Pruefen(CheckStand& stand, int user) {
    const std::string code = stand.Text(Users, user, UserRecord::UserCode);
    if (code.empty()) {
        return;
    }
    const bool keypad =
        std::all_of(code.begin(), code.end(), [](char c) { return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z'); });
    if (!keypad) {
        stand.Melden(FindingKind::Range, Users, user, UserRecord::UserCode.Name,
                     "holds characters other than digits and capital letters");
    }
    if (code.size() < 6 || code.size() > 8) {
        stand.Melden(FindingKind::Range, Users, user, UserRecord::UserCode.Name, "has not 6 to 8 characters");
    }
}

void Doppelt(CheckStand& stand, DoubledTexts& seen, int user, const RecordField& field, bool quote) {
    const std::string text = stand.Text(Users, user, field);
    if (const auto first = seen.Sehen(text, user)) {
        stand.Melden(FindingKind::Doubled, Users, user, field.Name,
                     (quote ? Zitat(text) + " stands" : std::string("is the same as")) +
                         (quote ? " with user " : " that of user ") + std::to_string(*first) + (quote ? ", too" : ""));
    }
}

} // namespace

void Benutzer_Pruefen(CheckStand& stand) {
    const int last = stand.Letzter(Users);
    const std::set<std::string> groups = Personengruppen(stand);
    DoubledTexts names, codes, labels;
    for (int user = 1; user <= last; ++user) {
        Luecken_Pruefen(stand, user, last);
        if (Name(stand, user).empty()) {
            continue;
        }
        Doppelt(stand, names, user, UserRecord::UserName, true);
        Doppelt(stand, codes, user, UserRecord::UserCode, false);
        Doppelt(stand, labels, user, UserRecord::KeyLabel, true);
        Code_Pruefen(stand, user);
        const std::string group = stand.Text(Users, user, UserRecord::UserGroupId);
        if (!Leer_Oder(group, {"-"}) && !groups.contains(group)) {
            stand.Melden(FindingKind::Dangling, Users, user, UserRecord::UserGroupId.Name,
                         "there is no timer group " + Zitat(group));
        }
        const std::string right = stand.Text(Users, user, UserRecord::UserRight);
        if (!Leer_Oder(right, {"1", "0", "1/2", "1/3", "ADMI", "FS+"})) {
            stand.Melden(FindingKind::Range, Users, user, UserRecord::UserRight.Name,
                         "there is no right " + Zitat(right) + "; locks take it as \"1\"");
        }
    }
}

void Benutzer_Marken_Pruefen(CheckStand& stand) {
    constexpr int lastLock = LockRecord::Record.Last;
    std::vector<int> marked(lastLock + 1, 0);
    for (int user = 1; user <= stand.Letzter(Users); ++user) {
        if (Name(stand, user).empty()) {
            continue;
        }
        const std::string mask = Feld_Roh(stand.File(Users).Record(user), UserRecord::LockMask);
        const bool finger = !stand.Text(Users, user, UserRecord::FingerId).empty();
        for (int lock = 1; lock <= lastLock; ++lock) {
            const char mark = mask[static_cast<std::size_t>(lock) - 1];
            const std::string where = "the mark for lock " + std::to_string(lock);
            if (mark != 'X' && mark != 'F') {
                if (mark != '-' && mark != ' ' && mark != '\0') {
                    stand.Melden(FindingKind::Damaged, Users, user, UserRecord::LockMask.Name,
                                 where + " is neither \"X\", \"F\" nor \"-\"");
                }
                continue;
            }
            ++marked[static_cast<std::size_t>(lock)];
            if (stand.Text(LockRecord::Record, lock, LockRecord::Name).empty()) {
                stand.Melden(FindingKind::Dangling, Users, user, UserRecord::LockMask.Name,
                             where + " is set, but that lock has no name");
            }
            if (mark == 'F' && !finger) {
                stand.Melden(FindingKind::Dangling, Users, user, UserRecord::LockMask.Name,
                             where + " is \"F\", but the user has no finger");
            }
        }
    }
    for (int lock = 1; lock <= lastLock; ++lock) {
        const SerialText serial = Seriennummer(stand, LockRecord::Record, lock, LockRecord::Sn1, LockRecord::Sn2,
                                               LockRecord::Sn3, LockRecord::Sn4);
        const int count = marked[static_cast<std::size_t>(lock)];
        if (serial.Good && count > MaxUserAnz(serial.Value)) {
            stand.Melden(FindingKind::Range, LockRecord::Record, lock, "",
                         std::to_string(count) + " users are marked, the lock holds " +
                             std::to_string(MaxUserAnz(serial.Value)));
        }
    }
}

} // namespace qvm
