#include "Befehle.h"
#include "DataLock.h"
#include "F5_Laden.h"
#include "Kern.h"
#include "Konfiguration.h"
#include "Suchtext.h"
#include "Text.h"
#include "Zeitgruppen.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <nlohmann/json.hpp>
#include <ostream>

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

/// How many characters a UTF-8 text has.
std::size_t Zeichen(const std::string& text) {
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char byte) { return (byte & 0xC0) != 0x80; }));
}

void Tabelle_Schreiben(std::ostream& out, const std::vector<Benutzer>& users) {
    std::vector<std::array<std::string, 8>> rows{{"User", "Name", "Group", "Right", "Label", "Key", "Finger", "Locks"}};
    for (const Benutzer& user : users) {
        rows.push_back({std::to_string(user.Number), user.Name, user.Group, user.Right, user.Label, user.Key,
                        user.Finger, std::to_string(user.Access.size() + user.Fingers.size())});
    }
    std::array<std::size_t, 8> widths{};
    for (const auto& row : rows) {
        for (std::size_t n = 0; n < row.size(); ++n) {
            widths[n] = std::max(widths[n], Zeichen(row[n]));
        }
    }
    for (const auto& row : rows) {
        for (std::size_t n = 0; n + 1 < row.size(); ++n) {
            out << row[n] << std::string(widths[n] - Zeichen(row[n]) + 2, ' ');
        }
        out << row.back() << "\n";
    }
}

} // namespace

ExitCode Befehl_Benutzer(const Umgebung& world, const Console& console, const Optionen& options) {
    if (const std::string why = world.Datenverzeichnis_Fehler(); !why.empty()) {
        return console.Fehlschlag("users", {why});
    }
    const DataLock lock(world.DatPfad(), DataLock::Use::Read);
    Sperre_Holen(lock, console);
    Kern kern(world.Welt);
    kern.AppPath = world.AppPath;
    UserTable table;
    table.GroupTablePerson = PersonGruppen_Vorgabe();
    if (!PersonGruppen_Laden(kern, table.GroupTablePerson) || !F5_TabelleLaden(kern, table)) {
        return console.Fehlschlag("users", {"The files of the users cannot be read; check names them."});
    }
    std::vector<Benutzer> users;
    for (int user = 1; user <= UserGrid::Users; ++user) {
        if (Benutzer found = Benutzer_Von(table, user); Gewollt(found, options)) {
            users.push_back(std::move(found));
        }
    }
    if (console.Json) {
        Json list = Json::array();
        for (const Benutzer& user : users) {
            list.push_back(Benutzer_Json(user));
        }
        console.Ergebnis({{"command", "users"}, {"ok", true}, {"exit", 0}, {"users", list}});
    } else if (users.empty()) {
        console.Out << "No users.\n";
    } else {
        Tabelle_Schreiben(console.Out, users);
    }
    return ExitCode::Good;
}

} // namespace qvm
