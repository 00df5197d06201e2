#pragma once

#include "FileStore.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace qvm {

struct Kern;

/// What is wrong with the contents of a file that could be read.
enum class FileDamage : std::uint8_t {
    None,
    CutRecord, ///< the last record is not whole
    TooShort,  ///< fewer records than every writer leaves
    BadRecord, ///< a record holds bytes that no writer makes
    CutLines,  ///< lines are missing, or the last one has no end
    BadLine,   ///< a line holds bytes that no writer makes, or is too long
};

/// A file that cannot be relied on: it could not be read, or it is damaged.
struct FileTrouble {
    std::string File{}; ///< name or path, code page 1252 or UTF-8 as the caller has it
    FileFault Fault = FileFault::None;
    FileDamage Damage = FileDamage::None;
    int Number = 0; ///< of the record or line, with BadRecord and BadLine

    bool operator==(const FileTrouble&) const = default;
};

/// Why the last ReadAll of `files` gave Error; Other when the store does not tell.
FileFault Lesefehler(const FileStore& files);

/// "NAME: what is wrong with it", without a full stop, in the language in use.
std::string FileTrouble_Text(const Kern& kern, const FileTrouble& trouble);
/// All of them as one text, joined by "; ".
std::string Dateimaengel_Text(const Kern& kern, std::span<const FileTrouble> troubles);
/// The same in English, for programs without a language.
std::string FileTrouble_English(const FileTrouble& trouble);
/// The reason alone, in English: "it is a pipe". Never empty.
std::string FileFault_English(FileFault fault);

} // namespace qvm
