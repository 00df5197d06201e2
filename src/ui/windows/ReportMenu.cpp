#include "ReportMenu.h"

#include "Bind.h"
#include "Mnemonics.h"

#include <QMenu>

namespace qvm::ui {
namespace {

void addWay(QMenu* menu, Berichtsmenue& reports, MenuEntry& way, MenuEntry ReportEntry::*entryOf, const QString& name,
            const std::function<void(ReportKind)>& onReport) {
    if (reports.Berichte.size() == 1) {
        addMenuEntry(menu, way, name, [onReport, kind = reports.Berichte.front().Kind] { onReport(kind); });
        return;
    }
    QMenu* below = addMenu(menu, way, name);
    int number = 0;
    for (ReportEntry& entry : reports.Berichte) {
        addMenuEntry(below, entry.*entryOf, name + QString::number(++number),
                     [onReport, kind = entry.Kind] { onReport(kind); });
    }
    uniqueMnemonics(below);
}

} // namespace

void addReports(QMenu* menu, Berichtsmenue& reports, const QString& name,
                const std::function<void(ReportKind, ReportWay)>& onReport) {
    addWay(menu, reports, reports.Sichern, &ReportEntry::Entry, name + QStringLiteral(".Sichern"),
           [onReport](ReportKind kind) { onReport(kind, ReportWay::Pdf); });
    addWay(menu, reports, reports.Drucken, &ReportEntry::Printed, name + QStringLiteral(".Drucken"),
           [onReport](ReportKind kind) { onReport(kind, ReportWay::Printer); });
}

} // namespace qvm::ui
