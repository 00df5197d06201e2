#pragma once

#include "Inhalt.h"
#include "PosixFiles.h"
#include "TempDirectory.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace qvm::test {

/// The store of real files, and what the disk holds seen past it.
class FilesFixture : public testing::Test {
protected:
    static void Put(const std::string& path, const std::string& bytes) {
        std::ofstream(path, std::ios::binary) << bytes;
    }

    static std::string Held(const std::string& path) { return Inhalt(path); }

    /// All names in the directory, hidden ones, too.
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(Directory.Path())) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    TempDirectory Directory;
    const FileStore Files = PosixFiles();
};

} // namespace qvm::test
