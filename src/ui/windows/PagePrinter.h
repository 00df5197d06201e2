#pragma once

#include "Platform.h"

class QPainter;
class QRectF;

namespace qvm {
struct ReportPage;
}

namespace qvm::ui {

/// Draws a page, an A4 sheet, into the rectangle, as large as fits there. A text never runs wider than in the font that
/// the page was set for: where the PC has another one, it is drawn narrower.
void paintPage(QPainter& painter, const ReportPage& page, const QRectF& sheet);

/// Asks for a printer by the system's dialog, over the window in use, and prints what is chosen there of the pages.
/// Cancelled when the operator leaves the dialog; Failed when the printer, or the file that stands for it, takes no
/// page.
PrintResult printPages(const ReportPages& pages);

} // namespace qvm::ui
