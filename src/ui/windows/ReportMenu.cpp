#include "ReportMenu.h"

#include "Bind.h"
#include "Mnemonics.h"

#include <QMenu>

namespace qvm::ui {

void addReports(QMenu* menu, Berichtsmenue& reports, const QString& name,
                const std::function<void(ReportKind)>& onPdf) {
    QMenu* save = addMenu(menu, reports.Sichern, name + QStringLiteral(".Sichern"));
    int number = 0;
    for (ReportEntry& entry : reports.Berichte) {
        addMenuEntry(save, entry.Pdf, name + QStringLiteral(".Pdf%1").arg(++number),
                     [onPdf, kind = entry.Kind] { onPdf(kind); });
    }
    uniqueMnemonics(save);
}

} // namespace qvm::ui
