// What is found of the PC itself, and the rights that are mended.

#include "PcLook.h"

#include "PathLook.h"
#include "PosixFiles.h"
#include "TempDirectory.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace qvm::test {
namespace {

unsigned ModeOf(const std::string& path) {
    struct stat info {};
    return ::stat(path.c_str(), &info) == 0 ? info.st_mode & 07777U : 0;
}

struct PcLook : testing::Test {
    void SetUp() override {
        std::filesystem::create_directory(Path + "DAT");
        std::ofstream(Path + "DAT/A.B") << "bytes";
        ::chmod((Path + "DAT/A.B").c_str(), 0640);
    }

    TempDirectory Directory;
    std::string Path = Directory.Path();
};

TEST_F(PcLook, takes_files_and_folders_down_with_their_rights) {
    const PcFacts facts = PcFacts_Look(Path, std::nullopt, {});
    const PathFacts file = facts.Paths.at("DAT/A.B");
    EXPECT_TRUE(file.There && file.Readable && file.Writable && file.Own && !file.Directory);
    EXPECT_EQ(file.Mode, 0640U);
    EXPECT_EQ(file.Owner, User_Name(::geteuid()));
    EXPECT_TRUE(facts.Paths.at("DAT").Directory);
    EXPECT_FALSE(facts.Paths.at("HIST").There);
    EXPECT_TRUE(facts.Paths.at("HIST").Told);
    EXPECT_TRUE(facts.FreeBytes.has_value());
    ASSERT_TRUE(facts.Newest.has_value());
    EXPECT_LE(*facts.Newest, facts.Now) << "it was just made";
    EXPECT_EQ(facts.NewestFile, "DAT/A.B");
}

TEST_F(PcLook, tells_a_port_that_is_not_there_from_one_that_is_none) {
    PcFacts facts = PcFacts_Look(Path, Path + "none", {1});
    ASSERT_EQ(facts.Ports.size(), 1U);
    EXPECT_FALSE(facts.Ports[0].There);
    facts = PcFacts_Look(Path, Path + "DAT/A.B", {1});
    EXPECT_TRUE(facts.Ports[0].There);
    EXPECT_FALSE(facts.Ports[0].Serial);
    facts = PcFacts_Look(Path, "/dev/null", {1});
    EXPECT_TRUE(facts.Ports[0].Serial && facts.Ports[0].Right);
    EXPECT_EQ(facts.Ports[0].Owner, "root");
    EXPECT_EQ(facts.Ports[0].Device, "/dev/null");
    EXPECT_FALSE(facts.Ports[0].LatencyMs.has_value());
}

TEST_F(PcLook, gives_the_owner_his_rights_and_takes_those_of_others) {
    const std::string file = Path + "DAT/A.B";
    ::chmod(file.c_str(), 0044);
    EXPECT_EQ(Path_Permit(file, 0600, 0007), "");
    EXPECT_EQ(ModeOf(file), 0640U);
    ::chmod((Path + "DAT").c_str(), 0500);
    EXPECT_EQ(Path_Permit(Path + "DAT", 0700, 0), "");
    EXPECT_EQ(ModeOf(Path + "DAT"), 0700U);
    EXPECT_EQ(Path_Permit(file, 0066, 0), "");
    EXPECT_EQ(ModeOf(file), 0640U) << "nobody else gets a right";
    EXPECT_NE(Path_Permit(Path + "none", 0600, 0), "");
}

TEST_F(PcLook, mends_what_the_doctor_proposes_or_says_why_not) {
    const FileStore files = PosixFiles();
    const std::string file = Path + "DAT/A.B", timer = Path + "timer";
    std::ofstream(timer) << "16\n";
    EXPECT_EQ(Pc_Mend(Path, files, {.What = DoctorFix::Kind::Permissions, .Path = "DAT/A.B", .Less = 0040}), "");
    EXPECT_EQ(ModeOf(file), 0600U);
    EXPECT_EQ(Pc_Mend(Path, files, {.What = DoctorFix::Kind::MakeDirectory, .Path = "HIST"}), "");
    EXPECT_TRUE(std::filesystem::is_directory(Path + "HIST"));
    EXPECT_EQ(Pc_Mend(Path, files, {.What = DoctorFix::Kind::MakeDirectory, .Path = "DAT/A.B"}), "File exists");
    EXPECT_EQ(Pc_Mend(Path, files, {.What = DoctorFix::Kind::ShortLatency, .Path = timer}), "");
    std::ifstream read(timer);
    std::string said;
    std::getline(read, said);
    EXPECT_EQ(said, "1");
    EXPECT_EQ(Pc_Mend(Path, files, {.What = DoctorFix::Kind::ShortLatency, .Path = Path + "none/timer"}),
              "No such file or directory");
}

TEST_F(PcLook, names_the_file_that_was_changed_last) {
    std::filesystem::create_directory(Path + "HIST");
    std::ofstream(Path + "HIST/Tor.HST") << "bytes";
    const auto later = std::filesystem::last_write_time(Path + "DAT/A.B") + std::chrono::hours(48);
    std::filesystem::last_write_time(Path + "HIST/Tor.HST", later);
    PcFacts facts = PcFacts_Look(Path, std::nullopt, {});
    EXPECT_EQ(facts.NewestFile, "HIST/Tor.HST");
    EXPECT_GT(*facts.Newest, facts.Now);
    std::filesystem::last_write_time(Path + "DAT/A.B", later + std::chrono::hours(1));
    facts = PcFacts_Look(Path, std::nullopt, {});
    EXPECT_EQ(facts.NewestFile, "DAT/A.B");
}

TEST_F(PcLook, takes_the_latency_timer_as_it_is_behind_the_opening) {
    PortFacts port{.LatencyMs = 16, .LatencyFile = Path + "timer"};
    std::ofstream(Path + "timer") << "1\n";
    Latency_LookAgain(port);
    EXPECT_TRUE(port.Opened && port.TimerTold);
    EXPECT_EQ(port.LatencyMs, 1);
    std::filesystem::remove(Path + "timer");
    Latency_LookAgain(port);
    EXPECT_FALSE(port.LatencyMs.has_value());
}

TEST_F(PcLook, changes_no_rights_through_a_link) {
    const std::string file = Path + "DAT/A.B";
    std::filesystem::create_symlink(file, Path + "link");
    EXPECT_NE(Path_Permit(Path + "link", 0, 0777), "");
    EXPECT_EQ(ModeOf(file), 0640U);
}

TEST_F(PcLook, shortens_a_latency_timer_and_says_why_not) {
    EXPECT_EQ(Latency_Shorten(Path + "DAT/A.B"), "");
    std::string text;
    std::getline(std::ifstream(Path + "DAT/A.B"), text);
    EXPECT_EQ(text, "1");
    EXPECT_NE(Latency_Shorten(Path + "none"), "");
}

} // namespace
} // namespace qvm::test
