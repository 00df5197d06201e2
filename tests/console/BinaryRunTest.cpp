// The binary against the virtual locks behind a pseudo-terminal.

#include "Inhalt.h"
#include "Schlosslauf.h"
#include "VirtualLocks.h"

#include <csignal>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <thread>

namespace qvm {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using Json = nlohmann::json;

class BinaryRun : public testing::Test {
protected:
    VirtualLocks Locks;
};

TEST_F(BinaryRun, programs_a_lock_with_its_users_and_says_so) {
    Locks.Start();
    const RunResult result = Locks.Run({"program", "1"});
    EXPECT_EQ(result.Code, 0) << result.Err;
    // 18 telegrams for an empty lock of this class and four for each of two users.
    EXPECT_THAT(result.Out, HasSubstr("Lock 1 \"Tor\" 00.0A.10.01: programmed, 26 telegrams in "));
    EXPECT_EQ(Locks.Stop(), "");
    const Json lock = Locks.Lock(Tor);
    EXPECT_EQ(lock["data_complete"], true);
    EXPECT_EQ(lock["priority"], 4);
    EXPECT_EQ(lock["lock_mode"], 10);
    EXPECT_EQ(lock["erase_option"], 0);
    ASSERT_EQ(lock["users"].size(), 2U);
    EXPECT_EQ(lock["users"][0]["name"], "Zoë");
    EXPECT_EQ(lock["users"][0]["code"], "918273----");
    EXPECT_EQ(lock["users"][0]["timer_selector"], 1);
    EXPECT_EQ(lock["users"][1]["name"], "Bert");
    EXPECT_EQ(lock["users"][1]["code"], "405060----");
    EXPECT_EQ(lock["users"][1]["weighting"], 13);
    EXPECT_FALSE(Locks.Directory.Has("HIST/x"));
    EXPECT_THAT(Locks.Directory.List("HIST"), ElementsAre());
}

TEST_F(BinaryRun, wiping_is_only_done_on_request) {
    Locks.Start();
    EXPECT_EQ(Locks.Run({"program", "2", "--erase", "wipe"}).Code, 0);
    EXPECT_EQ(Locks.Stop(), "");
    EXPECT_EQ(Locks.Lock(Leer)["erase_option"], 1);
}

TEST_F(BinaryRun, a_device_path_replaces_the_configuration) {
    Locks.Start();
    const RunResult result = Locks.Run({"--port", Locks.Directory.Path() + "com1", "program", "2"});
    EXPECT_EQ(result.Code, 0) << result.Err;
    EXPECT_EQ(Locks.Stop(), "");
}

TEST_F(BinaryRun, reads_a_history_back_to_the_cut_off_and_one_older_event) {
    Locks.Start();
    const RunResult result = Locks.Run({"history", "1", "--since", "01.01.2020"});
    EXPECT_EQ(result.Code, 0) << result.Err;
    EXPECT_THAT(result.Out, HasSubstr("Lock 1 \"Tor\" 00.0A.10.01: history read"));
    EXPECT_THAT(result.Out, HasSubstr("\nZoë   07.03.2020  09:05  E-Key"));
    EXPECT_THAT(result.Out, HasSubstr("\nBert  06.03.2020  23:59  Code"));
    EXPECT_THAT(result.Out, HasSubstr("\nOld   05.03.2019  00:00  Transponder\n"));
    EXPECT_THAT(result.Out, Not(HasSubstr("Older")));
    EXPECT_EQ(Locks.Stop(), "");
    const auto files = Locks.Directory.List("HIST");
    ASSERT_EQ(files.size(), 1U);
    EXPECT_THAT(files[0], testing::MatchesRegex("H_[0-9]+_[0-9]+_Tor.HST"));
    EXPECT_THAT(result.Out, HasSubstr("  history: " + Locks.Directory.Path() + "HIST/" + files[0] + "\n"));
    EXPECT_EQ(Locks.Lock(Tor)["erases"], 0);
}

TEST_F(BinaryRun, without_a_cut_off_twenty_days_before_today_hold) {
    Locks.Start();
    const Json report = Json::parse(Locks.Run({"--json", "history", "1"}).Out);
    // The newest event is years old: it is the one that trips the cut-off, and the last.
    ASSERT_EQ(report["locks"][0]["events"].size(), 1U);
    EXPECT_EQ(report["locks"][0]["events"][0]["name"], "Zoë");
    EXPECT_EQ(report["locks"][0]["events"][0]["date"], "07.03.2020");
    EXPECT_EQ(Locks.Stop(), "");
}

TEST_F(BinaryRun, an_empty_history_makes_no_file) {
    Locks.Start();
    const RunResult result = Locks.Run({"history", "2"});
    EXPECT_EQ(result.Code, 0) << result.Err;
    EXPECT_THAT(result.Out, HasSubstr("the lock's history is empty"));
    EXPECT_THAT(Locks.Directory.List("HIST"), ElementsAre());
    EXPECT_EQ(Locks.Stop(), "");
}

TEST_F(BinaryRun, reads_the_history_first_and_then_programs) {
    Locks.Start();
    const RunResult result = Locks.Run({"program", "1", "--history"});
    EXPECT_EQ(result.Code, 0) << result.Err;
    EXPECT_THAT(result.Out, HasSubstr("programmed"));
    EXPECT_EQ(Locks.Directory.List("HIST").size(), 1U);
    EXPECT_EQ(Locks.Stop(), "");
    EXPECT_EQ(Locks.Lock(Tor)["users"].size(), 2U);
}

TEST_F(BinaryRun, a_wrong_code_is_refused_by_the_lock_and_changes_nothing) {
    Locks.Start();
    const RunResult result = Qvmctl({"--dir", Locks.Directory.Path(), "program", "1", "--code-from", "-"}, "104213\n");
    EXPECT_EQ(result.Code, 2);
    EXPECT_THAT(result.Out, HasSubstr("Lock 1 \"Tor\" 00.0A.10.01: refused by the lock, 1 telegram in "));
    EXPECT_THAT(result.Out, HasSubstr("Please check the code!"));
    Locks.Stop();
    EXPECT_EQ(Locks.Lock(Tor)["erases"], 0);
}

TEST_F(BinaryRun, a_lock_that_is_not_there_is_not_reached) {
    Locks.Start();
    const RunResult result = Locks.Run({"program", "3"});
    EXPECT_EQ(result.Code, 3);
    EXPECT_THAT(result.Out, HasSubstr("Lock 3 \"Fern\" 00.0A.10.03: not reached, 1 telegram in "));
}

TEST_F(BinaryRun, of_several_locks_each_is_named_and_the_others_are_done) {
    Locks.Start();
    const RunResult result = Locks.Run({"--json", "program", "3", "1", "2"});
    EXPECT_EQ(result.Code, 4);
    const Json report = Json::parse(result.Out);
    EXPECT_EQ(report["command"], "program");
    EXPECT_EQ(report["ok"], false);
    EXPECT_EQ(report["exit"], 4);
    ASSERT_EQ(report["locks"].size(), 3U);
    EXPECT_EQ(report["locks"][0]["result"], "not-reached");
    EXPECT_EQ(report["locks"][1]["result"], "done");
    EXPECT_EQ(report["locks"][1]["name"], "Tor");
    EXPECT_EQ(report["locks"][2]["result"], "done");
    EXPECT_EQ(Locks.Stop(), "");
    EXPECT_EQ(Locks.Lock(Tor)["users"].size(), 2U);
    EXPECT_EQ(Locks.Lock(Leer)["data_complete"], true);
}

TEST_F(BinaryRun, a_lock_that_falls_silent_is_given_up_after_the_time_out) {
    Locks.Start({"--fault", "silent@5+"});
    const RunResult result = Locks.Run({"program", "1", "--timeout", "1"});
    EXPECT_EQ(result.Code, 3);
    EXPECT_THAT(result.Out, HasSubstr("given up, the lock kept silent, 6 telegrams in "));
    EXPECT_THAT(result.Out, HasSubstr(": no answer for 1 s\n"));
    EXPECT_THAT(result.Err, HasSubstr("No answer for 1 s; the run is given up."));
}

TEST_F(BinaryRun, a_reader_that_goes_away_does_not_end_the_run) {
    Locks.Start();
    const std::string status = Locks.Directory.Path() + "status";
    std::vector<std::string> arguments{"-c", R"({ sleep 0.3; "$@" 2>&1; echo $? > "$0"; } | true)", status,
                                       QvmctlPath()};
    const auto own = Locks.Arguments({"program", "1"});
    arguments.insert(arguments.end(), own.begin(), own.end());
    EXPECT_EQ(Process("/bin/sh", arguments, "104212\n").Wait().Code, 0);
    // The report is lost, the lock is programmed.
    EXPECT_EQ(Locks.Directory.Read("status"), "1\n");
    EXPECT_EQ(Locks.Stop(), "");
    EXPECT_EQ(Locks.Lock(Tor)["data_complete"], true);
}

TEST_F(BinaryRun, a_history_that_cannot_be_written_is_a_local_fault) {
    Locks.Start();
    // Nobody, not even the administrator, makes files there.
    std::filesystem::remove_all(Locks.Directory.Path() + "HIST");
    std::filesystem::create_directory_symlink("/proc", Locks.Directory.Path() + "HIST");
    const RunResult result = Locks.Run({"history", "1", "--since", "01.01.2020"});
    EXPECT_EQ(result.Code, 1);
    EXPECT_THAT(result.Out, HasSubstr("\n  the history could not be written\n"));
    const RunResult alone = Locks.Run({"--json", "history", "1", "--since", "01.01.2020"});
    EXPECT_EQ(alone.Code, 1);
    EXPECT_EQ(Json::parse(alone.Out)["locks"][0]["result"], "failed");
    const RunResult first = Locks.Run({"--json", "program", "1", "--history"});
    EXPECT_EQ(first.Code, 1);
    const Json report = Json::parse(first.Out);
    EXPECT_EQ(report["ok"], false);
    EXPECT_EQ(report["locks"][0]["exit"], 1);
    EXPECT_EQ(report["locks"][0]["faults"], Json({"the history could not be written"}));
}

TEST_F(BinaryRun, a_trace_that_could_not_be_written_whole_is_said) {
    Locks.Start();
    const std::string trace = Locks.Directory.Path() + "trace.txt";
    // No file may grow beyond a few blocks.
    std::vector<std::string> arguments{"-c", R"(trap "" XFSZ; ulimit -f 4; exec "$0" "$@")", QvmctlPath()};
    const auto own = Locks.Arguments({"--trace", trace, "program", "1"});
    arguments.insert(arguments.end(), own.begin(), own.end());
    const RunResult result = Process("/bin/sh", arguments, "104212\n").Wait();
    EXPECT_EQ(result.Code, 0) << result.Err;
    EXPECT_THAT(result.Err, HasSubstr("The trace file " + trace + " could not be written whole."));
}

TEST_F(BinaryRun, local_faults_are_one_document_on_request) {
    const auto messages = [](const RunResult& result) {
        EXPECT_EQ(result.Code, 1);
        const Json report = Json::parse(result.Out);
        EXPECT_EQ(report["command"], "program");
        EXPECT_EQ(report["ok"], false);
        EXPECT_EQ(report["exit"], 1);
        return report["messages"];
    };
    EXPECT_EQ(messages(Locks.Run({"--json", "program", "4"})),
              Json({"Lock 4 has no serial number in the lock table."}));
    EXPECT_EQ(messages(Locks.Run({"--json", "--trace", "/dev/full", "program", "1"})),
              Json({"The trace file /dev/full cannot be written."}));
    EXPECT_EQ(messages(Qvmctl({"--dir", Locks.Directory.Path(), "--json", "program", "1", "--code-from", "-"}, "1\n")),
              Json({"The administrator code must have six digits, letters or marks of the keypad (+ , - . : ; _)."}));
    EXPECT_EQ(messages(Qvmctl({"--dir", Locks.Directory.Path(), "--json", "program", "1", "--code-from", "/no/code"})),
              Json({"The file /no/code is not there."}));
}

TEST_F(BinaryRun, the_wait_for_a_code_from_a_pipe_can_be_stopped) {
    const std::string pipe = Locks.Directory.Path() + "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::string trace = Locks.Directory.Path() + "trace.txt";
    Process run(QvmctlPath(), {"--dir", Locks.Directory.Path(), "--trace", trace, "program", "1", "--code-from", pipe});
    // The trace is opened right before the code is read.
    while (!std::filesystem::exists(trace)) {
        std::this_thread::yield();
    }
    run.Signal(SIGINT);
    const RunResult result = run.Wait();
    EXPECT_EQ(result.Code, 1);
    EXPECT_EQ(result.Err, "No administrator code was given.\n");
}

TEST_F(BinaryRun, writes_no_core_file) {
    const std::string pipe = Locks.Directory.Path() + "pipe", trace = Locks.Directory.Path() + "trace.txt";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    Process run(QvmctlPath(), {"--dir", Locks.Directory.Path(), "--trace", trace, "program", "1", "--code-from", pipe});
    while (!std::filesystem::exists(trace)) {
        std::this_thread::yield();
    }
    const std::string limits = Inhalt("/proc/" + std::to_string(run.Id()) + "/limits");
    EXPECT_THAT(limits, testing::ContainsRegex("Max core file size +0 +0 "));
    run.Signal(SIGINT);
    run.Wait();
}

TEST(Ende_Code, of_units_counts_the_worst) {
    const LockResult::Unit done{.Name = "a", .End = UnitReport::State::Done, .Note = ""};
    const LockResult::Unit refused{.Name = "b", .End = UnitReport::State::Failed, .Note = "", .Refused = true};
    const LockResult::Unit failed{.Name = "c", .End = UnitReport::State::Failed, .Note = ""};
    LockResult result;
    result.End = LockEnd::Done;
    result.Units = {done};
    EXPECT_EQ(Ende_Code(result), ExitCode::Good);
    result.Units = {done, refused};
    EXPECT_EQ(Ende_Code(result), ExitCode::Refused);
    result.Units = {refused, failed};
    EXPECT_EQ(Ende_Code(result), ExitCode::NotReached);
    result.Faults = {"the radio channel could not be recorded"};
    EXPECT_EQ(Ende_Code(result), ExitCode::Fault);
}

TEST_F(BinaryRun, a_port_that_is_not_there_is_a_local_fault) {
    const RunResult result = Locks.Run({"--port", "/dev/none-of-this-name", "program", "1"});
    EXPECT_EQ(result.Code, 1);
    EXPECT_THAT(result.Out, HasSubstr("not begun, nothing was sent"));
    EXPECT_THAT(result.Out, HasSubstr("/dev/none-of-this-name"));
}

TEST_F(BinaryRun, a_lock_without_a_serial_is_named_before_anything_is_sent) {
    Locks.Start();
    const RunResult result = Locks.Run({"program", "1", "4", "5"});
    EXPECT_EQ(result.Code, 1);
    EXPECT_EQ(result.Err, "Lock 4 has no serial number in the lock table.\n"
                          "Lock 5 has no serial number in the lock table.\n");
    Locks.Stop();
    EXPECT_EQ(Locks.State()["line"]["telegrams"], 0);
}

TEST_F(BinaryRun, a_lock_whose_serial_is_no_number_is_named_by_every_command) {
    // The third record of 45 bytes; the first pair of its serial stands at 28.
    std::string table = Locks.Directory.Read("DAT/C64UX12H3D.EBW");
    table.replace(2 * 45 + 28, 2, "0G");
    Locks.Directory.Write("DAT/C64UX12H3D.EBW", table);
    for (const char* command : {"history", "run"}) {
        const bool list = std::string_view(command) == "run";
        const RunResult result =
            list ? Locks.Run({command, "1", "3", "--history-only"}) : Locks.Run({command, "1", "3"});
        EXPECT_EQ(result.Code, 1) << command;
        EXPECT_EQ(result.Err, "Lock 3 has a serial number that is not hexadecimal.\n") << command;
    }
}

TEST_F(BinaryRun, a_code_of_another_length_is_a_local_fault) {
    Locks.Start();
    for (const char* code : {"12345\n", "1234567\n", "", "12 456\n"}) {
        const RunResult result = Qvmctl({"--dir", Locks.Directory.Path(), "program", "1", "--code-from", "-"}, code);
        EXPECT_EQ(result.Code, 1);
        EXPECT_EQ(result.Err,
                  "The administrator code must have six digits, letters or marks of the keypad (+ , - . : ; _).\n");
    }
    Locks.Stop();
    EXPECT_EQ(Locks.State()["line"]["telegrams"], 0);
}

TEST_F(BinaryRun, the_marks_of_the_keypad_are_digits_of_the_code) {
    // 104212: "+" is 1, ":" is 0.
    Locks.Start();
    const RunResult result = Qvmctl({"--dir", Locks.Directory.Path(), "program", "2", "--code-from", "-"}, "+:4212\n");
    EXPECT_EQ(result.Code, 0) << result.Err;
    Locks.Stop();
}

TEST_F(BinaryRun, the_code_may_stand_in_a_file_and_letters_are_those_of_a_keypad) {
    Locks.Start();
    // 1, 0, 4, 2, 1, 2 on a keypad; there is no letter on 1 and 0.
    const std::string file = Locks.Directory.Write("code", "10GA1b\r\n");
    const RunResult result = Qvmctl({"--dir", Locks.Directory.Path(), "program", "2", "--code-from", file});
    EXPECT_EQ(result.Code, 0) << result.Err;
}

TEST_F(BinaryRun, without_a_terminal_the_code_must_come_from_somewhere) {
    const RunResult result = Qvmctl({"--dir", Locks.Directory.Path(), "program", "1"}, "104212\n");
    EXPECT_EQ(result.Code, 1);
    EXPECT_THAT(result.Err, HasSubstr("use --code-from"));
}

TEST_F(BinaryRun, no_code_stands_in_output_messages_or_trace) {
    Locks.Start();
    const std::string trace = Locks.Directory.Write("trace.txt", "before\n");
    const RunResult result = Locks.Run({"--trace", trace, "--json", "program", "1"});
    EXPECT_EQ(result.Code, 0) << result.Err;
    const std::string text = Locks.Directory.Read("trace.txt");
    EXPECT_THAT(text, testing::StartsWith("before\n# "));
    EXPECT_THAT(text, HasSubstr("> 02 14 04 00 0A 10 01 11 00 33 88 01 00 00 ** ** ** EE 05 AA 55 **"));
    EXPECT_THAT(text, HasSubstr("user code hidden"));
    for (const char* code : {"104212", "918273", "405060", "1A 42 12", "91 82 73", "4A 5A 6A"}) {
        for (const std::string* place : {&text, &result.Out, &result.Err}) {
            EXPECT_THAT(*place, Not(HasSubstr(code)));
        }
    }
    Locks.Stop();
}

TEST_F(BinaryRun, a_trace_can_be_decoded) {
    Locks.Start();
    const std::string trace = Locks.Directory.Path() + "trace.txt";
    EXPECT_EQ(Locks.Run({"--trace", trace, "program", "2"}).Code, 0);
    const RunResult decoded = Qvmctl({"decode", trace, "--json"});
    EXPECT_EQ(decoded.Code, 0) << decoded.Err;
    const Json frames = Json::parse(decoded.Out)["frames"];
    // 18 telegrams and a reply to each.
    ASSERT_EQ(frames.size(), 36U);
    EXPECT_EQ(frames[0]["name"], "TelVerbinden");
    EXPECT_EQ(frames[1]["name"], "RpVerbunden");
    EXPECT_EQ(frames[34]["name"], "TelTrennen");
}

TEST_F(BinaryRun, ctrl_c_ends_the_session_in_order_and_leaves_the_other_locks_alone) {
    Locks.Start({"--fault", "late@2+=150"});
    const auto run = Locks.Begin({"program", "1", "2"});
    ASSERT_TRUE(run->WaitFor(" %"));
    run->Signal(SIGINT);
    const RunResult result = run->Wait();
    EXPECT_EQ(result.Code, 3);
    EXPECT_THAT(result.Out, HasSubstr("Lock 1 \"Tor\" 00.0A.10.01: cancelled"));
    EXPECT_THAT(result.Out, HasSubstr("Lock 2 \"Leer\" 00.0A.10.02: not tried"));
    Locks.Stop();
    EXPECT_EQ(Locks.Lock(Tor)["sessions"], 1);
    EXPECT_EQ(Locks.Lock(Tor).value("data_complete", false), false);
    EXPECT_EQ(Locks.Lock(Leer)["erases"], 0);
}

TEST_F(BinaryRun, a_second_ctrl_c_does_not_wait_for_a_silent_lock) {
    Locks.Start({"--fault", "silent@1+"});
    const auto run = Locks.Begin({"program", "1", "--timeout", "0"});
    ASSERT_TRUE(run->WaitFor(" %"));
    run->Signal(SIGINT);
    ASSERT_TRUE(run->WaitFor("Cancelling"));
    run->Signal(SIGINT);
    const RunResult result = run->Wait();
    EXPECT_EQ(result.Code, 3);
    EXPECT_THAT(result.Err, HasSubstr("Giving up."));
}

#if defined(__SANITIZE_ADDRESS__)
constexpr bool Sanitized = true;
#elif defined(__has_feature)
constexpr bool Sanitized = __has_feature(address_sanitizer);
#else
constexpr bool Sanitized = false;
#endif

/// Highest memory that the process had, as the system tells it, in KiB.
int PeakKb(pid_t process) {
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmHWM:")) {
            return std::atoi(line.c_str() + 6);
        }
    }
    return 0;
}

TEST_F(BinaryRun, a_run_needs_at_most_40_MB) {
    if (Sanitized) {
        GTEST_SKIP() << "the address sanitizer needs memory of its own";
    }
    Locks.Start({"--fault", "late@2+=100"});
    const auto run = Locks.Begin({"program", "1"});
    ASSERT_TRUE(run->WaitFor(" %"));
    const int peak = PeakKb(run->Id());
    EXPECT_GT(peak, 1000);
    EXPECT_LE(peak, 40 * 1024);
    EXPECT_EQ(run->Wait().Code, 0);
}

} // namespace
} // namespace qvm
