#pragma once

#include <array>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

namespace qvm::test {

/// A directory of its own for a test, removed with all it holds.
class TempDirectory {
public:
    TempDirectory() {
        std::string pattern = (std::filesystem::temp_directory_path() / "qvm-platform-XXXXXX").string();
        path_ = ::mkdtemp(pattern.data()) + std::string("/");
    }
    ~TempDirectory() {
        std::error_code ignored;
        std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ignored);
        std::filesystem::remove_all(path_, ignored);
    }
    TempDirectory(const TempDirectory&) = delete;
    TempDirectory& operator=(const TempDirectory&) = delete;

    /// With a separator at its end.
    const std::string& Path() const { return path_; }
    std::string operator/(std::string_view name) const { return path_ + std::string(name); }

private:
    std::string path_;
};

} // namespace qvm::test
