#include "ProgramLine.h"

#include <QCommandLineParser>

namespace qvm::ui {

QList<QCommandLineOption> declareProgramLine(QCommandLineParser& line) {
    line.setApplicationDescription(QStringLiteral("Administration of electronic locks."));
    const QCommandLineOption building(QStringLiteral("building"),
                                      QStringLiteral("Begins in the virtual building, where nothing real is touched."));
    line.addOption(building);
    const QCommandLineOption help = line.addHelpOption();
    // Declared by the one before, which does not give it.
    const QCommandLineOption allHelp(QStringLiteral("help-all"),
                                     QStringLiteral("Displays help with the options of Qt."));
    return {building, help, allHelp, line.addVersionOption()};
}

bool beginsInTheBuilding(const QCommandLineParser& line) {
    return line.isSet(QStringLiteral("building"));
}

} // namespace qvm::ui
