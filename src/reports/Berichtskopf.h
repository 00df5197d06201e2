#pragma once

#include "Berichtsdaten.h"
#include "Kern.h"
#include "Report.h"

#include <string>

namespace qvm {

/// A report without parts: title, program, moment, and the words that every page needs.
Report Berichtskopf(const Kern& kern, std::string title);

/// "Benutzer 3: Anna".
std::string Benutzerzeile(const Kern& kern, const ReportUser& user);

/// "E-Key" or "Transponder"; empty for none.
std::string Schluesselname(const Kern& kern, ReportKey key);

/// The key with its designation; empty for none.
std::string Schluesseltext(const Kern& kern, const ReportUser& user);

} // namespace qvm
