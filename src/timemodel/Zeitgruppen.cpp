#include "Zeitgruppen.h"

#include "Kern.h"
#include "Text.h"
#include "TimeRecords.h"
#include "Zeit.h"

namespace qvm {

namespace {

constexpr int GroupRecords = 8; // written; the eighth is always empty
constexpr std::string_view IdStart = "PB_";

/// A file of groups: both forms have the same fields at different places.
struct Gruppendatei {
    const RecordLayout& Layout;
    const RecordField &Num, &Name, &Days, &Count, &PbId;
    int First, Last; ///< records read
};

constexpr Gruppendatei Personen{
    TimeGroup::Record, TimeGroup::Num, TimeGroup::Name, TimeGroup::Days, TimeGroup::Count, TimeGroup::PbId, 2,
    PersonGroupRows};
constexpr Gruppendatei Sperren{LockTimeGroup::Record,
                               LockTimeGroup::Num,
                               LockTimeGroup::Name,
                               LockTimeGroup::Days,
                               LockTimeGroup::Count,
                               LockTimeGroup::PbId,
                               1,
                               LockGroupRows};

bool Laden(Kern& kern, const Gruppendatei& form, GroupTable& groups) {
    RecordFile file(form.Layout);
    const ReadStatus status = file.Laden(kern.Welt.Files, kern.DatPfad());
    if (status != ReadStatus::Ok) {
        return status == ReadStatus::Missing;
    }
    for (int n = 1; n <= GroupRecords; ++n) {
        GroupEntry& entry = groups[static_cast<std::size_t>(n)];
        entry = {};
        if (n >= form.First && n <= form.Last) {
            entry = {file.Text(n, form.Num), file.Text(n, form.Name), file.Text(n, form.Days), file.Text(n, form.Count),
                     file.Text(n, form.PbId)};
        }
    }
    return true;
}

bool Speichern(Kern& kern, const Gruppendatei& form, const GroupTable& groups) {
    RecordFile file(form.Layout);
    if (file.Laden(kern.Welt.Files, kern.DatPfad()) == ReadStatus::Error) {
        return false;
    }
    for (int n = 1; n <= GroupRecords; ++n) {
        const GroupEntry& entry = groups[static_cast<std::size_t>(n)];
        std::string record;
        Feld_Schreiben(record, form.Num, entry.Num);
        Feld_Schreiben(record, form.Name, LTrim(entry.Name));
        Feld_Schreiben(record, form.Days, entry.Days);
        Feld_Schreiben(record, form.Count, entry.Count);
        Feld_Schreiben(record, form.PbId, entry.PbId);
        file.SetRecord(n, record);
    }
    return file.Speichern(kern.Welt.Files, kern.DatPfad());
}

void Zeigen(const GroupTable& groups, Grid& grid, int rows) {
    for (int row = 1; row <= rows; ++row) {
        const GroupEntry& entry = groups[static_cast<std::size_t>(row)];
        grid.SetText(row, GroupColumn::Number, Ziffern(row));
        grid.SetText(row, GroupColumn::Name, entry.Name);
        grid.SetText(row, GroupColumn::SlotCount, entry.Count);
        grid.SetText(row, GroupColumn::Days, entry.Days);
        grid.SetText(row, GroupColumn::PbId, entry.PbId);
    }
}

} // namespace

void FesteGruppen_Setzen(GroupTable& groups) {
    groups[1] = {"1", "Timer-A", "XXXXX-----", "5", TimerA_PbId};
    groups[2] = {"2", "Timer-B", "-----XXXXX", "5", TimerB_PbId};
}

GroupTable PersonGruppen_Vorgabe() {
    GroupTable groups;
    FesteGruppen_Setzen(groups);
    return groups;
}

bool PersonGruppen_Laden(Kern& kern, GroupTable& groups) {
    const bool good = Laden(kern, Personen, groups);
    FesteGruppen_Setzen(groups);
    return good;
}

bool PersonGruppen_Laden(Kern& kern, GroupTable& groups, Grid& grid) {
    const bool good = PersonGruppen_Laden(kern, groups);
    Zeigen(groups, grid, PersonGroupRows);
    return good;
}

bool PersonGruppen_Speichern(Kern& kern, const GroupTable& groups) {
    return Speichern(kern, Personen, groups);
}

bool SperrGruppen_Laden(Kern& kern, GroupTable& groups, Grid& grid) {
    const bool good = Laden(kern, Sperren, groups);
    Zeigen(groups, grid, LockGroupRows);
    return good;
}

bool SperrGruppen_Speichern(Kern& kern, const GroupTable& groups) {
    return Speichern(kern, Sperren, groups);
}

std::string PbId_Neu(const Kern& kern) {
    return std::string(IdStart) + Ziffern(Sekunden_Seit_2000(kern.Welt.Now()));
}

void PbId_Sichern(const Kern& kern, GroupEntry& group) {
    if (!group.PbId.starts_with(IdStart)) {
        group.PbId = PbId_Neu(kern);
    }
}

} // namespace qvm
