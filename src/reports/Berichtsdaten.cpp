#include "Berichtsdaten.h"

#include "F5_Laden.h"
#include "Text.h"

#include <string_view>
#include <utility>

namespace qvm {
namespace {

/// Transponders are told by it.
constexpr char TransponderSign = '#';

std::string Zelltext(const UserTable& table, int user, int column) {
    return std::string(Trim(table.FGK4.Text(UserGrid::RowOf(user), column)));
}

/// A mark is one in its own colour only.
bool Ist_Marke(const Cell& cell, std::string_view text, Colour colour) {
    return cell.Text == text && cell.ForeColor == colour;
}

std::vector<ReportLock> Schloesser(const UserTable& table, int user) {
    std::vector<ReportLock> locks;
    for (int lock = 1; lock <= UserGrid::Locks; ++lock) {
        const int column = UserGrid::ColumnOf(lock);
        const Cell& mark = table.FGK4.At(UserGrid::RowOf(user), column);
        const bool finger = Ist_Marke(mark, "F", UserLook::MarkFinger);
        if (finger || Ist_Marke(mark, "X", UserLook::MarkAccess)) {
            locks.push_back({.Number = lock, .Name = Schlossname(table.FGK4, column), .ByFinger = finger});
        }
    }
    return locks;
}

ReportKey Schluesselart(const std::string& identification) {
    return identification.empty()                      ? ReportKey::None
           : identification.front() == TransponderSign ? ReportKey::Transponder
                                                       : ReportKey::EKey;
}

} // namespace

ReportUser Berichtsbenutzer(const UserTable& table, int user) {
    ReportUser told{.Number = user,
                    .Name = Zelltext(table, user, UserColumn::Name),
                    .Group = Zelltext(table, user, UserColumn::Group),
                    .Right = Zelltext(table, user, UserColumn::Right),
                    .Key = Schluesselart(Zelltext(table, user, UserColumn::KeyId)),
                    .KeyLabel = {},
                    .HasCode = !Zelltext(table, user, UserColumn::Code).empty(),
                    .Locks = Schloesser(table, user)};
    // Without a key it is the slot of a finger.
    if (told.Key != ReportKey::None) {
        told.KeyLabel = Zelltext(table, user, UserColumn::KeyLabel);
    }
    return told;
}

std::vector<ReportUser> Berichtsbenutzer(const UserTable& table) {
    std::vector<ReportUser> users;
    for (int user = 1; user <= UserGrid::Users; ++user) {
        if (ReportUser told = Berichtsbenutzer(table, user); !told.Name.empty()) {
            users.push_back(std::move(told));
        }
    }
    return users;
}

} // namespace qvm
