#pragma once

#include "Grid.h"
#include "GroupTable.h"
#include "TimeRecords.h"

#include <string>

/// Groups of weekly slots: seven of persons, the first two fixed, and five of locks. A group's table entry and its grid
/// row have the same number.
namespace qvm {

struct Kern;

/// Columns of a group grid. The last two are hidden.
namespace GroupColumn {
inline constexpr int Number = 0, Name = 1, SlotCount = 2, Days = 3, PbId = 4, Count = 5;
}
inline constexpr int PersonGroupRows = 7, LockGroupRows = LockTimeGroup::LastUsed;

/// Identifiers of the fixed groups.
inline constexpr char TimerA_PbId[] = "PB_2008TimA", TimerB_PbId[] = "PB_2008TimB";

/// Sets entry 1 to "Timer-A", slots 1 to 5, and entry 2 to "Timer-B", slots 6 to 10.
void FesteGruppen_Setzen(GroupTable& groups);
/// The table of person groups as it stands before a file is read: the two fixed groups, the rest empty.
GroupTable PersonGruppen_Vorgabe();

/// TIMGRP33T7.PBG: records 2 to 7 into entries 2 to 7, then the fixed groups, whatever the file holds. A missing file
/// leaves the other entries as they are. The eighth entry is empty. False on a file error: the entries are as they
/// were, which must not be saved; the fixed groups stand all the same.
bool PersonGruppen_Laden(Kern& kern, GroupTable& groups);
/// The same, and shows the groups in rows 1 to 7.
bool PersonGruppen_Laden(Kern& kern, GroupTable& groups, Grid& grid);
/// Writes entries 1 to 8 as records 1 to 8, all or nothing; what a longer file holds behind them stays. Follows every
/// save of the person slots. False on a file error: the file is as it was.
bool PersonGruppen_Speichern(Kern& kern, const GroupTable& groups);

/// TIMGRP44T8_S.SBS: records 1 to 5 into entries 1 to 5 and rows 1 to 5; entries 6 to 8 are empty. None is fixed.
/// Nothing happens when the file is missing. False on a file error: as above.
bool SperrGruppen_Laden(Kern& kern, GroupTable& groups, Grid& grid);
/// As PersonGruppen_Speichern, after every save of the lock slots.
bool SperrGruppen_Speichern(Kern& kern, const GroupTable& groups);

/// Identifier of a group named at this moment: "PB_" and the whole seconds since 01.01.2000, local time.
std::string PbId_Neu(const Kern& kern);
/// Gives the group an identifier unless it has one. One that begins "PB_" stays for ever, through every new name.
void PbId_Sichern(const Kern& kern, GroupEntry& group);

} // namespace qvm
