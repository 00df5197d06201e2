#pragma once

#include "Berichtsmenue.h"

#include <QString>

#include <functional>

class QMenu;

namespace qvm::ui {

/// Adds the reports of a window to its menu: "<name>.Sichern" with the entries "<name>.Sichern1" and so on, one for
/// each of them, and likewise "<name>.Drucken". Where there is one only, that entry alone.
void addReports(QMenu* menu, Berichtsmenue& reports, const QString& name,
                const std::function<void(ReportKind, ReportWay)>& onReport);

} // namespace qvm::ui
