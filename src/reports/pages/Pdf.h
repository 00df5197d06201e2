#pragma once

#include "Seiten.h"

#include <optional>
#include <string>

namespace qvm {

/// The pages as the bytes of a PDF document. Its fonts are two of those that every reader of PDF has, so that none is
/// part of it; its text can be searched and copied. Nothing when there is not memory enough for it.
std::optional<std::string> Pdf_Text(const ReportPages& pages);

} // namespace qvm
