// A spreadsheet of users or locks into the data files.

#include "Befehle.h"
#include "Blattplan.h"
#include "Dateisatz.h"
#include "F12_Import.h"
#include "F12_Laden.h"
#include "F12_Speichern.h"
#include "F5_Import.h"
#include "F5_Laden.h"
#include "F5_Speichern.h"
#include "Kanal.h"
#include "Kern.h"
#include "Secret.h"
#include "Text.h"
#include "UserRecords.h"
#include "Zeitgruppen.h"

#include <algorithm>
#include <limits>
#include <nlohmann/json.hpp>
#include <ostream>

namespace qvm {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::string_view TableLanguage = "English";

/// A table of the data files, with the sheet that is to be taken into it.
class Tabellenimport {
public:
    Tabellenimport(Kern& kern, std::string_view bytes)
        : kern_(kern), bytes_(bytes),
          locks_(Blatt_Treffer(bytes, F12_Blattspalten(kern)) > Blatt_Treffer(bytes, F5_Blattspalten(kern))) {}

    bool Schloesser() const { return locks_; }
    std::string_view Of() const { return locks_ ? "locks" : "users"; }

    bool Laden() {
        if (locks_) {
            return F12_Laden(kern_, lockTable_, {});
        }
        userTable_.GroupTablePerson = PersonGruppen_Vorgabe();
        return PersonGruppen_Laden(kern_, userTable_.GroupTablePerson) && F5_TabelleLaden(kern_, userTable_);
    }

    Blattplan Planen() const {
        return locks_ ? F12_Blatt_Planen(kern_, lockTable_, bytes_) : F5_Blatt_Planen(kern_, userTable_, bytes_);
    }

    /// All files or none.
    bool Schreiben(const Blattplan& plan) { return locks_ ? Schloesser_Schreiben(plan) : Benutzer_Schreiben(plan); }

    /// Number of the user or lock in a row of the table.
    int Nummer(int row) const { return locks_ || row == 0 ? row : row - 1; }

private:
    bool Benutzer_Schreiben(const Blattplan& plan) {
        F5_Blatt_Anwenden(userTable_, plan);
        const bool saved = F5_Speichern(kern_, userTable_);
        for (const int column : {UserColumn::Code, UserColumn::KeyId, UserColumn::KeyData}) {
            userTable_.FGK4.Spalte_Vergessen(column);
        }
        return saved;
    }

    bool Schloesser_Schreiben(const Blattplan& plan) {
        const FileStore& files = kern_.Welt.Files;
        const Dateistand channels = Datei_Merken(files, kern_.DatPfad() + std::string(ChannelRecord::Record.File));
        const std::vector<int> serials = F12_Blatt_Serien(plan);
        F12_Blatt_Anwenden(lockTable_, plan);
        // A lock with another serial number must change its channel.
        const bool saved =
            std::all_of(serials.begin(), serials.end(), [this](int lock) { return Kanal_Offen(kern_, lock); }) &&
            F12_Speichern(kern_, lockTable_);
        if (!saved && !serials.empty()) {
            Datei_Zuruecknehmen(files, channels);
        }
        return saved;
    }

