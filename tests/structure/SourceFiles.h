#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace qvm::test {

/// A file of src/ or tests/, line by line.
struct Source {
    std::filesystem::path Path;
    std::string Folder; ///< below src/, or below tests/
    std::vector<std::string> Lines;

    std::string Name() const { return Path.filename().string(); }
};

/// Whether src/CMakeLists.txt makes a target of the folder, and whether that lets a file of `folder` include a header
/// of `target`.
bool FolderKnown(const std::string& folder);
bool MayInclude(const std::string& folder, const std::string& target);

/// Every .cpp and .h file of src/.
std::vector<Source> All();
/// Every .cpp and .h file of tests/.
std::vector<Source> AllTests();
/// The line without a comment and without the inside of its literals.
std::string Code(const std::string& line);
/// Where a line stands, counted from 0, as an editor takes it.
std::string At(const Source& source, std::size_t line);

} // namespace qvm::test
