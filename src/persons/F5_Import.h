#pragma once

#include "Blattplan.h"
#include "UserTable.h"

#include <string_view>
#include <vector>

/// Taking a spreadsheet into the user table. See docs/decisions/spreadsheets.md.
namespace qvm {

struct Kern;

/// The columns of a sheet of users: number, name, group, right, designation, and the locks by their number; code, key
/// and finger may stand there, but nothing is taken from them.
std::vector<Blattspalte> F5_Blattspalten(const Kern& kern);

/// What a sheet changes in the table, which must be loaded with the names of the locks and groups. A row of the sheet
/// is that of the user with its number, or without one with its name; any other name is a new user in the first free
/// row. Users that the sheet lacks stay. Values go by the rules of what is typed. Nothing is changed here.
Blattplan F5_Blatt_Planen(const Kern& kern, const UserTable& table, std::string_view bytes);

/// Does the steps of a plan that was made of this very table. Refused ones are left out.
void F5_Blatt_Anwenden(UserTable& table, const Blattplan& plan);

} // namespace qvm
