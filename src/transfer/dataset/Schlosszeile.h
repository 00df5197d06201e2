#pragma once

#include "Kern.h"

#include <string>
#include <string_view>

/// Which lock is meant: on a street of two hundred doors "the device cannot be reached" says nothing.
namespace qvm {

/// "Lock 3: Serverraum", in the language in use. Empty for a number below 1.
std::string Schloss_Zeile(const Kern& kern, int number, std::string_view name);

/// A message box that names below its text what it is about.
Answer Meldung_Zu(const Kern& kern, std::string about, std::string_view text, Buttons choice = Buttons::Ok,
                  Icon sign = Icon::None, std::string_view title = SystemTitle, int defaultButton = 1);

} // namespace qvm
