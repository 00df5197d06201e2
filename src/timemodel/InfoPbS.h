#pragma once

#include "Controls.h"
#include "Grid.h"
#include "GroupTable.h"

namespace qvm {

struct Kern;

/// The info grid of a group: which slots make it up.
struct InfoPbS {
    Grid FGK3i{1, 4}; ///< row 0 is the header; columns as in a slot grid
    Label Name;       ///< of the group
};

/// Shows the slots of the group in a row of the group grid: name in the label, a row for each slot that the group's map
/// marks, numbered from 1 without gaps. Does nothing above row 1, behind row 8, or while the name editor or the slot
/// list is open.
/// @param editorOpen the name editor or the slot list is open
/// @param row        row of the group grid
/// @return rows shown, -1 when nothing was done
int InfoPbS_Anzeigen(const Kern& kern, const Grid& slots, const GroupTable& groups, bool editorOpen, int row,
                     InfoPbS& info);

} // namespace qvm
