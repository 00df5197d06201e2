#include "PdfBuch.h"

#include <new>

namespace qvm {

PdfBuch::PdfBuch() : document_(HPDF_New(Misslungen, this)) {
    if (document_ == nullptr) {
        throw std::bad_alloc(); // its only reason
    }
    regular_ = HPDF_GetFont(document_, "Helvetica", "WinAnsiEncoding");
    bold_ = HPDF_GetFont(document_, "Helvetica-Bold", "WinAnsiEncoding");
}

PdfBuch::~PdfBuch() {
    HPDF_Free(document_);
}

} // namespace qvm
