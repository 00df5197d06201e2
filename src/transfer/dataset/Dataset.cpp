#include "Dataset.h"

#include "DatensatzStand.h"
#include "Modelle.h"
#include "Text.h"

namespace qvm {
namespace {

constexpr int ProgressWhileEmpty = 20;
constexpr int ProgressOfRun = 4000;

std::uint8_t Schalter(std::string_view cell) {
    return Trim(cell).empty() ? 0 : 1;
}

int Status(DatasetEnd end, DatasetVariant variant) {
    if (end == DatasetEnd::Good) {
        return DatasetStatus::Good;
    }
    if (variant == DatasetVariant::Direct) {
        return DatasetStatus::Stopped;
    }
    switch (end) {
    case DatasetEnd::TooManyUsers:
        return DatasetStatus::TooManyUsers;
    case DatasetEnd::TooManyPremium:
        return DatasetStatus::TooManyPremium;
    case DatasetEnd::NoTemplate:
        return DatasetStatus::NoTemplate;
    case DatasetEnd::Good:
    case DatasetEnd::Other:
        break;
    }
    return DatasetStatus::Other;
}

void Schalter_Setzen(const LockRow& row, LockValues& values) {
    values.FlagLockTimer = Schalter(row.LockTimer);
    values.FlagCalendar = Schalter(row.CalendarFlag);
    values.FlagSetClock = Schalter(row.SetClock);
}

DatasetEnd Schritte(DatasetStand& stand) {
    std::string group, selection;
    if (!QVM_SbGruppenz_laden(stand, group) || !QVM_SbGruppe_Laden(stand, group, selection)) {
        return DatasetEnd::Other;
    }
    stand.dataset.Values.TimerMode = TimerPB_UT;
    if (!Schaltuhr_Laden(stand, selection)) {
        return DatasetEnd::Other;
    }
    Schalter_Setzen(stand.row, stand.dataset.Values);
    stand.dataset.ProgressTotal = ProgressWhileEmpty;
    if (const DatasetEnd end = Benutzer_Laden(stand); end != DatasetEnd::Good) {
        return end;
    }
    if (!Vorgaben_Laden(stand) || !DeviceParameter_Laden(stand) || !Kalender_Laden(stand)) {
        return DatasetEnd::Other;
    }
    stand.dataset.ProgressStored = stand.dataset.ProgressTotal;
    stand.dataset.ProgressTotal = ProgressOfRun;
    return DatasetEnd::Good;
}

} // namespace

bool Datei_Lesen(const DatasetStand& stand, RecordFile& file) {
    return file.Laden(stand.kern.Welt.Files, stand.kern.DatPfad()) != ReadStatus::Error;
}

int Datensatz_Laden(const Kern& kern, Dataset& dataset, const LockRow& row, DatasetVariant variant) {
    dataset = Dataset{};
    Address address{};
    const bool good = Einstellung_AEsn(row.Serial, address) != SerialError;
    const bool inTable = row.Number >= 1 && row.Number < kern.Globals.LockRows;
    if (!good || !inTable) {
        return Status(DatasetEnd::Other, variant);
    }
    const auto serial = Serie_Zahl(address);
    dataset.MaxUser = MaxUserAnz(serial);
    DatasetStand stand{kern, dataset, row, variant, serial};
    return Status(Schritte(stand), variant);
}

} // namespace qvm
