#pragma once

#include "Dataset.h"
#include "Record.h"
#include "Schlosszeile.h"

#include <cstdint>
#include <string_view>

/// The steps of Datensatz_Laden, in their order. Used by Dataset.cpp only.
namespace qvm {

/// How the assembly ended.
enum class DatasetEnd { Good, TooManyUsers, TooManyPremium, NoTemplate, Other };

/// What every step works on.
struct DatasetStand {
    const Kern& kern;
    Dataset& dataset;
    const LockRow& row;
    DatasetVariant variant;
    std::uint32_t serial; ///< the lock's serial as one number; its ranges name the model families

    bool Netzfenster() const { return variant != DatasetVariant::Direct; }
    void Melden(std::string_view text, Icon sign = Icon::None) const {
        if (Netzfenster()) {
            dataset.Notes.emplace_back(text);
        } else {
            Meldung_Zu(kern, Schloss_Zeile(kern, row.Number, row.Name), text, Buttons::Ok, sign);
        }
    }
};

/// Reads a data file. False on a file error; a missing file holds no record.
bool Datei_Lesen(const DatasetStand& stand, RecordFile& file);

/// Name of the lock's timer group, "-" without one. False on a file error.
bool QVM_SbGruppenz_laden(const DatasetStand& stand, std::string& group);
/// The five-character selection of that group, "X" for each slot that counts; empty for "-" and for a group that is not
/// there. False on a file error.
bool QVM_SbGruppe_Laden(const DatasetStand& stand, std::string_view group, std::string& selection);
/// Timer tables and timer mode. Says when the lock knows two timers only.
bool Schaltuhr_Laden(DatasetStand& stand, std::string_view selection);
/// Slots of all users with a mark for the lock.
DatasetEnd Benutzer_Laden(DatasetStand& stand);
/// Priority code and lock mode.
bool Vorgaben_Laden(DatasetStand& stand);
/// Reception setting and wireless units of the lock.
bool DeviceParameter_Laden(DatasetStand& stand);
/// Holiday tables.
bool Kalender_Laden(DatasetStand& stand);

} // namespace qvm
