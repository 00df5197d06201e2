#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

enum class ReadStatus { Ok, Missing, Error };

/// All that the logic does with files, as one record of functions, so that a test can make operation n fail.
/// Paths are as the platform takes them. No function throws.
struct FileStore {
    /// True when a file of that name exists; any error counts as false.
    std::function<bool(const std::string& path)> Exists;
    /// The whole file in one read. `bytes` is empty unless the result is Ok.
    std::function<ReadStatus(const std::string& path, std::string& bytes)> ReadAll;
    /// The file holds exactly `bytes` afterwards (true) or what it held before (false): a sibling is written,
    /// flushed to the disk and renamed. Mode 0600.
    std::function<bool(const std::string& path, std::string_view bytes)> Replace;
    /// Overwrites `bytes` at `offset`; makes the file if it is missing and fills a gap with 0x00.
    std::function<bool(const std::string& path, std::uint64_t offset, std::string_view bytes)> WriteAt;
    /// Appends `bytes`; makes the file if it is missing.
    std::function<bool(const std::string& path, std::string_view bytes)> Append;
    std::function<bool(const std::string& path)> Remove;
    /// True when the directory exists afterwards.
    std::function<bool(const std::string& path)> MakeDirectory;
    /// Names of the plain files in a directory, sorted; empty when it cannot be read.
    std::function<std::vector<std::string>(const std::string& path)> List;
};

} // namespace qvm
