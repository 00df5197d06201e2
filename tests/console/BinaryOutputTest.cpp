// The binary and outputs that do not take what is written to them.

#include "RunBinary.h"

#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace qvm {
namespace {

using namespace test;
using testing::HasSubstr;
using Json = nlohmann::json;

const std::string OutputFile = "DAT/LSOEMIPART.LMT";
constexpr const char* Lost = "Standard output cannot be written; not all of the result has arrived.\n";

class Binary_Output : public testing::Test {
protected:
    Binary_Output() {
        Directory.Write(OutputFile, "YY");
        Directory.Write("a.HST", "00.0A.10.01\r\n");
        Directory.Write("trace.txt", "02 0D 05 00 0A 10 01 11 00 33 88 01 00 00 9D\n");
        Directory.Write("same.json", R"({"format":"qvm7702-export","version":1,"tables":{}})");
    }
    /// The shell runs `line`, in which "$0" is the binary with its directory.
    RunResult Shell(const std::string& line) const {
        return Process("/bin/sh", {"-c", "q() { " + line + "\n}; cd '" + Directory.Path() + "' && q", QvmctlPath()})
            .Wait();
    }

    TempDirectory Directory;
};

TEST_F(Binary_Output, that_is_full_or_closed_is_a_fault_of_every_command) {
    for (const std::string command : {"--help", "export", "export --json all.json", "check", "--json dataset 1",
                                      "decode trace.txt", "events a.HST", "--json import same.json"}) {
        for (const std::string output : {">/dev/full", ">&-"}) {
            const RunResult result = Shell("\"$0\" --dir . " + command + " " + output);
            EXPECT_EQ(result.Code, 1) << command << output;
            EXPECT_THAT(result.Err, HasSubstr(Lost)) << command << output;
        }
    }
}

TEST_F(Binary_Output, of_a_command_that_writes_nothing_to_it_may_be_anything) {
    const RunResult result = Shell("\"$0\" --dir . import same.json >/dev/full");
    EXPECT_EQ(result.Code, 0);
    EXPECT_EQ(result.Err, "");
}

TEST_F(Binary_Output, whose_reader_has_gone_is_a_fault_and_no_signal) {
    // The pipe's reader is a program that has ended before the first byte comes.
    const RunResult result =
        Shell("mkfifo gone; { exec 3<>gone; exec 4>gone; exec 3>&-; \"$0\" --dir . --help >&4; } ");
    EXPECT_EQ(result.Code, 1);
    EXPECT_EQ(result.Err, Lost);
}

TEST_F(Binary_Output, that_is_closed_does_not_become_a_data_file) {
    const RunResult result = Shell("\"$0\" --dir . check <&- >&- 2>&-");
    EXPECT_EQ(result.Code, 1);
    EXPECT_EQ(Directory.Read(OutputFile), "YY");
    EXPECT_EQ(Directory.List("DAT").size(), 1U);
}

TEST_F(Binary_Output, beyond_the_limit_of_a_files_size_is_a_full_disk) {
    // Blocks of 512 bytes; the document takes more than one.
    Directory.Write("DAT/TX33Y98BSG9.TBW", std::string(11 * 15, '1'));
    const RunResult toFile = Shell("ulimit -f 1; \"$0\" --dir . export all.json");
    EXPECT_EQ(toFile.Code, 1);
    EXPECT_THAT(toFile.Err, HasSubstr("The file all.json cannot be written."));
    EXPECT_FALSE(Directory.Has("all.json"));
    const RunResult toOutput = Shell("ulimit -f 1; \"$0\" --dir . export >all.json");
    EXPECT_EQ(toOutput.Code, 1);
    EXPECT_THAT(toOutput.Err, HasSubstr(Lost));
}

TEST_F(Binary_Output, an_import_beyond_the_limit_of_a_files_size_leaves_the_data_files) {
    std::string rows = R"({"record":1,"UserName":"A"})";
    Directory.Write("users.json", R"({"format":"qvm7702-export","version":1,"counts":{"UserRecord":250},
        "tables":{"LockEmiRecord":[],"UserRecord":[)" +
                                      rows + "]}}");
    const RunResult result = Shell("ulimit -f 8; \"$0\" --dir . import users.json");
    EXPECT_EQ(result.Code, 1);
    EXPECT_THAT(result.Err, HasSubstr("BX10X52WUJ9.UBW cannot be written"));
    EXPECT_EQ(Directory.Read(OutputFile), "YY");
    EXPECT_FALSE(Directory.Has("DAT/BX10X52WUJ9.UBW"));
}

TEST_F(Binary_Output, of_the_virtual_locks_beyond_the_limit_of_a_files_size_is_a_fault_likewise) {
    Process simulator("/bin/sh", {"-c",
                                  "cd '" + Directory.Path() +
                                      R"('; ulimit -f 0; exec "$0" --link com1 --state state.json >/dev/null 2>&1)",
                                  QVM_BINARY_DIR "/src/simulator/program/qvm-simulator"});
    ASSERT_TRUE(WaitUntil([this] { return Directory.Has("com1"); }));
    simulator.Signal(SIGTERM);
    EXPECT_EQ(simulator.Wait().Code, 1);
}

TEST_F(Binary_Output, what_the_command_line_names_is_read_from_a_pipe_or_a_device_too) {
    for (const std::string command : {"import same.json", "decode trace.txt", "events a.HST"}) {
        const std::string name = command.substr(0, command.find(' ')), file = command.substr(name.size() + 1);
        ASSERT_EQ(Shell("\"$0\" --dir . " + command).Code, 0) << command;
        const std::string direct = name == "events" ? "00.0A.10.01" : Shell("\"$0\" --dir . " + command).Out;
        for (const std::string& line :
             {"rm -f fed; mkfifo fed; cat " + file + " >fed & \"$0\" --dir . " + name + " fed",
              "cat " + file + " | \"$0\" --dir . " + name + " /dev/stdin"}) {
            const RunResult result = Shell(line);
            EXPECT_EQ(result.Code, 0) << line << result.Err;
            EXPECT_THAT(result.Out, HasSubstr(direct)) << line;
        }
    }
    const RunResult endless = Shell("\"$0\" --dir . import /dev/zero");
    EXPECT_EQ(endless.Code, 1);
    EXPECT_EQ(endless.Err, "The file /dev/zero is larger than 64 MB, the most that is read.\n");
}

TEST_F(Binary_Output, an_export_goes_into_a_device_or_a_pipe_and_not_in_its_place) {
    const std::string pipe = Directory.Path() + "pipe", link = Directory.Path() + "full";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    std::string text;
    std::thread reader([&] { text = Directory.Read("pipe"); });
    const RunResult piped = Shell("\"$0\" --dir . export pipe");
    reader.join();
    EXPECT_EQ(piped.Code, 0) << piped.Err;
    EXPECT_EQ(Json::parse(text)["counts"]["LockEmiRecord"], 2);
    struct stat info {};
    ASSERT_EQ(stat(pipe.c_str(), &info), 0);
    EXPECT_TRUE(S_ISFIFO(info.st_mode));
    // Full, by way of a link that must stay one.
    ASSERT_EQ(symlink("/dev/full", link.c_str()), 0);
    const RunResult full = Shell("\"$0\" --dir . export full");
    EXPECT_EQ(full.Code, 1);
    EXPECT_EQ(full.Err, "The file full cannot be written.\n");
    ASSERT_EQ(lstat(link.c_str(), &info), 0);
    EXPECT_TRUE(S_ISLNK(info.st_mode));
    ASSERT_EQ(stat("/dev/full", &info), 0);
    EXPECT_TRUE(S_ISCHR(info.st_mode));
}

TEST_F(Binary_Output, control_characters_of_a_name_reach_neither_terminal_nor_document_as_they_are) {
    std::string lock(45, ' ');
    lock.replace(0, 9,
                 "T\x7F\x1B[1m\x81"
                 "or");
    lock.replace(28, 12, "00 0A 10 01 ");
    Directory.Write("DAT/C64UX12H3D.EBW", lock);
    const RunResult text = Shell("\"$0\" --dir . dataset 1 --force");
    EXPECT_THAT(text.Out, HasSubstr("Lock 1 \"T  [1m?or\"")) << text.Err;
    const std::string document = Shell("\"$0\" --dir . export").Out;
    EXPECT_THAT(document, HasSubstr(R"("T\u007f\u001b[1m\u0081or")"));
    EXPECT_EQ(Json::parse(document)["tables"]["LockRecord"][0]["Name"], "T\x7F\x1B[1m\xC2\x81"
                                                                        "or");
    EXPECT_EQ(Shell("\"$0\" --dir . export all.json").Code, 0);
    EXPECT_EQ(Directory.Read("all.json"), document);
}

TEST_F(Binary_Output, an_event_that_a_spreadsheet_would_run_is_a_text_in_the_csv) {
    Directory.Write("a.HST", "00.0A.10.01\r\n=cmd|'/C calc'!A0\t05.03.2026\t10:00\t-open\r\n");
    EXPECT_THAT(Shell("\"$0\" --dir . events --csv a.HST").Out,
                HasSubstr("a.HST;00.0A.10.01;'=cmd|'/C calc'!A0;05.03.2026;10:00;'-open;\n"));
}

} // namespace
} // namespace qvm
