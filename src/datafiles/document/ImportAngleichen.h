#pragma once

#include "Import.h"

#include <string>
#include <string_view>

namespace qvm {

/// The bytes that an import is to leave of a file that holds `old`: what the document says, and the old bytes wherever
/// they say the same, as a field may be padded in more than one way. So the export of a directory, imported again,
/// changes no byte. What stands behind the last record that is read is kept, as by every save; what stands behind the
/// last line that is read, when the document brings that line. Of a file that would be damaged with its old bytes only
/// the document's are left.
std::string Import_Angleichen(const ImportFile& file, std::string_view old);

} // namespace qvm
