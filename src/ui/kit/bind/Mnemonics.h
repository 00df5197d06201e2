#pragma once

#include "Controls.h"

#include <QString>

class QAbstractButton;
class QWidget;

namespace qvm::ui {

/// Gives every entry of a menu or menu bar a mnemonic of its own, as far as its letters reach: the first letter of a
/// word where it is free, else any letter or digit. Follows later changes of the entries and their texts by itself.
void uniqueMnemonics(QWidget* menu);

/// Lets a button that is bound to `model` be pressed with Alt and the first letter of its caption, whatever has the
/// keyboard.
void firstLetterMnemonic(Button& model, QAbstractButton* widget);

} // namespace qvm::ui
