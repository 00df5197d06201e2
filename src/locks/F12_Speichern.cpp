#include "F12_Speichern.h"

#include "Kern.h"
#include "LockRecords.h"
#include "Schlossregeln.h"
#include "Schlossserie.h"
#include "Stelle.h"
#include "Text.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace qvm {

namespace {

std::string Schloss_Satz(const Kern&, const LockTable& table, int row) {
    namespace Rec = LockRecord;
    const Grid& grid = table.FGK12;
    std::string record;
    Feld_Schreiben(record, Rec::Name, RTrim(grid.Text(row, LockColumn::Name)));
    Feld_Schreiben(record, Rec::OffsetId, grid.Text(row, LockColumn::OffsetId));
    Serie_Schreiben(record, {Rec::Sn1, Rec::Sn2, Rec::Sn3, Rec::Sn4}, grid.Text(row, LockColumn::Serial));
    for (int n = 0; n < 5; ++n) {
        Feld_Schreiben(record, *Rec::Switches[At(n)],
                       grid.At(row, LockColumn::FirstSwitch + n).Picture == LockPicture::On ? "X" : "");
    }
    return record;
}

std::string Prio_Satz(const Kern&, const LockTable& table, int row) {
    const std::string_view text = Trim(table.FGK12.Text(row, LockColumn::Priority));
    std::string record;
    Feld_Schreiben(record, LockPrioRecord::Prio, text.empty() ? "3" : text);
    for (const RecordField* spare : {&LockPrioRecord::Spare1, &LockPrioRecord::Spare2, &LockPrioRecord::Spare3}) {
        Feld_Schreiben(record, *spare, "3");
    }
    return record;
}

std::string Emi_Satz(const Kern&, const LockTable& table, int row) {
    const int picture = table.FGK12.At(row, LockColumn::Emi).Picture;
    std::string record;
    Feld_Schreiben(record, LockEmiRecord::Emi,
                   picture == LockPicture::On    ? "X"
                   : picture == LockPicture::Off ? "Y"
                                                 : "");
    return record;
}

std::string Gruppenkennung(const GroupTable& groups, std::string_view name) {
    if (name.empty() || name == "-") { // the name of an unused entry is empty, too
        return "-";
    }
    const auto entry = std::find_if(groups.begin() + 1, groups.end(),
                                    [&](const GroupEntry& group) { return Trim(group.Name) == name; });
    return entry == groups.end() || entry->PbId.empty() ? "-" : entry->PbId;
}

std::string Gruppe_Satz(const Kern&, const LockTable& table, int row) {
    const std::string& text = table.FGK12.Text(row, LockColumn::Group);
    std::string record;
    Feld_Schreiben(record, LockGroupRecord::GroupId, Gruppenkennung(table.GroupTableLock, Trim(text)));
    Feld_Schreiben(record, LockGroupRecord::GroupName, text);
    return record;
}

std::string Adapter_Satz(const Kern&, const LockTable& table, int row) {
    namespace Rec = LockAdapterRecord;
    const Grid& grid = table.FGK12;
    const std::string_view serial = Trim(grid.Text(row, LockColumn::Serial));
    const bool used = !serial.empty();
    std::string record;
    Feld_Schreiben(record, Rec::AdapterId, used ? std::string_view(grid.Text(row, LockColumn::AdapterId)) : "");
    Feld_Schreiben(record, Rec::AdapterName, used ? std::string_view(grid.Text(row, LockColumn::AdapterName)) : "");
    Serie_Schreiben(record, {Rec::Sn1, Rec::Sn2, Rec::Sn3, Rec::Sn4}, serial);
    return record;
}

std::string Tuermodus_Satz(const Kern& kern, const LockTable& table, int row) {
    namespace Rec = DoorModeRecord;
    const Grid& grid = table.FGK12;
    std::string record;
    Feld_Schreiben(record, Rec::Mode, Tuermodus_Kennung(kern, grid.Text(row, LockColumn::DoorMode)));
    Serie_Schreiben(record, {Rec::Sn1, Rec::Sn2, Rec::Sn3, Rec::Sn4}, grid.Text(row, LockColumn::Serial));
    Feld_Schreiben(record, Rec::Days, Trim(grid.Text(row, LockColumn::DoorDays)));
    return record;
}

/// A file of the table and what writes its records.
struct Ziel {
    const RecordLayout& Layout;
    std::string (*Satz)(const Kern& kern, const LockTable& table, int row);
};

constexpr Ziel Einstellung{LockRecord::Record, Schloss_Satz}, Prioritaet{LockPrioRecord::Record, Prio_Satz},
    Emi{LockEmiRecord::Record, Emi_Satz}, ZeitGruppe{LockGroupRecord::Record, Gruppe_Satz},
    Adapter{LockAdapterRecord::Record, Adapter_Satz}, Tuermodus{DoorModeRecord::Record, Tuermodus_Satz};

/// A file as it stands, and as it is to be written.
struct Datei {
    RecordFile Before, After;
    bool Missing; ///< there is none yet
};

/// Nothing when the file cannot be read.
std::optional<Datei> Vorbereiten(Kern& kern, const LockTable& table, const Ziel& target) {
    RecordFile before(target.Layout);
    const ReadStatus read = before.Laden(kern.Welt.Files, kern.DatPfad());
    if (table.LoadFailed || read == ReadStatus::Error) {
        return std::nullopt;
    }
    RecordFile after = before;
    for (int row = LockGrid::FirstRow; row <= LockGrid::LastRow; ++row) {
        after.SetRecord(row, target.Satz(kern, table, row));
    }
    return Datei{std::move(before), std::move(after), read == ReadStatus::Missing};
}

bool Datei_Speichern(Kern& kern, const LockTable& table, const Ziel& target) {
    const auto file = Vorbereiten(kern, table, target);
    return file && file->After.Speichern(kern.Welt.Files, kern.DatPfad());
}

/// The files are written as they stood, as far as the disk takes it.
void Zuruecknehmen(Kern& kern, std::span<const Datei> files) {
    for (const Datei& file : files) {
        if (file.Missing) {
            kern.Welt.Files.Remove(kern.DatPfad() + std::string(file.Before.Layout().File));
        } else {
            file.Before.Speichern(kern.Welt.Files, kern.DatPfad());
        }
    }
}

} // namespace

