// Which header a file may include.

#include "Inhalt.h"
#include "SourceFiles.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <string>
#include <vector>

namespace qvm::test {
namespace {

TEST(Sources, every_folder_belongs_to_a_target) {
    for (const Source& source : All()) {
        EXPECT_TRUE(FolderKnown(source.Folder)) << source.Path;
    }
}

TEST(Sources, every_folder_says_what_lives_there) {
    const std::string text = Inhalt(QVM_SOURCE_DIR "/src/README.md");
    for (const Source& source : All()) {
        EXPECT_NE(text.find("| `" + source.Folder + "` | "), std::string::npos) << source.Folder;
    }
}

TEST(Sources, the_walls_between_the_layers_stand_in_the_build) {
    const std::map<std::string, std::vector<std::string>> walls{
        {"core", {"records", "link", "locks", "platform", "simulator"}},
        {"records", {"link", "locks", "persons", "timemodel", "units", "transfer", "console"}},
        {"datafiles", {"link", "locks", "persons", "transfer", "programm", "platform", "console"}},
        {"link", {"records", "locks", "persons", "transfer", "windows/adapters"}},
        {"locks", {"link", "persons", "timemodel", "units", "transfer"}},
        {"timemodel", {"link", "locks", "persons"}},
        {"transfer", {"windows/transfer", "programm", "platform"}},
        {"programm", {"platform", "simulator", "console", "ui"}},
        {"platform", {"link", "records", "programm", "ui"}},
        {"simulator", {"link", "records", "locks", "transfer", "programm", "platform"}},
        {"console", {"ui", "simulator"}},
        {"ui", {"platform", "console", "simulator"}},
        {"ui/kit", {"link", "records", "transfer", "programm", "ui", "ui/windows"}},
    };
    for (const auto& [folder, targets] : walls) {
        ASSERT_TRUE(FolderKnown(folder)) << folder;
        for (const std::string& target : targets) {
            EXPECT_TRUE(FolderKnown(target)) << target;
            EXPECT_FALSE(MayInclude(folder, target)) << folder << " may include " << target;
        }
    }
    EXPECT_TRUE(MayInclude("ui/program", "core")) << "what is used through another layer may be used directly";
}

TEST(Sources, an_include_never_points_upwards) {
    const auto sources = All();
    std::map<std::string, std::string> folderOf;
    for (const Source& source : sources) {
        folderOf[source.Path.filename().string()] = source.Folder;
    }
    static const std::regex include(R"re(^\s*#include\s+"([^"]+)")re");
    for (const Source& source : sources) {
        for (std::size_t n = 0; n < source.Lines.size(); ++n) {
            std::smatch match;
            if (!std::regex_search(source.Lines[n], match, include)) {
                continue;
            }
            const std::string name = match[1];
            ASSERT_TRUE(folderOf.contains(name)) << At(source, n) << ": " << name;
            const std::string& target = folderOf[name];
            EXPECT_TRUE(MayInclude(source.Folder, target)) << At(source, n) << " includes " << name << " of " << target;
        }
    }
}

TEST(Sources, an_include_never_takes_in_a_source_file) {
    static const std::regex include(R"re(#include\s+[<"].*\.cpp[>"])re");
    for (const Source& source : All()) {
        for (std::size_t n = 0; n < source.Lines.size(); ++n) {
            EXPECT_FALSE(std::regex_search(source.Lines[n], include)) << At(source, n);
        }
    }
}

} // namespace
} // namespace qvm::test