    Kern& kern_;
    std::string_view bytes_;
    bool locks_;
    UserTable userTable_;
    LockTable lockTable_;
};

std::string_view Schrittart(Blattart kind) {
    return kind == Blattart::Added ? "added" : kind == Blattart::Changed ? "changed" : "refused";
}

Json Schritt_Json(const Blattschritt& step, const Tabellenimport& table) {
    Json document{{"kind", Schrittart(step.Kind)}, {"line", step.Line}, {"name", NachUtf8(step.Who)}};
    if (step.Row > 0) {
        document["number"] = table.Nummer(step.Row);
    }
    if (step.Column > 0) {
        document["column"] = NachUtf8(step.Heading);
        document["new"] = NachUtf8(step.New);
    }
    if (step.Kind == Blattart::Changed) {
        document["old"] = NachUtf8(step.Old);
    }
    if (step.Why) {
        document["why"] = NachUtf8(Wort(*step.Why, TableLanguage));
    }
    return document;
}

Json Texte_Json(const std::vector<std::string>& texts) {
    Json list = Json::array();
    for (const std::string& text : texts) {
        list.push_back(NachUtf8(text));
    }
    return list;
}

void Plan_Ausgeben(const Console& console, const Tabellenimport& table, const Blattplan& plan, bool written) {
    if (!console.Json) {
        for (const std::string& line : Blattplan_Texte(plan, TableLanguage, std::numeric_limits<std::size_t>::max())) {
            console.Out << Anzeige_Aus_1252(line) << "\n";
        }
        return;
    }
    Json steps = Json::array();
    for (const Blattschritt& step : plan.Steps) {
        steps.push_back(Schritt_Json(step, table));
    }
    console.Ergebnis({{"command", "import"},
                      {"ok", plan.Count(Blattart::Refused) == 0},
                      {"table", table.Of()},
                      {"written", written},
                      {"added", plan.Count(Blattart::Added)},
                      {"changed", plan.ChangedRows()},
                      {"refused", plan.Count(Blattart::Refused)},
                      {"removed", 0},
                      {"missing", Texte_Json(plan.Missing)},
                      {"left", Texte_Json(plan.Left)},
                      {"steps", steps}});
}

/// The plan of the sheet, and unless it is only to be shown, what it changes on the disk.
ExitCode Tabelle_Einlesen(const Console& console, Tabellenimport& table, bool dryRun, const std::string& asked) {
    if (!table.Laden()) {
        return console.Fehlschlag("import", {"The files of the " + std::string(table.Of()) +
                                             " cannot be read; check names them. Nothing was written."});
    }
    const Blattplan plan = table.Planen();
    if (plan.Fault) {
        return console.Fehlschlag("import",
                                  {NachUtf8(Blattmangel_Text(plan, TableLanguage)) + " Nothing was written."});
    }
    const bool refused = plan.Count(Blattart::Refused) > 0;
    const bool write = !dryRun && !refused && plan.Changes();
    if (write && !table.Schreiben(plan)) {
        return console.Fehlschlag("import", {"The files of the " + std::string(table.Of()) +
                                             " could not be written, and are as they were." + NachUtf8(asked)});
    }
    Plan_Ausgeben(console, table, plan, write);
    console.Meldung(refused   ? "Something is refused. Nothing was written."
                    : write   ? "Written."
                    : !dryRun ? "The file changes nothing. Nothing was written."
                              : "Only shown. Nothing was written.");
    return refused ? ExitCode::Fault : ExitCode::Good;
}

} // namespace

ExitCode Befehl_Tabelle(const Umgebung& world, const Console& console, const Optionen& options) {
    std::string bytes;
    if (const std::string why = Eingabe_Lesen(world, options.File, bytes); !why.empty()) {
        return console.Fehlschlag("import", {why});
    }
    const Wiper wipeBytes(bytes); // an export of the users holds all codes
    if (const std::string why = world.Datenverzeichnis_Fehler(); !why.empty()) {
        return console.Fehlschlag("import", {why});
    }
    if (const std::string why = options.DryRun ? std::string() : world.Daten_Beanspruchen(); !why.empty()) {
        return console.Fehlschlag("import", {why});
    }
    const DataLock lock(world.DatPfad(), options.DryRun ? DataLock::Use::Read : DataLock::Use::Replace);
    Sperre_Holen(lock, console);
    // What a save would ask in a window is part of the message here.
    std::string asked;
    Platform quiet = world.Welt;
    quiet.ShowMessage = [&asked](const Message& message) {
        asked += " " + message.Text;
        return Answer::Ok;
    };
    Kern kern(quiet);
    kern.AppPath = world.AppPath;
    Tabellenimport table(kern, bytes);
    return Tabelle_Einlesen(console, table, options.DryRun, asked);
}

} // namespace qvm
