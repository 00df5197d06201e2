#pragma once

class QWidget;

namespace qvm::ui {

/// Gives every entry of a menu or menu bar a mnemonic of its own, as far as its letters reach: the first letter of a
/// word where it is free, else any letter or digit. Follows later changes of the entries and their texts by itself.
void uniqueMnemonics(QWidget* menu);

} // namespace qvm::ui
