#include "PagePrinter.h"

#include "Seiten.h"
#include "TextEdge.h"

#include <QApplication>
#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>

#include <algorithm>

namespace qvm::ui {
namespace {

constexpr qreal MilliPerPoint = 1000;
constexpr qreal RuleWidth = 0.5; ///< points

qreal points(Milli length) {
    return length / MilliPerPoint;
}

/// The font of the reports, or what the PC has in its place, so that one unit of the painter is a point.
QFont reportFont(const PageText& text) {
    QFont font(QStringLiteral("Helvetica"));
    font.setStyleHint(QFont::SansSerif);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setPixelSize(text.Size);
    font.setBold(text.Bold);
    return font;
}

void paintText(QPainter& painter, const PageText& text) {
    const QFont font = reportFont(text);
    const QString words = toQt(text.Text);
    const qreal natural = QFontMetricsF(font).horizontalAdvance(words);
    const qreal meant = points(Textbreite(text.Text, text.Size, text.Bold));
    painter.save();
    painter.setFont(font);
    painter.translate(points(text.X), points(text.Y));
    if (natural > meant && meant > 0) {
        painter.scale(meant / natural, 1);
    }
    painter.drawText(QPointF(0, 0), words);
    painter.restore();
}

/// All pages from `first` on to `last`, counted from 1. False when the printer takes one of them no more.
bool print(QPrinter& printer, const ReportPages& pages, int first, int last) {
    QPainter painter;
    if (!painter.begin(&printer)) {
        return false;
    }
    const QRectF sheet(printer.pageLayout().fullRectPixels(printer.resolution()));
    for (int number = first; number <= last; ++number) {
        if (number > first && !printer.newPage()) {
            return false;
        }
        paintPage(painter, pages.Pages.at(static_cast<std::size_t>(number - 1)), sheet);
    }
    return painter.end() && printer.printerState() != QPrinter::Error && printer.printerState() != QPrinter::Aborted;
}

} // namespace

void paintPage(QPainter& painter, const ReportPage& page, const QRectF& sheet) {
    const qreal scale = std::min(sheet.width() / points(PageWidth), sheet.height() / points(PageHeight));
    painter.save();
    painter.setPen(QPen(Qt::black, RuleWidth));
    painter.translate(sheet.center());
    painter.scale(scale, scale);
    painter.translate(-points(PageWidth) / 2, -points(PageHeight) / 2);
    for (const PageRule& rule : page.Rules) {
        painter.drawLine(QPointF(points(rule.X), points(rule.Y)), QPointF(points(rule.X + rule.Width), points(rule.Y)));
    }
    for (const PageText& text : page.Texts) {
        paintText(painter, text);
    }
    painter.restore();
}

PrintResult printPages(const ReportPages& pages) {
    const int count = static_cast<int>(pages.Pages.size());
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setFullPage(true);
    printer.setDocName(toQt(pages.Title));
    printer.setCreator(toQt(pages.System));
    QPrintDialog dialog(&printer, QApplication::activeWindow());
    dialog.setMinMax(1, count);
    if (dialog.exec() != QDialog::Accepted) {
        return PrintResult::Cancelled;
    }
    // 0: all
    const int first = std::clamp(printer.fromPage() == 0 ? 1 : printer.fromPage(), 1, count);
    const int last = std::clamp(printer.toPage() == 0 ? count : printer.toPage(), first, count);
    return print(printer, pages, first, last) ? PrintResult::Printed : PrintResult::Failed;
}

} // namespace qvm::ui
