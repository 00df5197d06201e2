#pragma once

class QComboBox;

namespace qvm::ui {

/// An entry of the open list of `box` that is selected through the accessible tree is chosen, as by a click on it: the
/// list closes, and `activated` is told. Ends with the box, whose view must stay the same.
void chooseThroughTree(QComboBox* box);

} // namespace qvm::ui
