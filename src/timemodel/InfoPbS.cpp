#include "InfoPbS.h"

#include "Kern.h"
#include "Text.h"
#include "Zeitfenster.h"

namespace qvm {

namespace {

void Kopf_Schreiben(const Kern& kern, Grid& grid) {
    grid.Resize(1, SlotColumn::Count);
    grid.SetText(0, SlotColumn::Number, kern.Zeile(Line::Number));
    grid.SetText(0, SlotColumn::Day, kern.Zeile(Line::Day));
    grid.SetText(0, SlotColumn::From, kern.Zeile(Line::From));
    grid.SetText(0, SlotColumn::To, kern.Zeile(Line::To));
}

} // namespace

int InfoPbS_Anzeigen(const Kern& kern, const Grid& slots, const GroupTable& groups, bool editorOpen, int row,
                     InfoPbS& info) {
    if (row < 1 || static_cast<std::size_t>(row) >= groups.size() || editorOpen) {
        return -1;
    }
    const GroupEntry& group = groups[static_cast<std::size_t>(row)];
    info.Name.Text = std::string(LTrim(group.Name));
    info.Name.Visible = true;
    Grid& grid = info.FGK3i;
    Kopf_Schreiben(kern, grid);
    int shown = 0;
    for (int slot = 1; slot < slots.Rows(); ++slot) {
        if (Mid(group.Days, static_cast<std::size_t>(slot), 1) != "X") {
            continue;
        }
        ++shown;
        grid.Resize(shown + 1, SlotColumn::Count);
        grid.SetText(shown, SlotColumn::Number, Ziffern(shown));
        for (int column = SlotColumn::Day; column <= SlotColumn::To; ++column) {
            grid.SetText(shown, column, slots.Text(slot, column));
        }
    }
    grid.Visible = true;
    return shown;
}

} // namespace qvm
