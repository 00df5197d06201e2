#pragma once

#include "Grid.h"
#include "GroupTable.h"
#include "LockRecords.h"
#include "Pictures.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

/// Where the locks stand in FGK12: lock n in row n, record n of every file.
namespace LockGrid {
inline constexpr int FirstRow = 1, LastRow = LockRecord::Record.Last;
inline constexpr int Rows = LastRow + 1, Columns = 19;
} // namespace LockGrid

/// Columns of FGK12. Column 3 is never shown, 4 to 8 are the five switches.
namespace LockColumn {
inline constexpr int Number = 0, Name = 1, Serial = 2, FirstSwitch = 4, LastSwitch = 8, Priority = 9, Emi = 10,
                     UnitType = 11, Group = 12, AdapterId = 13, AdapterName = 14, Offset = 15, OffsetId = 16,
                     DoorMode = 17, DoorDays = 18;
constexpr bool IstSchalter(int column) {
    return column >= FirstSwitch && column <= LastSwitch;
}
} // namespace LockColumn

/// Texts that cells hold.
namespace LockText {
inline constexpr std::string_view DefaultPriority = "3", NoUnit = " - ",
                                  NoAdapter = " - ", ///< of a list; column 13 is empty then
    None = "-";                                      ///< no timer group; in lists also no offset, no door mode
} // namespace LockText

/// Looks of the cells.
namespace LockLook {
inline constexpr Colour Set = 0xFF0000;                    ///< priority and unit type: blue
inline constexpr Colour AdapterUnknown = 0x0000FF;         ///< red: the port search did not find the adapter
inline constexpr Colour AdapterFound = 0x800000;           ///< dark blue
inline constexpr Colour ListOpen = 0xC0FFFF;               ///< ground of a cell whose list is open
inline constexpr Colour SerialTwice = 0x80D0FF;            ///< ground of a serial number that another lock has, too
inline constexpr int PrioritySize = 16, UnitTypeSize = 12; ///< points
} // namespace LockLook

/// An offset group as locks refer to it.
struct OffsetEntry {
    std::string Name;
    std::string Id;

    bool operator==(const OffsetEntry&) const = default;
};

/// Entries 1 to 4; entry 0 is never used.
using OffsetTable = std::array<OffsetEntry, 5>;

/// An entry of the list from which a lock's adapter is chosen.
struct LockAdapter {
    std::string Text;    ///< as the list shows it; " - " is "no adapter"
    int Record = 0;      ///< of COMSETUPADAPTER.ADP; 0: made up
    std::string Adresse; ///< for column 13
    std::string Name;    ///< for column 14

    bool operator==(const LockAdapter&) const = default;
};

/// The lock table: the working copy of its six files. Load fills it, save writes every row.
struct LockTable {
    Grid FGK12{LockGrid::Rows, LockGrid::Columns};
    OffsetTable Offsets;
    GroupTable GroupTableLock;
    std::vector<LockAdapter> Adapters;
    bool AdapterSpalten = false; ///< columns 13 and 14 have a width: two adapters or more were found
    bool LockDirty = false;      ///< something is to be saved
    /// A load ended in a file error, so that the table lacks what the files may hold. It must not be saved.
    bool LoadFailed = false;
};

} // namespace qvm
