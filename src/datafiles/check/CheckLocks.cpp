#include "AdapterRecord.h"
#include "CheckStand.h"
#include "LockRecords.h"
#include "Text.h"
#include "TimeRecords.h"

#include <algorithm>
#include <set>

namespace qvm {

namespace {

const RecordLayout& Locks = LockRecord::Record;
constexpr int LockCount = LockRecord::Record.Last;

SerialText Schloss_Serie(const CheckStand& stand, int lock) {
    return Seriennummer(stand, Locks, lock, LockRecord::Sn1, LockRecord::Sn2, LockRecord::Sn3, LockRecord::Sn4);
}

void Auswahl_Pruefen(CheckStand& stand, const RecordLayout& layout, int record, const RecordField& field,
                     std::initializer_list<std::string_view> allowed) {
    const std::string text = stand.Text(layout, record, field);
    if (!Leer_Oder(text, allowed)) {
        stand.Melden(FindingKind::Range, layout, record, field.Name, "there is no setting " + Zitat(text));
    }
}

/// The serial that a side file keeps for the lock must be the lock's own, or blank.
void Nebenserie_Pruefen(CheckStand& stand, const RecordLayout& layout, int lock, const SerialText& there) {
    if (there.Blank) {
        return;
    }
    const SerialText own = Schloss_Serie(stand, lock);
    if (there.Text != own.Text) {
        stand.Melden(FindingKind::Dangling, layout, lock, "Sn1",
                     Zitat(there.Text) + " is not the serial of lock " + std::to_string(lock) + ", " +
                         (own.Blank ? "which has none" : Zitat(own.Text)));
    }
}

void Offset_Pruefen(CheckStand& stand, int lock) {
    const std::string id = stand.Text(Locks, lock, LockRecord::OffsetId);
    // A blank identifier of offset n counts as "OFST0x0n", so these four are always there once the file is.
    const bool known = Leer_Oder(id, {"OFST0x01", "OFST0x02", "OFST0x03", "OFST0x04"});
    if (!id.empty() && (!known || !stand.Da(GuestOffset::Record))) {
        stand.Melden(FindingKind::Dangling, Locks, lock, LockRecord::OffsetId.Name,
                     "there is no time offset " + Zitat(id));
    }
}

std::set<std::string> Schlossgruppen(const CheckStand& stand) {
    std::set<std::string> ids;
    for (int group = 1; group <= std::min(stand.Letzter(LockTimeGroup::Record), 5); ++group) {
        ids.insert(stand.Text(LockTimeGroup::Record, group, LockTimeGroup::PbId));
    }
    ids.erase("");
    return ids;
}

void Adapter_Bindung_Pruefen(CheckStand& stand, int lock, const std::set<std::string>& adapters) {
    const std::string id = stand.Text(LockAdapterRecord::Record, lock, LockAdapterRecord::AdapterId);
    const std::string name = stand.Text(LockAdapterRecord::Record, lock, LockAdapterRecord::AdapterName);
    if ((id.empty() && name.empty()) || adapters.contains(id) || adapters.contains(name)) {
        return;
    }
    const bool byId = !id.empty();
    stand.Melden(FindingKind::Dangling, LockAdapterRecord::Record, lock,
                 byId ? LockAdapterRecord::AdapterId.Name : LockAdapterRecord::AdapterName.Name,
                 "there is no adapter " + Zitat(byId ? id : name));
}

} // namespace

void Schloesser_Pruefen(CheckStand& stand) {
    DoubledTexts names, serials;
    for (int lock = 1; lock <= stand.Letzter(Locks); ++lock) {
        const std::string name = stand.Text(Locks, lock, LockRecord::Name);
        if (const auto first = names.Sehen(name, lock)) {
            stand.Melden(FindingKind::Doubled, Locks, lock, LockRecord::Name.Name,
                         Zitat(name) + " is the name of lock " + std::to_string(*first) + ", too");
        }
        const SerialText serial = Schloss_Serie(stand, lock);
        if (!serial.Blank && !serial.Good) {
            stand.Melden(FindingKind::Range, Locks, lock, LockRecord::Sn1.Name,
                         Zitat(serial.Text) + " is not a serial of four hexadecimal pairs");
        } else if (const auto first = serials.Sehen(serial.Blank ? "" : HexText(serial.Value, 8), lock)) {
            stand.Melden(FindingKind::Doubled, Locks, lock, LockRecord::Sn1.Name,
                         Zitat(serial.Text) + " is the serial of lock " + std::to_string(*first) + ", too");
        }
        for (const RecordField* field : {&LockRecord::Switch1, &LockRecord::Switch2, &LockRecord::Switch3,
                                         &LockRecord::Switch4, &LockRecord::Switch5}) {
            Auswahl_Pruefen(stand, Locks, lock, *field, {"X"});
        }
        Offset_Pruefen(stand, lock);
    }
}

void Schloss_Bindungen_Pruefen(CheckStand& stand) {
    const std::set<std::string> groups = Schlossgruppen(stand);
    std::set<std::string> adapters;
    for (int record = 1; record <= stand.Letzter(AdapterRecord::Record); ++record) {
        adapters.insert(stand.Text(AdapterRecord::Record, record, AdapterRecord::Adresse));
        adapters.insert(stand.Text(AdapterRecord::Record, record, AdapterRecord::Name));
    }
    adapters.erase("");
    for (int lock = 1; lock <= LockCount; ++lock) {
        Auswahl_Pruefen(stand, LockPrioRecord::Record, lock, LockPrioRecord::Prio, {"1", "2", "3", "4", "5"});
        Auswahl_Pruefen(stand, LockEmiRecord::Record, lock, LockEmiRecord::Emi, {"X", "Y"});
        const std::string group = stand.Text(LockGroupRecord::Record, lock, LockGroupRecord::GroupId);
        if (!Leer_Oder(group, {"-"}) && !groups.contains(group)) {
            stand.Melden(FindingKind::Dangling, LockGroupRecord::Record, lock, LockGroupRecord::GroupId.Name,
                         "there is no lock timer group " + Zitat(group));
        }
        Adapter_Bindung_Pruefen(stand, lock, adapters);
        Nebenserie_Pruefen(stand, LockAdapterRecord::Record, lock,
                           Seriennummer(stand, LockAdapterRecord::Record, lock, LockAdapterRecord::Sn1,
                                        LockAdapterRecord::Sn2, LockAdapterRecord::Sn3, LockAdapterRecord::Sn4));
        Auswahl_Pruefen(stand, DoorModeRecord::Record, lock, DoorModeRecord::Mode, {"AA", "BB"});
        Nebenserie_Pruefen(stand, DoorModeRecord::Record, lock,
                           Seriennummer(stand, DoorModeRecord::Record, lock, DoorModeRecord::Sn1, DoorModeRecord::Sn2,
                                        DoorModeRecord::Sn3, DoorModeRecord::Sn4));
        const std::string days = stand.Text(DoorModeRecord::Record, lock, DoorModeRecord::Days);
        if (!days.empty() && !Dezimalzahl(days)) {
            stand.Melden(FindingKind::Range, DoorModeRecord::Record, lock, DoorModeRecord::Days.Name,
                         Zitat(days) + " is not a number of days");
        }
    }
}

void Adapter_Pruefen(CheckStand& stand) {
    const RecordLayout& adapters = AdapterRecord::Record;
    DoubledTexts addresses, names;
    for (int record = 1; record <= stand.Letzter(adapters); ++record) {
        const std::string address = stand.Text(adapters, record, AdapterRecord::Adresse);
        const std::string name = stand.Text(adapters, record, AdapterRecord::Name);
        if (const auto first = addresses.Sehen(address, record)) {
            stand.Melden(FindingKind::Doubled, adapters, record, AdapterRecord::Adresse.Name,
                         Zitat(address) + " stands in record " + std::to_string(*first) + ", too");
        }
        if (const auto first = names.Sehen(name, record)) {
            stand.Melden(FindingKind::Doubled, adapters, record, AdapterRecord::Name.Name,
                         Zitat(name) + " stands in record " + std::to_string(*first) + ", too");
        }
        const std::string port = stand.Text(adapters, record, AdapterRecord::Port);
        const int number = Dezimalzahl(port).value_or(0);
        if (!port.empty() && (number < 1 || number > 16)) {
            stand.Melden(FindingKind::Range, adapters, record, AdapterRecord::Port.Name,
                         Zitat(port) + " is not a port from 1 to 16");
        }
    }
}

} // namespace qvm
