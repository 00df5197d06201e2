#pragma once

#include "LockTable.h"

/// Saving the lock table. Each routine rewrites records 1 to 200 of one file, all or nothing; what a longer file holds
/// behind them stays. False on a file error, or when the table was not loaded completely: the file is then as it was.
namespace qvm {

struct Kern;

/// All six files, in the order of the routines below, and clears LockDirty. All are read before the first is written.
/// The first file that cannot be written ends the save, and those before it are written back as they were; where the
/// disk refuses that, too, they are new. LockDirty stays then.
bool F12_Speichern(Kern& kern, LockTable& table);

/// C64UX12H3D.EBW from columns 1, 2, 4 to 8 and 16.
bool Tuereinstellung_Speichern(Kern& kern, const LockTable& table);
/// CPRT88X3FDA.PRT from column 9; an empty priority is stored as "3".
bool Prioritaet_Speichern(Kern& kern, const LockTable& table);
/// LSOEMIPART.LMT from column 10.
bool Emi_Speichern(Kern& kern, const LockTable& table);
/// SBSCLKZU.SB1 from column 12; the identifier is looked up in GroupTableLock by the name, "-" when it is not there.
bool SchlossZeitGruppe_Speichern(Kern& kern, const LockTable& table);
/// LOCKCLASSCOMX.CMB from columns 13, 14 and 2; blank for a row without a serial.
bool SchlossAdapter_Speichern(Kern& kern, const LockTable& table);
/// DOOR1MODEDT.DTA from columns 17, 2 and 18.
bool Tuermodus_Speichern(Kern& kern, const LockTable& table);

} // namespace qvm
