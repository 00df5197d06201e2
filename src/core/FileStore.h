#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

enum class ReadStatus { Ok, Missing, Error };

/// Why a file could not be read.
enum class FileFault : std::uint8_t {
    None,
    NoRight,
    LinkLoop,      ///< a link that leads back to itself
    LinkToNothing, ///< a link whose target is not there
    Directory,
    Pipe,
    Device,
    Socket,
    TooManyOpen, ///< of this program or of the PC
    TooLarge,    ///< larger than any file of the system
    Broken,      ///< the disk reports an error
    Other,
};

/// All that the logic does with files, as one record of functions, so that a test can make operation n fail.
/// Paths are as the platform takes them. No function throws.
struct FileStore {
    /// True when a file of that name exists; any error counts as false.
    std::function<bool(const std::string& path)> Datei_Vorhanden;
    /// The whole file in one read. `bytes` is empty unless the result is Ok. Only plain files are read: a pipe or a
    /// device would keep the program waiting.
    std::function<ReadStatus(const std::string& path, std::string& bytes)> ReadAll;
    /// The file holds exactly `bytes` afterwards (true) or what it held before (false): a sibling is written,
    /// flushed to the disk and renamed. Mode 0600.
    std::function<bool(const std::string& path, std::string_view bytes)> Replace;
    /// Overwrites `bytes` at `offset`; makes the file if it is missing and fills a gap with 0x00.
    std::function<bool(const std::string& path, std::uint64_t offset, std::string_view bytes)> WriteAt;
    /// Appends `bytes`; makes the file if it is missing.
    std::function<bool(const std::string& path, std::string_view bytes)> Append;
    /// What was appended to the file, and its name in its directory, is on the disk afterwards, and outlives the PC
    /// (true). False when the disk said otherwise.
    std::function<bool(const std::string& path)> Flush;
    std::function<bool(const std::string& path)> Remove;
    /// True when the directory exists afterwards.
    std::function<bool(const std::string& path)> MakeDirectory;
    /// Names of everything in a directory but what is hidden, sorted; empty when it cannot be read. A name need not be
    /// that of a plain file.
    std::function<std::vector<std::string>(const std::string& path)> List;
    /// Why the last ReadAll gave Error; None after any other. May be empty: nothing more is known.
    std::function<FileFault()> LastFault = {};
    /// Removes what a Replace of one of the files `names`, or of a dated copy beside it, left behind in `directory`
    /// when its program was killed, and nothing that a living program is writing. May be empty.
    std::function<void(const std::string& directory, std::span<const std::string_view> names)> Sweep = {};
};

} // namespace qvm
