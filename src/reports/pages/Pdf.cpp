#include "Pdf.h"

#include "PdfBuch.h"

#include <array>

namespace qvm {
namespace {

constexpr HPDF_REAL RuleWidth = 0.5F; // points

HPDF_REAL Punkte(Milli length) {
    return static_cast<HPDF_REAL>(length) / 1000;
}

void Seite_Zeichnen(PdfBuch& book, const ReportPage& page) {
    HPDF_Page sheet = HPDF_AddPage(book.Document());
    HPDF_Page_SetSize(sheet, HPDF_PAGE_SIZE_A4, HPDF_PAGE_PORTRAIT);
    HPDF_Page_SetLineWidth(sheet, RuleWidth);
    for (const PageRule& rule : page.Rules) {
        HPDF_Page_MoveTo(sheet, Punkte(rule.X), Punkte(PageHeight - rule.Y));
        HPDF_Page_LineTo(sheet, Punkte(rule.X + rule.Width), Punkte(PageHeight - rule.Y));
        HPDF_Page_Stroke(sheet);
    }
    HPDF_Page_BeginText(sheet);
    for (const PageText& text : page.Texts) {
        HPDF_Page_SetFontAndSize(sheet, book.Font(text.Bold), static_cast<HPDF_REAL>(text.Size));
        HPDF_Page_TextOut(sheet, Punkte(text.X), Punkte(PageHeight - text.Y), text.Text.c_str());
    }
    HPDF_Page_EndText(sheet);
}

std::string Bytes(PdfBuch& book) {
    HPDF_SaveToStream(book.Document());
    HPDF_ResetStream(book.Document());
    std::string bytes;
    std::array<HPDF_BYTE, 65536> part;
    while (book.Good()) {
        auto size = static_cast<HPDF_UINT32>(part.size());
        HPDF_ReadFromStream(book.Document(), part.data(), &size);
        if (size == 0) {
            break;
        }
        bytes.append(reinterpret_cast<const char*>(part.data()), size);
    }
    return bytes;
}

} // namespace

std::optional<std::string> Pdf_Text(const ReportPages& pages) {
    PdfBuch book;
    HPDF_SetInfoAttr(book.Document(), HPDF_INFO_TITLE, pages.Title.c_str());
    HPDF_SetInfoAttr(book.Document(), HPDF_INFO_PRODUCER, pages.System.c_str());
    for (const ReportPage& page : pages.Pages) {
        Seite_Zeichnen(book, page);
    }
    std::string bytes = Bytes(book);
    return book.Good() ? std::optional(std::move(bytes)) : std::nullopt;
}

} // namespace qvm
