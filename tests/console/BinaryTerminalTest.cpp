// The binary on a terminal: the code without echo, progress as a bar.

#include "VirtualLocks.h"

#include <chrono>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <termios.h>
#include <thread>
#include <unistd.h>

namespace qvm {
namespace {

using namespace test;
using testing::HasSubstr;
using testing::Not;

/// A program with a terminal of its own; the test sits at the other end.
class TerminalSession {
public:
    explicit TerminalSession(const std::vector<std::string>& arguments) {
        const std::string program = QvmctlPath();
        std::vector<char*> argv{const_cast<char*>(program.c_str())};
        for (const std::string& argument : arguments) {
            argv.push_back(const_cast<char*>(argument.c_str()));
        }
        argv.push_back(nullptr);
        id_ = forkpty(&handle_, nullptr, nullptr, nullptr);
        if (id_ == 0) {
            execv(program.c_str(), argv.data());
            _exit(127);
        }
    }
    ~TerminalSession() {
        if (id_ > 0) {
            kill(id_, SIGKILL);
            waitpid(id_, nullptr, 0);
        }
        close(handle_);
    }
    TerminalSession(const TerminalSession&) = delete;
    TerminalSession& operator=(const TerminalSession&) = delete;

    void Type(const std::string& text) const { ASSERT_EQ(write(handle_, text.data(), text.size()), std::ssize(text)); }
    /// Reads until `what` has been shown. False after 20 seconds or at the end of the program.
    bool WaitFor(const std::string& what) {
        const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (Shown.find(what) == std::string::npos) {
            if (std::chrono::steady_clock::now() > limit || !Read()) {
                return false;
            }
        }
        return true;
    }
    /// Reads to the end of the program and gives its exit code.
    int End() {
        while (Read()) {
        }
        int status = 0;
        waitpid(id_, &status, 0);
        id_ = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    bool Echo() const {
        termios mode{};
        return tcgetattr(handle_, &mode) == 0 && (mode.c_lflag & ECHO) != 0;
    }

    std::string Shown;

private:
    bool Read() {
        pollfd wait{.fd = handle_, .events = POLLIN, .revents = 0};
        if (poll(&wait, 1, 20000) <= 0) {
            return false;
        }
        char bytes[4096];
        const ssize_t count = read(handle_, bytes, sizeof bytes);
        if (count > 0) {
            Shown.append(bytes, static_cast<std::size_t>(count));
        }
        return count > 0;
    }

    pid_t id_ = -1;
    int handle_ = -1;
};

class BinaryTerminal : public testing::Test {
protected:
    void SetUp() override { Locks.Start({"--pace"}); }

