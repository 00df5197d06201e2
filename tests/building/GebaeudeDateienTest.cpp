// The files of the virtual building: reads go through, nothing is ever written.

#include "Gebaeudedateien.h"

#include "MemoryFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace qvm::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Building_Files : ::testing::Test {
    MemoryFiles disk;
    Building_Files() { disk.Files = {{"/q/DAT/a", "AAAA"}, {"/q/HIST/h", "H"}, {"/q/QVM.DAT", "words"}, {"/x", "X"}}; }

    static std::string Read(const FileStore& store, const std::string& path) {
        std::string bytes = "?";
        const ReadStatus status = store.ReadAll(path, bytes);
        return status == ReadStatus::Ok ? bytes : status == ReadStatus::Missing ? "(missing)" : "(error)";
    }
};

TEST_F(Building_Files, are_those_of_the_installation_until_they_change_and_the_disk_stays) {
    const auto before = disk.Files;
    Gebaeudedateien files(disk.Store(), "/q/", Gebaeudedateien::Beginn::Kopie);
    const FileStore store = files.Store();
    EXPECT_EQ(Read(store, "/q/DAT/a"), "AAAA");
    EXPECT_TRUE(store.WriteAt("/q/DAT/a", 2, "xyz"));
    EXPECT_EQ(Read(store, "/q/DAT/a"), "AAxyz");
    EXPECT_TRUE(store.WriteAt("/q/DAT/new", 2, "z"));
    EXPECT_EQ(Read(store, "/q/DAT/new"), std::string("\0\0z", 3));
    EXPECT_TRUE(store.Append("/q/HIST/h", "i"));
    EXPECT_EQ(Read(store, "/q/HIST/h"), "Hi");
    EXPECT_TRUE(store.Replace("/q/DAT/b", "B"));
    EXPECT_TRUE(store.Flush("/q/DAT/b"));
    EXPECT_THAT(store.List("/q/DAT"), ElementsAre("a", "b", "new"));
    EXPECT_TRUE(store.Remove("/q/DAT/a"));
    EXPECT_FALSE(store.Remove("/q/DAT/a"));
    EXPECT_FALSE(store.Datei_Vorhanden("/q/DAT/a"));
    EXPECT_EQ(Read(store, "/q/DAT/a"), "(missing)");
    EXPECT_THAT(store.List("/q/DAT/"), ElementsAre("b", "new"));
    EXPECT_EQ(disk.Files, before);
}

TEST_F(Building_Files, outside_of_the_installation_can_be_read_and_never_written) {
    const auto before = disk.Files;
    for (const auto begin : {Gebaeudedateien::Beginn::Kopie, Gebaeudedateien::Beginn::Leer}) {
        Gebaeudedateien files(disk.Store(), "/q/", begin);
        const FileStore store = files.Store();
        EXPECT_EQ(Read(store, "/q/QVM.DAT"), "words");
        EXPECT_EQ(Read(store, "/x"), "X");
        for (const char* path : {"/x", "/q/QVM.DAT", "/q/DATA/x", "/y", ""}) {
            EXPECT_FALSE(store.Replace(path, "1")) << path;
            EXPECT_FALSE(store.WriteAt(path, 0, "1")) << path;
            EXPECT_FALSE(store.Append(path, "1")) << path;
            EXPECT_FALSE(store.Remove(path)) << path;
            EXPECT_FALSE(store.Flush(path)) << path;
        }
        EXPECT_FALSE(store.MakeDirectory("/q/OTHER"));
        EXPECT_TRUE(store.MakeDirectory("/q/DAT"));
        EXPECT_TRUE(store.MakeDirectory("/q/HIST"));
    }
    EXPECT_EQ(disk.Files, before);
    EXPECT_THAT(disk.Directories, IsEmpty());
}

TEST_F(Building_Files, of_an_empty_building_are_none_of_the_installation) {
    Gebaeudedateien files(disk.Store(), "/q/", Gebaeudedateien::Beginn::Leer);
    const FileStore store = files.Store();
    EXPECT_EQ(Read(store, "/q/DAT/a"), "(missing)");
    EXPECT_FALSE(store.Datei_Vorhanden("/q/HIST/h"));
    EXPECT_THAT(store.List("/q/DAT"), IsEmpty());
    EXPECT_TRUE(store.WriteAt("/q/DAT/a", 0, "1"));
    EXPECT_EQ(Read(store, "/q/DAT/a"), "1");
}

TEST_F(Building_Files, a_file_that_cannot_be_read_is_not_taken_for_empty) {
    Gebaeudedateien files(disk.Store(), "/q/", Gebaeudedateien::Beginn::Kopie);
    const FileStore store = files.Store();
    disk.FailAt = disk.Operations + 1;
    EXPECT_FALSE(store.Append("/q/DAT/a", "1"));
    EXPECT_EQ(Read(store, "/q/DAT/a"), "AAAA");
}

TEST_F(Building_Files, a_wild_offset_is_refused) {
    Gebaeudedateien files(disk.Store(), "/q/", Gebaeudedateien::Beginn::Kopie);
    const FileStore store = files.Store();
    EXPECT_FALSE(store.WriteAt("/q/DAT/a", ~std::uint64_t{0}, "1"));
    EXPECT_FALSE(store.WriteAt("/q/DAT/a", std::uint64_t{1} << 40U, "1"));
    EXPECT_EQ(Read(store, "/q/DAT/a"), "AAAA");
}

} // namespace
} // namespace qvm::test
