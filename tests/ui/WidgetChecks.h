#pragma once

#include <QStringList>

class QWidget;

/// What holds of every window. Each check gives the offenders, so that an empty list is the good case.
namespace qvm::test {

/// Visible labels, buttons, lists and column headings whose text does not fit by font metrics: name and text. Widgets
/// with the property "elides" cut their text themselves and count as fitting.
QStringList allTextsFit(QWidget* window);

/// Object names in the order in which Tab reaches them, from the first until one comes again. The window must be
/// visible. At most 200.
QStringList tabOrder(QWidget* window);

/// Visible, enabled controls that Tab should reach: object names. Of a group of options only the chosen one.
QStringList controlsOf(QWidget* window);

/// Visible controls and progress bars whose accessible name is empty, the object name or the program's, and such with
/// an icon but neither text nor tool tip.
QStringList unnamedControls(QWidget* window);

/// Mnemonics that a menu or menu bar gives twice, and entries that have none.
QStringList doubtfulMnemonics(const QWidget* menu);

} // namespace qvm::test
