#pragma once

#include "FileTrouble.h"
#include "Record.h"

#include <optional>
#include <string>
#include <string_view>

namespace qvm {

/// Whether the bytes of a record file are such as a writer leaves: whole records, as many as the layout's Least, and in
/// each field only bytes that some writer puts there. Gaps of 0x00 are left by writers of single records; a wholly
/// empty record in a file that is written as a whole is none of theirs. Says what is wrong first, nothing when all is
/// well. Values are not judged.
std::optional<FileTrouble> Satzdatei_Pruefen(const RecordLayout& layout, std::string_view bytes);

/// The same of the file on the disk. A missing file is no trouble, one that cannot be read is.
std::optional<FileTrouble> Satzdatei_Pruefen(const RecordLayout& layout, const FileStore& files,
                                             const std::string& directory);

} // namespace qvm