bool Tuereinstellung_Speichern(Kern& kern, const LockTable& table) {
    return Datei_Speichern(kern, table, Einstellung);
}

bool Prioritaet_Speichern(Kern& kern, const LockTable& table) {
    return Datei_Speichern(kern, table, Prioritaet);
}

bool Emi_Speichern(Kern& kern, const LockTable& table) {
    return Datei_Speichern(kern, table, Emi);
}

bool SchlossZeitGruppe_Speichern(Kern& kern, const LockTable& table) {
    return Datei_Speichern(kern, table, ZeitGruppe);
}

bool SchlossAdapter_Speichern(Kern& kern, const LockTable& table) {
    return Datei_Speichern(kern, table, Adapter);
}

bool Tuermodus_Speichern(Kern& kern, const LockTable& table) {
    return Datei_Speichern(kern, table, Tuermodus);
}

bool F12_Speichern(Kern& kern, LockTable& table) {
    constexpr const Ziel* Order[] = {&Einstellung, &Prioritaet, &Emi, &ZeitGruppe, &Adapter, &Tuermodus};
    std::vector<Datei> files;
    for (const Ziel* target : Order) {
        auto file = Vorbereiten(kern, table, *target);
        if (!file) {
            return false;
        }
        files.push_back(std::move(*file));
    }
    for (std::size_t n = 0; n < files.size(); ++n) {
        if (!files[n].After.Speichern(kern.Welt.Files, kern.DatPfad())) {
            Zuruecknehmen(kern, std::span(files).first(n));
            return false;
        }
    }
    table.LockDirty = false;
    return true;
}

} // namespace qvm
