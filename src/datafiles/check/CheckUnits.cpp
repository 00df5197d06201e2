#include "CheckStand.h"
#include "Modelle.h"
#include "Text.h"
#include "UnitRecords.h"

#include <array>

namespace qvm {

namespace {

const RecordLayout& Units = WirelessUnitRecord::Record;

struct UnitFields {
    const RecordField &Name, &Sn1, &Sn2, &Sn3, &Sn4, &Module, &UnitNo;
};

using namespace WirelessUnitRecord;
const std::array<UnitFields, 5> UnitSlots{{{Name1, Sn1_1, Sn2_1, Sn3_1, Sn4_1, Module1, UnitNo1},
                                           {Name2, Sn1_2, Sn2_2, Sn3_2, Sn4_2, Module2, UnitNo2},
                                           {Name3, Sn1_3, Sn2_3, Sn3_3, Sn4_3, Module3, UnitNo3},
                                           {Name4, Sn1_4, Sn2_4, Sn3_4, Sn4_4, Module4, UnitNo4},
                                           {Name5, Sn1_5, Sn2_5, Sn3_5, Sn4_5, Module5, UnitNo5}}};

void Einheit_Pruefen(CheckStand& stand, int lock, const UnitFields& unit, DoubledTexts& serials) {
    const SerialText serial = Seriennummer(stand, Units, lock, unit.Sn1, unit.Sn2, unit.Sn3, unit.Sn4);
    const std::string module = stand.Text(Units, lock, unit.Module);
    const std::string number = stand.Text(Units, lock, unit.UnitNo);
    if (!number.empty() && !Dezimalzahl(number)) {
        stand.Melden(FindingKind::Range, Units, lock, unit.UnitNo.Name, Zitat(number) + " is not a unit's address");
    }
    if (!Leer_Oder(module, {"0", "1", "2"})) {
        stand.Melden(FindingKind::Range, Units, lock, unit.Module.Name, "there is no module class " + Zitat(module));
    }
    if (!serial.Blank && !serial.Good) {
        stand.Melden(FindingKind::Range, Units, lock, unit.Sn1.Name,
                     Zitat(serial.Text) + " is not a serial of four hexadecimal pairs");
    }
    // Four zeros are what a serial becomes that could not be taken apart.
    if (!serial.Good || serial.Value == 0) {
        return;
    }
    const std::string own(1, Sn_Klasse(serial.Value));
    if (own == "0") {
        stand.Melden(FindingKind::Range, Units, lock, unit.Sn1.Name,
                     Zitat(serial.Text) + " is not the serial of a unit");
    } else if ((module == "1" || module == "2") && module != own) {
        stand.Melden(FindingKind::Range, Units, lock, unit.Module.Name,
                     "the serial " + Zitat(serial.Text) + " is one of class " + own);
    }
    if (const auto first = serials.Sehen(HexText(serial.Value, 8), 0)) {
        stand.Melden(FindingKind::Doubled, Units, lock, unit.Sn1.Name,
                     Zitat(serial.Text) + " stands twice at this lock");
    }
}

int Zahl(CheckStand& stand, int lock, const RecordField& field, int limit) {
    const std::string text = stand.Text(Units, lock, field);
    const std::optional<int> value = Dezimalzahl(text);
    if (!text.empty() && (!value || *value > limit)) {
        stand.Melden(FindingKind::Range, Units, lock, field.Name,
                     Zitat(text) + " is not a number from 0 to " + std::to_string(limit));
    }
    return value.value_or(0);
}

void Empfang_Pruefen(CheckStand& stand, int lock) {
    const auto choice = [&](const RecordField& field, std::initializer_list<std::string_view> allowed) {
        const std::string text = stand.Text(Units, lock, field);
        if (!Leer_Oder(text, allowed)) {
            stand.Melden(FindingKind::Range, Units, lock, field.Name, "there is no setting " + Zitat(text));
        }
    };
    choice(UnitMode, {"1", "2", "3"});
    // "9" stands for not set yet.
    choice(AlwaysOn, {"0", "1", "9"});
    choice(Reserved1, {"0", "1", "9"});
    choice(SignalFlag, {"0", "1"});
    choice(RssiLevel, {"000", "090", "130", "170", "210", "255"});
    const int seconds =
        Zahl(stand, lock, Hours, 17) * 3600 + Zahl(stand, lock, Minutes, 59) * 60 + Zahl(stand, lock, Seconds, 59);
    if (stand.Text(Units, lock, UnitMode) == "3" && seconds == 0 && stand.Text(Units, lock, AlwaysOn) != "1") {
        stand.Melden(FindingKind::Range, Units, lock, Hours.Name,
                     "the listen time is zero and the unit is not always on");
    }
}

} // namespace

void Einheiten_Pruefen(CheckStand& stand) {
    for (int lock = 1; lock <= stand.Letzter(Units); ++lock) {
        Empfang_Pruefen(stand, lock);
        DoubledTexts serials;
        for (const UnitFields& unit : UnitSlots) {
            Einheit_Pruefen(stand, lock, unit, serials);
        }
    }
}

} // namespace qvm
