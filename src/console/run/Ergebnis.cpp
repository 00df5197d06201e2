#include "Ergebnis.h"

#include "Ereignisse.h"

#include <algorithm>
#include <iomanip>
#include <nlohmann/json.hpp>
#include <ostream>

namespace qvm {

namespace {

using Json = nlohmann::ordered_json;

std::string_view Unit_Wort(const LockResult::Unit& unit) {
    switch (unit.End) {
    case UnitReport::State::Done:
        return "done";
    case UnitReport::State::Failed:
        return unit.Refused ? "refused" : "failed";
    case UnitReport::State::BrokenOff:
        return "broken-off";
    case UnitReport::State::Untried:
        break;
    }
    return "untried";
}

/// How far the session came, for programs.
std::string_view Unit_Stufe(UnitStage stage) {
    switch (stage) {
    case UnitStage::LoggedIn:
        return "logged-in";
    case UnitStage::ChangeSent:
        return "change-sent";
    case UnitStage::Changed:
        return "changed";
    case UnitStage::None:
        break;
    }
    return "none";
}

/// The same for people; nothing for a unit whose result says it all.
std::string Unit_Verbleib(const LockResult::Unit& unit) {
    const bool open = unit.End == UnitReport::State::BrokenOff || unit.End == UnitReport::State::Failed;
    if (!open || unit.Refused) {
        return {};
    }
    switch (unit.Progress.Stage) {
    case UnitStage::LoggedIn:
        return unit.Scanner ? ": logged in, nothing erased" : ": logged in, nothing changed";
    case UnitStage::ChangeSent:
        return unit.Scanner ? ": erasing requested, not confirmed" : ": setting sent, not confirmed";
    case UnitStage::Changed:
        return unit.Scanner ? ": erased, " + std::to_string(unit.Progress.Templates) + " of " +
                                  std::to_string(unit.Progress.TemplatesWanted) + " templates"
                            : ": set, session not closed";
    case UnitStage::None:
        break;
    }
    return ": not logged in";
}

Json Unit_Json(const LockResult::Unit& unit) {
    Json json{{"name", unit.Name},
              {"result", Unit_Wort(unit)},
              {"reached", Unit_Stufe(unit.Progress.Stage)},
              {"note", unit.Note}};
    if (unit.Scanner) {
        json["templates"] = unit.Progress.Templates;
        json["templatesWanted"] = unit.Progress.TemplatesWanted;
    }
    return json;
}

std::string_view Verlust_Wort(HistoryLoss why) {
    switch (why) {
    case HistoryLoss::Unwritten:
        return "unwritten";
    case HistoryLoss::Broken:
        return "broken";
    case HistoryLoss::Endless:
        return "endless";
    case HistoryLoss::None:
        break;
    }
    return "";
}

HistoryFile Historie_Datei(const Umgebung& world, const std::string& path) {
    std::string bytes;
    if (path.empty() || world.Welt.Files.ReadAll(path, bytes) != ReadStatus::Ok) {
        return {};
    }
    return Historie_Lesen(bytes);
}

} // namespace

Json Ergebnis_Json(const Umgebung& world, const LockResult& result) {
    Json json{{"lock", result.Lock},
              {"name", result.Name},
              {"serial", result.Serial},
              {"result", Ende_Wort(result.End)},
              {"exit", static_cast<int>(Ende_Code(result))},
              {"text", result.Text},
              {"faults", result.Faults},
              {"messages", result.Messages},
              {"telegrams", result.Telegrams},
              {"wanted", result.Wanted},
              {"acknowledged", result.Acknowledged},
              {"missing", Json::array()},
              {"historyLost", Verlust_Wort(result.HistoryLost)},
              {"seconds", result.Seconds}};
    for (const AccountGap& gap : result.Missing) {
        json["missing"].push_back(Luecke_Kennung(gap));
    }
    if (result.EraseConfirmed) {
        json["eraseConfirmed"] = *result.EraseConfirmed;
    }
    Json units = Json::array();
    for (const LockResult::Unit& unit : result.Units) {
        units.push_back(Unit_Json(unit));
    }
    json["units"] = units;
    if (!result.HistoryFile.empty()) {
        json["historyFile"] = result.HistoryFile;
        json["events"] = Historie_Json(Historie_Datei(world, result.HistoryFile));
    }
    json["route"] = result.Route;
    return json;
}

void Ergebnis_Text(const Umgebung& world, const Console& console, const LockResult& result, bool historyOnly) {
    std::ostream& out = console.Out;
    out << "Lock " << result.Lock << " \"" << result.Name << "\" " << result.Serial << ": "
        << Ende_Text(result.End, historyOnly);
    if (result.Telegrams > 0) {
        out << ", " << result.Telegrams << (result.Telegrams == 1 ? " telegram in " : " telegrams in ") << std::fixed
            << std::setprecision(1) << result.Seconds << " s";
    }
    out << (result.Text.empty() ? "" : ": ") << result.Text << "\n";
    for (const std::string& fault : result.Faults) {
        out << "  " << fault << "\n";
    }
    if (result.End == LockEnd::Done && !result.EraseConfirmed.value_or(true)) {
        out << "  the lock did not confirm the erasing: old entries may still be there\n";
    }
    for (const LockResult::Unit& unit : result.Units) {
        out << "  unit \"" << unit.Name << "\": " << Unit_Wort(unit) << Unit_Verbleib(unit)
            << (unit.Note.empty() ? "" : ", ") << unit.Note << "\n";
    }
    if (!result.HistoryFile.empty()) {
        out << "  history: " << Anzeigetext(result.HistoryFile) << "\n";
        if (historyOnly) {
            out << Historie_Tabelle(Historie_Datei(world, result.HistoryFile));
        }
    } else if (historyOnly && result.End == LockEnd::Done && result.Faults.empty()) {
        out << "  the lock's history is empty\n";
    }
    out.flush();
}

ExitCode Gesamtcode(const std::vector<LockResult>& results) {
    const ExitCode first = Ende_Code(results.front());
    const bool same = std::all_of(results.begin(), results.end(),
                                  [first](const LockResult& result) { return Ende_Code(result) == first; });
    return same ? first : ExitCode::SomeFailed;
}

} // namespace qvm
