#include "UnitSettings.h"

#include "Kern.h"
#include "Record.h"
#include "Text.h"
#include "UnitRecords.h"
#include "Units.h"

#include <array>

namespace qvm {

namespace {

constexpr int FirstRow = 1, LastRow = 5;

bool Ist_Schloss(int lock) {
    return lock >= WirelessUnitRecord::Record.First && lock <= WirelessUnitRecord::Record.Last;
}

/// What stands before a record is applied.
UnitSettings Vorgaben(const UnitRecord& record) {
    UnitSettings settings;
    settings.UnitMode = record.UnitMode;
    settings.AlwaysOn = "0";
    settings.ScanSignal = record.ScanSignal;
    settings.Hours = settings.Minutes = settings.Seconds = "00";
    settings.SignalFlag = "0";
    settings.RssiLevel = "000";
    return settings;
}

void Schwelle_Anwenden(UnitSettings& settings, const UnitRecord& record) {
    settings.RssiLevel = record.RssiLevel;
    settings.LevelEntry = Pegel_Eintrag(record.RssiLevel);
    settings.SignalChecked = record.SignalFlag == "1";
    settings.SignalFlag = settings.SignalChecked ? "1" : "0";
}

void Zeitfenster_Anwenden(UnitSettings& settings, const UnitRecord& record) {
    settings.Mode = 1;
    settings.TimeControls = true;
    settings.SignalControls = false;
    settings.Hours = record.Hours;
    settings.Minutes = record.Minutes;
    settings.Seconds = record.Seconds;
    settings.HourEntry = Zeit_Eintrag(record.Hours, LastListenHour);
    settings.MinuteEntry = Zeit_Eintrag(record.Minutes, LastListenMinute);
    settings.SecondEntry = Zeit_Eintrag(record.Seconds, LastListenMinute);
    settings.AlwaysOnChecked = record.AlwaysOn == "1";
    settings.AlwaysOn = settings.AlwaysOnChecked ? "1" : "0";
}

UnitSettings Einstellung(const UnitRecord& record) {
    UnitSettings settings = Vorgaben(record);
    if (record.UnitMode == "1") {
        settings.SignalControls = false;
    } else if (record.UnitMode == "2") {
        Schwelle_Anwenden(settings, record);
    } else if (record.UnitMode == "3") {
        Zeitfenster_Anwenden(settings, record);
    }
    return settings;
}

void Zeile_Fuellen(Grid& grid, int row, const Unit& unit) {
    grid.SetText(row, UnitColumn::Name, unit.Name);
    grid.SetText(row, UnitColumn::Serial, Sn_Verbinden(unit.Sn));
    grid.SetText(row, UnitColumn::Module, unit.Module);
    grid.SetText(row, UnitColumn::UnitNo, unit.UnitNo);
}

} // namespace

bool Units_Laden(const Kern& kern, int lock, UnitSettings& settings, Grid& FGK20) {
    RecordFile file(WirelessUnitRecord::Record);
    if (!Ist_Schloss(lock) || file.Laden(kern.Welt.Files, kern.DatPfad()) == ReadStatus::Error) {
        return false;
    }
    const UnitRecord record = Unit_Lesen(file.Record(lock));
    settings = Einstellung(record);
    for (int row = FirstRow; row <= LastRow; ++row) {
        Zeile_Fuellen(FGK20, row, record.Units[static_cast<std::size_t>(row) - 1]);
    }
    return true;
}

bool Units_Uebernehmen(UnitSettings& settings) {
    settings.UnitMode = settings.Mode == 1 ? "3" : "2";
    settings.Hours = Ziffern(settings.HourEntry);
    settings.Minutes = Ziffern(settings.MinuteEntry);
    settings.Seconds = Ziffern(settings.SecondEntry);
    settings.Reserved1 = "0";
    settings.ScanSignal = "00";
    if (!Units_Zeit_Gueltig(settings)) {
        return false;
    }
    if (settings.AlwaysOn == "9") {
        settings.AlwaysOn = "0";
    }
    return true;
}

bool Units_Zeit_Gueltig(const UnitSettings& settings) {
    const bool zero =
        Zahlwert(settings.Hours) == 0 && Zahlwert(settings.Minutes) == 0 && Zahlwert(settings.Seconds) == 0;
    return settings.UnitMode != "3" || !zero || settings.AlwaysOn == "1";
}

bool Units_Speichern(const Kern& kern, int lock, const UnitSettings& settings, const Grid& FGK20) {
    if (!Units_Zeit_Gueltig(settings) || !Ist_Schloss(lock)) {
        return false;
    }
    UnitRecord record{settings.UnitMode, settings.AlwaysOn, settings.Reserved1,  settings.ScanSignal, settings.Hours,
                      settings.Minutes,  settings.Seconds,  settings.SignalFlag, settings.RssiLevel,  {}};
    for (int row = FirstRow; row <= LastRow; ++row) {
        record.Units[static_cast<std::size_t>(row) - 1] = {
            FGK20.Text(row, UnitColumn::Name), Sn_Teilen(FGK20.Text(row, UnitColumn::Serial)),
            FGK20.Text(row, UnitColumn::Module), FGK20.Text(row, UnitColumn::UnitNo)};
    }
    return Satz_Schreiben(kern.Welt.Files, kern.DatPfad(), WirelessUnitRecord::Record, lock, Unit_Satz(record));
}

bool Unit_Kanal_Merken(const Kern& kern, int lock, std::string_view serial, int channel) {
    constexpr std::array unitNo{WirelessUnitRecord::UnitNo1, WirelessUnitRecord::UnitNo2, WirelessUnitRecord::UnitNo3,
                                WirelessUnitRecord::UnitNo4, WirelessUnitRecord::UnitNo5};
    RecordFile file(WirelessUnitRecord::Record);
    if (!Ist_Schloss(lock) || file.Laden(kern.Welt.Files, kern.DatPfad()) == ReadStatus::Error) {
        return false;
    }
    const std::string before = file.Record(lock);
    const UnitRecord units = Unit_Lesen(before);
    std::string record = before;
    for (std::size_t n = 0; n < unitNo.size(); ++n) {
        if (Sn_Verbinden(units.Units[n].Sn) == serial) {
            Feld_Schreiben(record, unitNo[n], Ziffern(channel));
        }
    }
    return record == before ||
           Satz_Schreiben(kern.Welt.Files, kern.DatPfad(), WirelessUnitRecord::Record, lock, record);
}

bool Unit_Name_Frei(const Grid& FGK20, int row, std::string_view name) {
    for (int other = FirstRow; other <= LastRow; ++other) {
        if (!name.empty() && other != row && FGK20.Text(other, UnitColumn::Name) == name) {
            return false;
        }
    }
    return true;
}

} // namespace qvm