    VirtualLocks Locks;
};

TEST_F(BinaryTerminal, the_code_is_asked_for_and_not_echoed_and_progress_is_a_bar) {
    TerminalSession session({"--dir", Locks.Directory.Path(), "program", "1"});
    ASSERT_TRUE(session.WaitFor("Administrator code: "));
    session.Type("104212\n");
    EXPECT_EQ(session.End(), 0);
    EXPECT_THAT(session.Shown, HasSubstr("Lock 1 \"Tor\" ["));
    EXPECT_THAT(session.Shown, HasSubstr("] "));
    EXPECT_THAT(session.Shown, HasSubstr("Lock 1 \"Tor\" 00.0A.10.01: programmed, 26 telegrams in "));
    EXPECT_THAT(session.Shown, Not(HasSubstr("104212")));
}

TEST_F(BinaryTerminal, the_codes_of_a_change_are_asked_for_one_by_one_and_not_echoed) {
    TerminalSession session({"--dir", Locks.Directory.Path(), "change-code", "1"});
    for (const auto& [prompt, code] :
         std::vector<std::pair<std::string, std::string>>{{"Old administrator code: ", "104212"},
                                                          {"New administrator code: ", "654320"},
                                                          {"New code again: ", "654320"}}) {
        ASSERT_TRUE(session.WaitFor(prompt));
        EXPECT_FALSE(session.Echo());
        session.Type(code + "\n");
    }
    EXPECT_EQ(session.End(), 0);
    EXPECT_THAT(session.Shown, HasSubstr("the code was changed"));
    EXPECT_THAT(session.Shown, Not(HasSubstr("104212")));
    EXPECT_THAT(session.Shown, Not(HasSubstr("654320")));
}

TEST_F(BinaryTerminal, ctrl_c_at_the_question_sends_nothing) {
    TerminalSession session({"--dir", Locks.Directory.Path(), "program", "1"});
    ASSERT_TRUE(session.WaitFor("Administrator code: "));
    session.Type("\x03");
    EXPECT_EQ(session.End(), 1);
    EXPECT_THAT(session.Shown, HasSubstr("No administrator code was given."));
    Locks.Stop();
    EXPECT_EQ(Locks.State()["line"]["telegrams"], 0);
}

TEST_F(BinaryTerminal, the_quit_key_at_the_question_leaves_the_terminal_with_its_echo) {
    TerminalSession session({"--dir", Locks.Directory.Path(), "program", "1"});
    ASSERT_TRUE(session.WaitFor("Administrator code: "));
    EXPECT_FALSE(session.Echo());
    session.Type("\x1C");
    ASSERT_TRUE(session.WaitFor("No administrator code was given."));
    EXPECT_TRUE(session.Echo());
    EXPECT_EQ(session.End(), 1);
}

TEST_F(BinaryTerminal, a_code_typed_into_standard_input_is_not_echoed) {
    TerminalSession session({"--dir", Locks.Directory.Path(), "program", "2", "--code-from", "-"});
    for (int n = 0; n < 10000 && session.Echo(); ++n) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    ASSERT_FALSE(session.Echo());
    session.Type("104212\n");
    EXPECT_EQ(session.End(), 0);
    EXPECT_THAT(session.Shown, HasSubstr("programmed"));
    EXPECT_THAT(session.Shown, Not(HasSubstr("104212")));
}

TEST_F(BinaryTerminal, a_list_is_a_table_that_changes_in_place) {
    TerminalSession session({"--dir", Locks.Directory.Path(), "run", "1", "2"});
    ASSERT_TRUE(session.WaitFor("Administrator code: "));
    session.Type("104212\n");
    EXPECT_EQ(session.End(), 0);
    // Two rows and the line below them are drawn anew.
    EXPECT_THAT(session.Shown, HasSubstr("\r\x1B[3A\x1B[J"));
    EXPECT_THAT(session.Shown, HasSubstr("1   Tor                  00.0A.10.01  *  Entries checked\r\n"
                                         "2   Leer                 00.0A.10.02  *  Entries checked\r\n"
                                         "Lock 1: "));
    EXPECT_THAT(session.Shown, HasSubstr("1   Tor                  00.0A.10.01  >> Programmed\r\n"
                                         "2   Leer                 00.0A.10.02  >> Programmed\r\n"));
}

TEST_F(BinaryTerminal, the_doctor_asks_before_it_mends) {
    const std::vector<std::string> arguments = Locks.Here({"doctor", "--fix"});
    TerminalSession refused(arguments);
    ASSERT_TRUE(refused.WaitFor("folder HIST: is not in " + Locks.Directory.Path() + ". Mend it? [y/N] "));
    refused.Type("\n");
    EXPECT_EQ(refused.End(), 1);
    EXPECT_THAT(refused.Shown, HasSubstr("--fix, folder HIST: declined"));
    EXPECT_FALSE(Locks.Directory.Has("HIST"));
    TerminalSession taken(arguments);
    ASSERT_TRUE(taken.WaitFor("Mend it? [y/N] "));
    taken.Type("y\n");
    taken.End();
    EXPECT_THAT(taken.Shown, HasSubstr("--fix, folder HIST: mended"));
    EXPECT_THAT(taken.Shown, HasSubstr("good           folder HIST: in "));
    EXPECT_TRUE(std::filesystem::is_directory(Locks.Directory.Path() + "HIST"));
}

} // namespace
} // namespace qvm
