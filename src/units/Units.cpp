#include "Units.h"

#include "Record.h"
#include "Text.h"
#include "UnitRecords.h"

#include <algorithm>
#include <cstddef>

namespace qvm {

namespace {

using namespace WirelessUnitRecord;

constexpr std::size_t FirstUnitField = 9, FieldsPerUnit = 7;
static_assert(Fields.size() == FirstUnitField + 5 * FieldsPerUnit);
static_assert(Fields[FirstUnitField].Name == "Name1" && Fields.back().Name == "UnitNo5");

constexpr std::array<std::string_view, 5> Levels{"090", "130", "170", "210", "255"};
constexpr std::string_view LevelNotSet = "000";

/// Visits every field of the record beside the text that it belongs to.
template <class Record, class Visit>
void Je_Feld(Record& units, Visit visit) {
    const std::array head{&units.UnitMode, &units.AlwaysOn, &units.Reserved1,  &units.ScanSignal, &units.Hours,
                          &units.Minutes,  &units.Seconds,  &units.SignalFlag, &units.RssiLevel};
    static_assert(head.size() == FirstUnitField);
    std::size_t field = 0;
    for (auto* text : head) {
        visit(Fields[field++], *text);
    }
    for (auto& unit : units.Units) {
        const std::array slot{&unit.Name,  &unit.Sn[0],  &unit.Sn[1], &unit.Sn[2],
                              &unit.Sn[3], &unit.Module, &unit.UnitNo};
        for (auto* text : slot) {
            visit(Fields[field++], *text);
        }
    }
}

} // namespace

UnitRecord Unit_Lesen(std::string_view record) {
    UnitRecord units;
    Je_Feld(units, [&](const RecordField& field, std::string& text) { text = Feld_Lesen(record, field); });
    return units;
}

std::string Unit_Satz(const UnitRecord& units) {
    std::string record;
    Je_Feld(units, [&](const RecordField& field, const std::string& text) { Feld_Schreiben(record, field, text); });
    return record;
}

int Zeit_Eintrag(std::string_view text, int last) {
    const int value = Zahlwert(text);
    return value >= 0 && value <= last ? value : 0;
}

int Lauschzeit_Sekunden(const UnitRecord& record) {
    return Zeit_Eintrag(record.Hours, LastListenHour) * 3600 + Zeit_Eintrag(record.Minutes, LastListenMinute) * 60 +
           Zeit_Eintrag(record.Seconds, LastListenMinute);
}

std::array<std::string, 4> Sn_Teilen(std::string_view serial) {
    std::array<std::string, 4> groups;
    for (std::size_t n = 0; n < 3; ++n) {
        const std::size_t end = std::min(serial.find('.'), serial.size());
        groups[n] = serial.substr(0, end);
        serial.remove_prefix(std::min(end + 1, serial.size()));
    }
    groups[3] = serial;
    return groups;
}

std::string Sn_Verbinden(const std::array<std::string, 4>& groups) {
    const std::string text = groups[0] + "." + groups[1] + "." + groups[2] + "." + groups[3];
    return text == "..." ? std::string{} : text;
}

int Pegel_Eintrag(std::string_view rssiLevel) {
    const auto found = std::find(Levels.begin(), Levels.end(), Trim(rssiLevel));
    return found == Levels.end() ? 4 : static_cast<int>(found - Levels.begin());
}

std::string_view Pegel_Text(int entry) {
    return entry >= 0 && entry < static_cast<int>(Levels.size()) ? Levels[static_cast<std::size_t>(entry)]
                                                                 : LevelNotSet;
}

} // namespace qvm
