#pragma once

#include "FileTrouble.h"
#include "LockTable.h"

#include <span>
#include <string>
#include <vector>

/// Loading the lock table. Each routine reads one file. It gives false on a file error and leaves its columns as they
/// were; where a save would then lose what the file may hold, the table is marked as failed.
namespace qvm {

struct Kern;

/// Fills the table as the window does when it opens: columns cleared, offsets, lock groups, the lock's group, priority,
/// EMI, names and serials, unit types, adapter list, the lock's adapter, door mode. Clears LockDirty. A file error ends
/// only the routine of that file.
/// @param found names of the adapters that the port search found
/// @param unread gets the files that could not be read; nullptr: nobody asks
bool F12_Laden(Kern& kern, LockTable& table, std::span<const std::string> found,
               std::vector<FileTrouble>* unread = nullptr);

/// Writes the heading, texts and pictures.
void F12_Ueberschriften(const Kern& kern, LockTable& table);
/// Empties all cells and writes the heading and the lock numbers.
void F12_SpaltenLeeren(const Kern& kern, LockTable& table);

/// C64UX12H3D.EBW: name, serial, switches and offset group. An offset identifier that no entry of the offset table has,
/// and a blank one, show nothing. The offset table must stand.
bool Tuereinstellung_laden(Kern& kern, LockTable& table);
/// CPRT88X3FDA.PRT: column 9. "3" without a file or a value.
bool Prioritaet_Laden(Kern& kern, LockTable& table);
/// LSOEMIPART.LMT: column 10. Not applicable without a file.
bool Emi_Laden(Kern& kern, LockTable& table);
/// SBSCLKZU.SB1: column 12, the present name of the group with the stored identifier, else "-". GroupTableLock must
/// stand.
bool SchlossZeitGruppe_Laden(Kern& kern, LockTable& table);
/// LOCKCLASSCOMX.CMB: columns 13 and 14 of the rows with a serial, red unless the port search found the adapter's name.
bool SchlossAdapter_Laden(Kern& kern, LockTable& table, std::span<const std::string> found);
/// DOOR1MODEDT.DTA: columns 17 and 18, where the record's serial is the row's.
bool Tuermodus_Laden(Kern& kern, LockTable& table);

// Files of others.

/// T4OFFSETGST.FST: records 1 to 4. A blank identifier of record n counts as "OFST0x0n", whether the record was saved
/// blank or is not there.
bool Offsetnamen_Laden(Kern& kern, LockTable& table);
/// TIMGRP44T8_S.SBS: records 1 to 5 into GroupTableLock; entries 6 to 8 are empty.
bool Schlossgruppen_Laden(Kern& kern, LockTable& table);
/// T6WRSSISN.TSD: column 11, the first three letters of `Line::UnitTA`, `UnitAE` or `UnitSTE`, or " - ".
bool UnitTypen_Laden(Kern& kern, LockTable& table);
/// COMSETUPADAPTER.ADP: the used ones of records 1 to 19. One whose name begins "ENROLLMENT1" serves no lock and shows
/// as " - "; without one, " - " is put in front.
bool AdapterAuswahl_Laden(Kern& kern, LockTable& table);

} // namespace qvm
