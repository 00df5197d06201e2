#include "DatensatzStand.h"
#include "LockRecords.h"
#include "Text.h"
#include "UnitRecords.h"

#include <array>

namespace qvm {
namespace {

constexpr std::uint8_t MiddlePriority = 2;
constexpr std::uint8_t ModeOn = 10, ModeOff = 20, NoMode = 0xFF;

/// Locks that know no lock mode.
constexpr bool Ohne_Modus(std::uint32_t serial) {
    return serial > 0xB49FFFF && serial < 0xDFFB9EF;
}

std::uint8_t Prioritaet(std::string_view text) {
    return text.size() == 1 && text[0] >= '1' && text[0] <= '5' ? static_cast<std::uint8_t>(text[0] - '1')
                                                                : MiddlePriority;
}

std::uint8_t Modus(std::string_view text) {
    if (text == "X") {
        return ModeOn;
    }
    return text == "Y" ? ModeOff : NoMode;
}

struct UnitFields {
    RecordField Name;
    std::array<RecordField, 4> Serial;
    RecordField Type, UnitNo;
};

namespace Wire = WirelessUnitRecord;

/// The fifth unit's type is read from the third unit's field. The systems in the field depend on it.
constexpr std::array<UnitFields, 5> UnitBlocks{{
    {Wire::Name1, {Wire::Sn1_1, Wire::Sn2_1, Wire::Sn3_1, Wire::Sn4_1}, Wire::Module1, Wire::UnitNo1},
    {Wire::Name2, {Wire::Sn1_2, Wire::Sn2_2, Wire::Sn3_2, Wire::Sn4_2}, Wire::Module2, Wire::UnitNo2},
    {Wire::Name3, {Wire::Sn1_3, Wire::Sn2_3, Wire::Sn3_3, Wire::Sn4_3}, Wire::Module3, Wire::UnitNo3},
    {Wire::Name4, {Wire::Sn1_4, Wire::Sn2_4, Wire::Sn3_4, Wire::Sn4_4}, Wire::Module4, Wire::UnitNo4},
    {Wire::Name5, {Wire::Sn1_5, Wire::Sn2_5, Wire::Sn3_5, Wire::Sn4_5}, Wire::Module3, Wire::UnitNo5},
}};

/// Serial values of units whose first byte is 0. As their second byte must not be 0 either, those below 65536 never
/// count as present.
constexpr std::uint32_t FirstLowSerial = 11469, LastLowSerial = 5242880;

bool Ist_Da(const Address& serial) {
    if (serial[0] != 0) {
        return true;
    }
    const std::uint32_t value = std::uint32_t{serial[1]} << 16U | std::uint32_t{serial[2]} << 8U | serial[3];
    return serial[1] != 0 && Im_Bereich(value, FirstLowSerial, LastLowSerial);
}

ProgUnit Unit_Lesen(const RecordFile& file, int record, const UnitFields& fields) {
    ProgUnit unit;
    unit.Name = file.Text(record, fields.Name);
    unit.UnitNo = file.Text(record, fields.UnitNo);
    if (const std::string type = file.Text(record, fields.Type); !type.empty()) {
        unit.Type = type[0];
    }
    std::string serial = file.Text(record, fields.Serial[0]);
    for (std::size_t n = 1; n < fields.Serial.size(); ++n) {
        serial += "." + file.Text(record, fields.Serial[n]);
    }
    // A serial that is not four bytes cannot be addressed: its unit counts as absent.
    unit.Present = Einstellung_AEsn(serial, unit.Serial) != SerialError && Ist_Da(unit.Serial);
    return unit;
}

/// A part of the listening time; 0 for what its selector does not offer.
int Zeitteil(std::string_view text, int most) {
    const int value = Zahlwert(text);
    return value >= 0 && value <= most ? value : 0;
}

void Empfang_Lesen(Dataset& dataset, const RecordFile& file, int record) {
    dataset.UnitMode = file.Text(record, Wire::UnitMode);
    dataset.AlwaysOn = file.Text(record, Wire::AlwaysOn);
    dataset.Reserved1 = file.Text(record, Wire::Reserved1);
    dataset.SignalFlag = file.Text(record, Wire::SignalFlag);
    dataset.RssiLevel = file.Text(record, Wire::RssiLevel);
    dataset.ListenSeconds = Zeitteil(file.Text(record, Wire::Hours), 17) * 3600 +
                            Zeitteil(file.Text(record, Wire::Minutes), 59) * 60 +
                            Zeitteil(file.Text(record, Wire::Seconds), 59);
}

} // namespace

bool Vorgaben_Laden(DatasetStand& stand) {
    RecordFile priorities(LockPrioRecord::Record), modes(LockEmiRecord::Record);
    if (!Datei_Lesen(stand, priorities) || !Datei_Lesen(stand, modes)) {
        return false;
    }
    const int record = stand.row.Number;
    RunState& lauf = stand.link.Lauf;
    lauf.PriorityCode = Prioritaet(priorities.Text(record, LockPrioRecord::Prio));
    lauf.LockMode = Ohne_Modus(stand.serial) ? NoMode : Modus(modes.Text(record, LockEmiRecord::Emi));
    return true;
}

bool DeviceParameter_Laden(DatasetStand& stand) {
    RecordFile file(WirelessUnitRecord::Record);
    if (!Datei_Lesen(stand, file)) {
        return false;
    }
    Dataset& dataset = stand.dataset;
    Empfang_Lesen(dataset, file, stand.row.Number);
    dataset.UnitCount = 0;
    for (std::size_t n = 0; n < UnitBlocks.size(); ++n) {
        dataset.Units[n] = Unit_Lesen(file, stand.row.Number, UnitBlocks[n]);
        dataset.UnitCount += dataset.Units[n].Present ? 1 : 0;
    }
    return true;
}

} // namespace qvm
