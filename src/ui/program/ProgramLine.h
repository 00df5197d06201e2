#pragma once

#include <QList>

class QCommandLineOption;
class QCommandLineParser;

namespace qvm::ui {

/// Declares the command line of `qvm7702` to `line`. Gives all its options, in the order of its help.
QList<QCommandLineOption> declareProgramLine(QCommandLineParser& line);

/// True when the operator asks to begin in the virtual building. `line`: declared so, and processed.
bool beginsInTheBuilding(const QCommandLineParser& line);

} // namespace qvm::ui
