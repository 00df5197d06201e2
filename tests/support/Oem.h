#pragma once

#include <string>
#include <string_view>

namespace qvm::test {

/// Code page 1252 to OEM code page 850 and back, for ASCII and the letters of German, French and Dutch. Every other
/// character becomes "?". Source: unicode.org, MAPPINGS/VENDORS/MICSFT/PC/CP850.TXT.
std::string Nach_Oem(std::string_view text);
std::string Von_Oem(std::string_view text);

} // namespace qvm::test
