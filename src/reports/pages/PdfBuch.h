#pragma once

#include <hpdf.h>

namespace qvm {

/// A PDF document of libHaru with the two fonts of the reports. A call of the library that fails is remembered.
class PdfBuch {
public:
    PdfBuch();
    ~PdfBuch();
    PdfBuch(const PdfBuch&) = delete;
    PdfBuch& operator=(const PdfBuch&) = delete;

    HPDF_Doc Document() const { return document_; }
    /// Helvetica or Helvetica-Bold in code page 1252, both of which every reader of PDF has.
    HPDF_Font Font(bool bold) const { return bold ? bold_ : regular_; }
    /// No call has failed. What the document holds then is not to be used.
    bool Good() const { return good_; }

private:
    static void Misslungen(HPDF_STATUS, HPDF_STATUS, void* book) { static_cast<PdfBuch*>(book)->good_ = false; }

    bool good_ = true;
    HPDF_Doc document_;
    HPDF_Font regular_, bold_;
};

} // namespace qvm
