#pragma once

#include "UserTable.h"

#include <string>
#include <string_view>

namespace qvm {

struct Kern;

/// Fills the table as the window does when it opens: lock names, then users, then the colours of the keys, which look
/// at the users' keys. False when a file could not be read.
bool F5_TabelleLaden(Kern& kern, UserTable& table);

/// Lock names of C64UX12H3D.EBW, upright, into row 0, and the length of the longest. A missing file has no names.
/// False on a file error; the row stays as it was and the table is marked as failed.
bool F5_SchloesserLaden(Kern& kern, UserTable& table);

/// Users of BX10X52WUJ9.UBW into rows 2 to 251. Nothing happens when the file is missing. A mark for a lock without a
/// name is dropped, so the lock names must stand. A group identifier that no entry has shows as "-".
/// False on a file error; the rows stay as they were and the table is marked as failed.
bool F5_Laden(Kern& kern, UserTable& table);

/// Colours column 6 by RFCHANDIF12.RFX: red for an E-Key whose channel differs from the target channel. Transponders,
/// and keys without a target channel, are never red. A missing file makes all black. False on a file error.
bool F5_KanalFarben(Kern& kern, UserTable& table);

/// Writes a lock's name (1 to 200) upright into row 0. An empty name empties the cell.
void Grup_Name(UserTable& table, int lock, std::string_view name);

/// The name of the lock of the column, level again; empty when the lock has none.
std::string Schlossname(const Grid& users, int column);

/// Height of row 0 in twips: 200 a character of the longest lock name, at least 2000.
int F5_KopfHoehe(const UserTable& table);

} // namespace qvm
