#include "Befehle.h"
#include "F5_Laden.h"
#include "Kern.h"
#include "Liste.h"
#include "Suchtext.h"
#include "Text.h"
#include "Zeitgruppen.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace qvm {

namespace {

using Json = nlohmann::ordered_json;

/// What of a user is told: neither code nor identifications.
struct Benutzer {
    int Number = 0;
    std::string Name, Group, Right, Label; ///< UTF-8
    std::string Key;                       ///< "E-Key", "transponder" or empty
    std::string Finger;                    ///< "standard", "premium", "off" or empty
    std::vector<int> Access, Fingers;      ///< locks with the one mark, and with the other
};

std::string Text_Von(const UserTable& table, int row, int column) {
    return Anzeige_Aus_1252(Trim(table.FGK4.Text(row, column)));
}

std::string Fingerart(int picture) {
    switch (picture) {
    case FingerPicture::Standard:
        return "standard";
    case FingerPicture::Premium:
        return "premium";
    case FingerPicture::Off:
        return "off";
    default:
        return {};
    }
}

Benutzer Benutzer_Von(const UserTable& table, int user) {
    const int row = UserGrid::RowOf(user);
    const std::string key = Text_Von(table, row, UserColumn::KeyId);
    Benutzer told{.Number = user,
                  .Name = Text_Von(table, row, UserColumn::Name),
                  .Group = Text_Von(table, row, UserColumn::Group),
                  .Right = Text_Von(table, row, UserColumn::Right),
                  .Label = Text_Von(table, row, UserColumn::KeyLabel),
                  .Key = key.empty()            ? ""
                         : key.starts_with('#') ? "transponder"
                                                : "E-Key",
                  .Finger = Fingerart(table.FGK4.At(row, UserColumn::Finger).Picture),
                  .Access = {},
                  .Fingers = {}};
    for (int lock = 1; lock <= UserGrid::Locks; ++lock) {
        const Cell& mark = table.FGK4.At(row, UserGrid::ColumnOf(lock));
        if (mark.Text == "X" && mark.ForeColor == UserLook::MarkAccess) {
            told.Access.push_back(lock);
        } else if (mark.Text == "F" && mark.ForeColor == UserLook::MarkFinger) {
            told.Fingers.push_back(lock);
        }
    }
    return told;
}

bool Gewollt(const Benutzer& user, const Optionen& options) {
    const auto marked = [&](const std::vector<int>& locks) {
        return std::find(locks.begin(), locks.end(), options.Lock) != locks.end();
    };
    return !user.Name.empty() && Text_Enthaelt(AusUtf8(user.Name), AusUtf8(options.Find)) &&
           (options.Lock == 0 || marked(user.Access) || marked(user.Fingers));
}

Json Benutzer_Json(const Benutzer& user) {
    return {{"user", user.Number},   {"name", user.Name},    {"group", user.Group},
            {"right", user.Right},   {"label", user.Label},  {"key", user.Key},
            {"finger", user.Finger}, {"locks", user.Access}, {"fingerLocks", user.Fingers}};
}

std::vector<std::string> Zeile(const Benutzer& user) {
    return {std::to_string(user.Number),
            user.Name,
            user.Group,
            user.Right,
            user.Label,
            user.Key,
            user.Finger,
            std::to_string(user.Access.size() + user.Fingers.size())};
}

} // namespace

ExitCode Befehl_Benutzer(const Umgebung& world, const Console& console, const Optionen& options) {
    return Liste_Ausgeben(world, console, "users", "the users", [&](Kern& kern, Liste& list) {
        UserTable table;
        table.GroupTablePerson = PersonGruppen_Vorgabe();
        if (!PersonGruppen_Laden(kern, table.GroupTablePerson) || !F5_TabelleLaden(kern, table)) {
            return false;
        }
        list.Rows = {{"User", "Name", "Group", "Right", "Label", "Key", "Finger", "Locks"}};
        for (int number = 1; number <= UserGrid::Users; ++number) {
            if (const Benutzer user = Benutzer_Von(table, number); Gewollt(user, options)) {
                list.Rows.push_back(Zeile(user));
                list.Records.push_back(Benutzer_Json(user));
            }
        }
        return true;
    });
}

} // namespace qvm
