#pragma once

#include "Berichtsmenue.h"

#include <QString>

#include <functional>

class QMenu;

namespace qvm::ui {

/// Adds the reports of a window to its menu: "<name>.Sichern" with an entry for each of them, or that entry alone
/// where there is one only. They are named "<name>.Pdf1" and so on.
void addReports(QMenu* menu, Berichtsmenue& reports, const QString& name, const std::function<void(ReportKind)>& onPdf);

} // namespace qvm::ui
