// The binary beside another program that is at the same data files. The other one is this test program.

#include "DataLock.h"
#include "FileHandle.h"
#include "VirtualLocks.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace qvm {
namespace {

using namespace test;
using testing::HasSubstr;
using testing::StartsWith;
using Json = nlohmann::json;
using Use = DataLock::Use;

const std::string NeighbourFile = "DAT/LSOEMIPART.LMT";
const std::string Better = R"({"format":"qvm7702-export","version":1,
    "tables":{"LockEmiRecord":[{"record":1,"Emi":"X"}]}})";

class Binary_Neighbours : public testing::Test {
protected:
    Binary_Neighbours() { Directory.Write(NeighbourFile, "YY"); }

    std::vector<std::string> Arguments(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"--dir", Directory.Path()});
        return arguments;
    }
    RunResult Run(const std::vector<std::string>& arguments, const std::string& input = {}) const {
        return Qvmctl(Arguments(arguments), input);
    }

    TempDirectory Directory;
    const std::string Self = "(process " + std::to_string(getpid()) + ") of user ";
};

TEST_F(Binary_Neighbours, an_import_is_refused_while_another_program_may_write) {
    const DataLock other(Directory.Path() + "DAT", Use::Write);
    ASSERT_TRUE(other.Try());
    const RunResult result = Run({"--json", "import", "-"}, Better);
    EXPECT_EQ(result.Code, 1);
    EXPECT_THAT(result.Err, StartsWith("The data files are in use by test_console " + Self));
    EXPECT_THAT(result.Err, HasSubstr(". Nothing was done.\n"));
    EXPECT_EQ(Json::parse(result.Out)["messages"].size(), 1U);
    EXPECT_EQ(Directory.Read(NeighbourFile), "YY");
    EXPECT_EQ(Directory.List("DAT").size(), 1U);
}

TEST_F(Binary_Neighbours, runs_are_refused_and_nothing_is_sent) {
    VirtualLocks locks;
    locks.Start({"--trace"});
    const DataLock other(locks.Directory.Path() + "DAT", Use::Write);
    ASSERT_TRUE(other.Try());
    for (const std::string command : {"program", "history", "run"}) {
        const RunResult result = locks.Run({command, "1"});
        EXPECT_EQ(result.Code, 1) << command;
        EXPECT_THAT(result.Err, StartsWith("The data files are in use by test_console " + Self));
    }
    EXPECT_EQ(locks.Simulator().ErrSoFar(), "");
}

TEST_F(Binary_Neighbours, who_only_reads_goes_on_beside_one_who_may_write) {
    const DataLock other(Directory.Path() + "DAT", Use::Write);
    ASSERT_TRUE(other.Try());
    EXPECT_EQ(Json::parse(Run({"export"}).Out)["counts"]["LockEmiRecord"], 2);
    EXPECT_THAT(Run({"check"}).Err, Not(HasSubstr("in use")));
    EXPECT_THAT(Run({"dataset", "1"}).Err, Not(HasSubstr("in use")));
}

TEST_F(Binary_Neighbours, who_reads_says_that_it_waits_for_an_import_and_whose_it_is) {
    const DataLock import(Directory.Path() + "DAT", Use::Replace);
    ASSERT_TRUE(import.Try());
    for (const std::vector<std::string>& command :
         std::vector<std::vector<std::string>>{{"export"}, {"check"}, {"dataset", "1"}}) {
        Process reader(QvmctlPath(), Arguments(command));
        EXPECT_TRUE(reader.WaitFor("Waiting for test_console " + Self)) << command[0];
        EXPECT_EQ(reader.OutSoFar(), "") << command[0];
    }
}

TEST_F(Binary_Neighbours, what_an_export_waited_for_is_in_it) {
    auto import = std::make_unique<DataLock>(Directory.Path() + "DAT", Use::Replace);
    ASSERT_TRUE(import->Try());
    Process reader(QvmctlPath(), Arguments({"export"}));
    ASSERT_TRUE(reader.WaitFor("Waiting for"));
    Directory.Write(NeighbourFile, "XXX");
    import.reset();
    const RunResult result = reader.Wait();
    EXPECT_EQ(result.Code, 0);
    EXPECT_EQ(Json::parse(result.Out)["counts"]["LockEmiRecord"], 3);
}

TEST_F(Binary_Neighbours, an_import_waits_for_who_reads) {
    auto reading = std::make_unique<DataLock>(Directory.Path() + "DAT", Use::Read);
    ASSERT_TRUE(reading->Try());
    Process import(QvmctlPath(), Arguments({"import", "-"}), Better);
    ASSERT_TRUE(import.WaitFor("Waiting for test_console " + Self));
    EXPECT_EQ(Directory.Read(NeighbourFile), "YY");
    reading.reset();
    EXPECT_EQ(import.Wait().Code, 0);
    // As many marks as every writer leaves.
    EXPECT_EQ(Directory.Read(NeighbourFile), "X" + std::string(199, ' '));
}

TEST_F(Binary_Neighbours, an_import_does_not_wait_for_who_only_prints) {
    VirtualLocks locks;
    const std::string pipe = locks.Directory.Path() + "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    // Room for one page, and nobody reads on: most of the output stays with the program.
    const FileHandle slow(pipe, O_RDWR);
    ASSERT_GE(fcntl(slow.Number(), F_SETPIPE_SZ, 4096), 4096);
    const Process reader("/bin/sh",
                         {"-c", R"(exec "$0" --dir "$1" dataset 1 >"$1"pipe)", QvmctlPath(), locks.Directory.Path()});
    char first = 0;
    ASSERT_EQ(slow.Read(&first, 1), 1);
    EXPECT_EQ(Qvmctl({"--dir", locks.Directory.Path(), "import", "-"}, Better).Code, 0);
}

TEST_F(Binary_Neighbours, a_row_of_a_list_names_who_holds_its_port) {
    VirtualLocks locks;
    locks.Start();
    const std::string device = locks.Directory.Path() + "com1";
    const FileHandle port(device, O_RDWR);
    ASSERT_TRUE(port.Good());
    ASSERT_EQ(flock(port.Number(), LOCK_EX), 0);
    const RunResult result = locks.Run({"--json", "--port", device, "run", "1"});
    EXPECT_EQ(result.Code, 1);
    const Json row = Json::parse(result.Out);
    EXPECT_EQ(row["result"], "fault");
    EXPECT_THAT(row["text"].get<std::string>(), HasSubstr("test_console (" + std::to_string(getpid()) + ")"));
}

TEST_F(Binary_Neighbours, a_run_holds_the_data_files_to_its_end) {
    VirtualLocks locks;
    locks.Start({"--pace"});
    const auto run = locks.Begin({"program", "1"});
    ASSERT_TRUE(run->WaitFor("%"));
    const RunResult import = Qvmctl({"--dir", locks.Directory.Path(), "import", "-"}, Better);
    EXPECT_EQ(import.Code, 1);
    EXPECT_THAT(import.Err,
                StartsWith("The data files are in use by qvmctl (process " + std::to_string(run->Id()) + ") of user "));
    EXPECT_EQ(run->Wait().Code, 0);
    EXPECT_EQ(Qvmctl({"--dir", locks.Directory.Path(), "import", "-"}, Better).Code, 0);
}

} // namespace
} // namespace qvm
