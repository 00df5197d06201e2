#include "DatensatzStand.h"
#include "LockRecords.h"
#include "Modelle.h"
#include "Schlossregeln.h"
#include "UnitRecords.h"
#include "Units.h"

#include <array>

namespace qvm {
namespace {

constexpr std::uint8_t ModeOn = 10, ModeOff = 20, NoMode = 0xFF;

std::uint8_t Modus(std::string_view text) {
    if (text == "X") {
        return ModeOn;
    }
    return text == "Y" ? ModeOff : NoMode;
}

/// The fifth unit's type is read from the third unit's field. The systems in the field depend on it.
constexpr std::array<std::size_t, 5> TypeOfUnit{0, 1, 2, 3, 2};

bool Ist_Da(const Address& serial) {
    return serial[0] != 0 || (serial[1] != 0 && Unit_Mit_Kleiner_Nummer(Serie_Zahl(serial)));
}

ProgUnit Unit_Bereiten(const UnitRecord& record, std::size_t index) {
    const Unit& stored = record.Units[index];
    ProgUnit unit;
    unit.Name = stored.Name;
    unit.UnitNo = stored.UnitNo;
    if (const std::string& type = record.Units[TypeOfUnit[index]].Module; !type.empty()) {
        unit.Type = type[0];
    }
    // A serial that is not four bytes cannot be addressed: its unit counts as absent.
    unit.UnitPresent = Einstellung_AEsn(Sn_Verbinden(stored.Sn), unit.Serial) != SerialError && Ist_Da(unit.Serial);
    return unit;
}

void Empfang_Bereiten(Dataset& dataset, const UnitRecord& record) {
    dataset.UnitMode = record.UnitMode;
    dataset.Values.ListenWindow = record.UnitMode == "3";
    dataset.AlwaysOn = record.AlwaysOn;
    dataset.Reserved1 = record.Reserved1;
    dataset.SignalFlag = record.SignalFlag;
    dataset.RssiLevel = record.RssiLevel;
    dataset.ListenSeconds = Lauschzeit_Sekunden(record);
}

} // namespace

bool Vorgaben_Laden(DatasetStand& stand) {
    RecordFile priorities(LockPrioRecord::Record), modes(LockEmiRecord::Record);
    if (!Datei_Lesen(stand, priorities) || !Datei_Lesen(stand, modes)) {
        return false;
    }
    const int record = stand.row.Number;
    LockValues& values = stand.dataset.Values;
    values.PriorityCode = Prioritaet_Code(priorities.Text(record, LockPrioRecord::Prio));
    values.LockMode = Ohne_Emi(stand.serial) ? NoMode : Modus(modes.Text(record, LockEmiRecord::Emi));
    return true;
}

bool DeviceParameter_Laden(DatasetStand& stand) {
    RecordFile file(WirelessUnitRecord::Record);
    if (!Datei_Lesen(stand, file)) {
        return false;
    }
    Dataset& dataset = stand.dataset;
    const UnitRecord record = Unit_Lesen(file.Record(stand.row.Number));
    Empfang_Bereiten(dataset, record);
    dataset.UnitCount = 0;
    for (std::size_t n = 0; n < dataset.Units.size(); ++n) {
        dataset.Units[n] = Unit_Bereiten(record, n);
        dataset.UnitCount += dataset.Units[n].UnitPresent ? 1 : 0;
    }
    return true;
}

} // namespace qvm
