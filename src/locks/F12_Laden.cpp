#include "F12_Laden.h"

#include "AdapterRecord.h"
#include "Kern.h"
#include "LockRecords.h"
#include "Schlossregeln.h"
#include "Schlossserie.h"
#include "Stelle.h"
#include "Text.h"
#include "TimeRecords.h"
#include "UnitRecords.h"

#include <algorithm>

namespace qvm {

namespace {

/// Reads a file of the lock table. A missing one holds nothing.
bool Lesen(Kern& kern, LockTable& table, RecordFile& file) {
    if (file.Laden(kern.Welt.Files, kern.DatPfad()) != ReadStatus::Error) {
        return true;
    }
    table.LoadFailed = true;
    return false;
}

bool Hat_Serie(const Grid& grid, int row) {
    return !Trim(grid.Text(row, LockColumn::Serial)).empty();
}

void Prioritaet_Zeigen(Grid& grid, int row, std::string_view text) {
    Cell cell = grid.At(row, LockColumn::Priority);
    cell.Text = text.empty() ? "3" : text;
    cell.ForeColor = LockLook::Set;
    cell.FontSize = LockLook::PrioritySize;
    grid.Set(row, LockColumn::Priority, cell);
}

/// Name without the blanks behind it; blanks in front are part of it.
std::string Schlossname(const RecordFile& locks, int row) {
    const std::string raw = Feld_Roh(locks.Record(row), LockRecord::Name);
    return std::string(RTrim(std::string_view(raw).substr(0, raw.find('\0'))));
}

void Offset_Zeigen(LockTable& table, int row, const std::string& id) {
    const auto entry = std::find_if(table.Offsets.begin() + 1, table.Offsets.end(),
                                    [&](const OffsetEntry& offset) { return offset.Id == id; });
    const bool known = !id.empty() && entry != table.Offsets.end();
    table.FGK12.SetText(row, LockColumn::Offset, known ? entry->Name : "");
    table.FGK12.SetText(row, LockColumn::OffsetId, known ? entry->Id : "");
}

void Schloss_Zeigen(LockTable& table, const RecordFile& locks, int row) {
    namespace Rec = LockRecord;
    Grid& grid = table.FGK12;
    const std::string name = Schlossname(locks, row);
    const bool serial = !locks.Text(row, Rec::Sn2).empty() && !locks.Text(row, Rec::Sn3).empty();
    grid.SetText(row, LockColumn::Name, name);
    grid.SetText(row, LockColumn::Serial,
                 serial ? Serie_Lesen(locks, row, {Rec::Sn1, Rec::Sn2, Rec::Sn3, Rec::Sn4}) : std::string{});
    Offset_Zeigen(table, row, locks.Text(row, Rec::OffsetId));
    for (int n = 0; n < 5; ++n) {
        const bool on = locks.Text(row, *LockRecord::Switches[At(n)]) == "X";
        int picture = LockPicture::None;
        if (serial) {
            picture = on ? LockPicture::On : LockPicture::Off;
        } else if (name.empty()) {
            picture = LockPicture::On;
        }
        grid.SetPicture(row, LockColumn::FirstSwitch + n, picture);
    }
    if (!serial && name.empty()) {
        Prioritaet_Zeigen(grid, row, "3");
    }
}

std::string Gruppenname(const GroupTable& groups, std::string_view id) {
    if (id.empty() || id == "-") { // unused entries are empty, too
        return "-";
    }
    const auto entry =
        std::find_if(groups.begin() + 1, groups.end(), [&](const GroupEntry& group) { return group.PbId == id; });
    return entry == groups.end() || entry->Name.empty() ? "-" : entry->Name;
}

} // namespace

void F12_Ueberschriften(const Kern& kern, LockTable& table) {
    struct Kopf {
        int Column, Line;
    };
    constexpr Kopf Heads[] = {{LockColumn::Number, Line::Number},       {LockColumn::Name, Line::LockName},
                              {LockColumn::Serial, Line::SerialNumber}, {LockColumn::Group, Line::LockTimerGroup},
                              {LockColumn::AdapterId, Line::Adapter},   {LockColumn::Offset, Line::TimeOffset},
                              {LockColumn::DoorMode, Line::DoorMode}};
    for (const Kopf& head : Heads) {
        table.FGK12.SetText(0, head.Column, kern.Zeile(head.Line));
    }
    for (int column = LockColumn::FirstSwitch; column <= LockColumn::UnitType; ++column) {
        table.FGK12.SetPicture(0, column, LockPicture::FirstHeading + column - LockColumn::FirstSwitch);
    }
}

void F12_SpaltenLeeren(const Kern& kern, LockTable& table) {
    table.FGK12.ClearRows();
    F12_Ueberschriften(kern, table);
    for (int row = LockGrid::FirstRow; row <= LockGrid::LastRow; ++row) {
        table.FGK12.SetText(row, LockColumn::Number, Ziffern(row));
    }
}

bool Tuereinstellung_laden(Kern& kern, LockTable& table) {
    RecordFile locks(LockRecord::Record);
    if (!Lesen(kern, table, locks)) {
        return false;
    }
    const bool missing = locks.Count() == 0;
    for (int row = LockGrid::FirstRow; row <= LockGrid::LastRow; ++row) {
        Schloss_Zeigen(table, locks, row);
        if (missing) {
            table.FGK12.SetPicture(row, LockColumn::Emi, LockPicture::NotApplicable);
        }
    }
    return true;
}

bool Prioritaet_Laden(Kern& kern, LockTable& table) {
    RecordFile priorities(LockPrioRecord::Record);
    if (!Lesen(kern, table, priorities)) {
        return false;
    }
    for (int row = LockGrid::FirstRow; row <= LockGrid::LastRow; ++row) {
        Prioritaet_Zeigen(table.FGK12, row, priorities.Text(row, LockPrioRecord::Prio));
    }
    return true;
}

bool Emi_Laden(Kern& kern, LockTable& table) {
    RecordFile states(LockEmiRecord::Record);
    if (!Lesen(kern, table, states)) {
        return false;
    }
    for (int row = LockGrid::FirstRow; row <= LockGrid::LastRow; ++row) {
        const std::string state = states.Text(row, LockEmiRecord::Emi);
        int picture = LockPicture::NotApplicable;
        if (state == "X") {
            picture = LockPicture::On;
        } else if (state == "Y") {
            picture = LockPicture::Off;
        }
        table.FGK12.SetPicture(row, LockColumn::Emi, picture);
    }
    return true;
}

bool SchlossZeitGruppe_Laden(Kern& kern, LockTable& table) {
    RecordFile bindings(LockGroupRecord::Record);
    if (!Lesen(kern, table, bindings)) {
        return false;
    }
    for (int row = LockGrid::FirstRow; row <= LockGrid::LastRow; ++row) {
        table.FGK12.SetText(row, LockColumn::Group,
                            Gruppenname(table.GroupTableLock, bindings.Text(row, LockGroupRecord::GroupId)));
    }
    return true;
}

bool SchlossAdapter_Laden(Kern& kern, LockTable& table, std::span<const std::string> found) {
    RecordFile adapters(LockAdapterRecord::Record);
    if (!Lesen(kern, table, adapters)) {
        return false;
    }
    table.AdapterSpalten = found.size() >= 2;
    for (int row = LockGrid::FirstRow; row <= LockGrid::LastRow; ++row) {
        if (!Hat_Serie(table.FGK12, row)) {
            continue;
        }
        const std::string name = adapters.Text(row, LockAdapterRecord::AdapterName);
        const bool known = !name.empty() && std::find(found.begin(), found.end(), name) != found.end();
        Cell cell = table.FGK12.At(row, LockColumn::AdapterId);
        cell.Text = adapters.Text(row, LockAdapterRecord::AdapterId);
        cell.ForeColor = known ? LockLook::AdapterFound : LockLook::AdapterUnknown;
        cell.BackColor = White;
        table.FGK12.Set(row, LockColumn::AdapterId, cell);
        table.FGK12.SetText(row, LockColumn::AdapterName, name);
    }
    return true;
}

bool Tuermodus_Laden(Kern& kern, LockTable& table) {
    namespace Rec = DoorModeRecord;
    RecordFile doors(Rec::Record);
    if (!Lesen(kern, table, doors)) {
        return false;
    }
    for (int row = LockGrid::FirstRow; row <= LockGrid::LastRow; ++row) {
        const bool same = Serie_Lesen(doors, row, {Rec::Sn1, Rec::Sn2, Rec::Sn3, Rec::Sn4}) ==
                          Trim(table.FGK12.Text(row, LockColumn::Serial));
        table.FGK12.SetText(row, LockColumn::DoorMode,
                            same ? Tuermodus_Text(kern, doors.Text(row, Rec::Mode)) : std::string{});
        table.FGK12.SetText(row, LockColumn::DoorDays, same ? doors.Text(row, Rec::Days) : std::string{});
    }
    return true;
}

bool F12_Laden(Kern& kern, LockTable& table, std::span<const std::string> found, std::vector<FileTrouble>* unread) {
    bool good = true;
    const auto note = [&](bool read, const RecordLayout& layout) {
        good = good && read;
        if (!read && unread != nullptr) {
            unread->push_back({.File = std::string(layout.File), .Fault = Lesefehler(kern.Welt.Files)});
        }
    };
    table.LoadFailed = false;
    table.LockDirty = false;
    F12_SpaltenLeeren(kern, table);
    note(Offsetnamen_Laden(kern, table), GuestOffset::Record);
    note(Schlossgruppen_Laden(kern, table), LockTimeGroup::Record);
    note(SchlossZeitGruppe_Laden(kern, table), LockGroupRecord::Record);
    note(Prioritaet_Laden(kern, table), LockPrioRecord::Record);
    note(Emi_Laden(kern, table), LockEmiRecord::Record);
    note(Tuereinstellung_laden(kern, table), LockRecord::Record);
    note(UnitTypen_Laden(kern, table), WirelessUnitRecord::Record);
    note(AdapterAuswahl_Laden(kern, table), AdapterRecord::Record);
    note(SchlossAdapter_Laden(kern, table, found), LockAdapterRecord::Record);
    note(Tuermodus_Laden(kern, table), DoorModeRecord::Record);
    return good;
}

} // namespace qvm
