#pragma once

#include "Blattplan.h"
#include "LockTable.h"

#include <string_view>
#include <vector>

/// Taking a spreadsheet into the lock table. See docs/decisions/spreadsheets.md.
namespace qvm {

struct Kern;

/// The columns of a sheet of locks: number, name, serial number, the five switches, priority and EMI; the wireless unit
/// and those of the export without data may stand there, but nothing is taken from them.
std::vector<Blattspalte> F12_Blattspalten(const Kern& kern);

/// What a sheet changes in the table. A row of the sheet is that of the lock with its number; without one that with its
/// serial number, and where no lock has that, the one with its name; any other is a new lock in the first free row.
/// Locks that the sheet lacks stay. Values go by the rules of what is typed. Nothing is changed here.
Blattplan F12_Blatt_Planen(const Kern& kern, const LockTable& table, std::string_view bytes);

/// Does the steps of a plan that was made of this very table. Refused ones are left out.
void F12_Blatt_Anwenden(LockTable& table, const Blattplan& plan);

/// The rows that get another serial number by the plan: of each it must be noted that its channel is to be changed.
std::vector<int> F12_Blatt_Serien(const Blattplan& plan);

} // namespace qvm
