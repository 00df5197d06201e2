// The look at the PC through the built program, with the virtual lock system as its adapter.

#include "VirtualLocks.h"

#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <gmock/gmock.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace qvm::test {
namespace {

using DoctorDocument = nlohmann::json;
using testing::HasSubstr;

struct Binary_Doctor : testing::Test {
    void SetUp() override {
        for (const char* const language : {"Deutsch", "Francais", "Nederlands"}) {
            const std::string name = std::string("QVM_") + language + ".DAT";
            std::filesystem::copy_file(QVM_BINARY_DIR "/lang/" + name, Locks.Directory.Path() + name);
        }
        std::filesystem::create_directory(Locks.Directory.Path() + "HIST");
    }
    RunResult Doctor(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), "doctor");
        return Locks.RunHere(arguments);
    }
    DoctorDocument Document(const std::vector<std::string>& more = {}, int code = -1) const {
        std::vector<std::string> arguments{"--json"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const RunResult result = Doctor(arguments);
        DoctorDocument document = DoctorDocument::parse(result.Out, nullptr, false);
        EXPECT_TRUE(document.is_object()) << result.Out << result.Err;
        EXPECT_EQ(document.value("exit", -2), result.Code);
        if (code >= 0) {
            EXPECT_EQ(result.Code, code) << result.Out;
        }
        return document;
    }
    /// The line of a check; what it is about may be left out.
    static DoctorDocument Line(const DoctorDocument& document, const std::string& check,
                               const std::string& about = {}) {
        for (const DoctorDocument& line : document["lines"]) {
            if (line["check"] == check && (about.empty() || line["about"] == about)) {
                return line;
            }
        }
        ADD_FAILURE() << "no line of " << check;
        return {};
    }
    /// Verdicts of all lines but of the PC itself, which is as it is.
    static std::string Bad(const DoctorDocument& document) {
        std::string bad;
        for (const DoctorDocument& line : document["lines"]) {
            const std::string check = line["check"];
            if (check != "services" && check != "clock" && check != "zone" && check != "disk" &&
                line["verdict"] != "good") {
                bad += line.dump() + "\n";
            }
        }
        return bad;
    }
    std::string At(const std::string& name) const { return Locks.Directory.Path() + name; }
    static unsigned Mode(const std::string& path) {
        struct stat info {};
        return ::stat(path.c_str(), &info) == 0 ? info.st_mode & 0777U : 0;
    }

    VirtualLocks Locks;
};

TEST_F(Binary_Doctor, finds_nothing_wrong_with_a_good_installation_and_changes_nothing) {
    Locks.Start();
    const std::vector<std::string> before = Locks.Directory.List("DAT");
    const DoctorDocument document = Document();
    EXPECT_EQ(document["command"], "doctor");
    EXPECT_EQ(Bad(document), "");
    EXPECT_EQ(Line(document, "adapter")["proof"], "a serial port is there");
    EXPECT_THAT(Line(document, "answer")["proof"].get<std::string>(), HasSubstr("PROGSTATION-1 answered, version "));
    EXPECT_EQ(document["fixes"].size(), 0U);
    EXPECT_EQ(Locks.Directory.List("DAT"), before);
    EXPECT_EQ(Locks.Stop(), "") << "the adapter was asked in order";
}

TEST_F(Binary_Doctor, tells_each_line_as_text_and_no_code) {
    const RunResult result = Doctor({});
    EXPECT_EQ(result.Code, 1) << result.Out;
    EXPECT_THAT(result.Out, HasSubstr("FAULT          adapter "));
    EXPECT_THAT(result.Out, HasSubstr(": nothing is there"));
    EXPECT_THAT(result.Out, HasSubstr("\n               > Plug the adapter in"));
    EXPECT_THAT(result.Out, HasSubstr("\ncannot be told answer: there is no port to look at\n"));
    EXPECT_THAT(result.Out, HasSubstr("\ngood           file DAT/BX10X52WUJ9.UBW: in order\n"));
    EXPECT_EQ(result.Out.find("918273"), std::string::npos);
    EXPECT_EQ(result.Out.find("104212"), std::string::npos);
}

TEST_F(Binary_Doctor, does_not_open_a_port_that_another_one_has) {
    Locks.Start();
    const int port = ::open((Locks.Directory.Path() + "com1").c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    ASSERT_EQ(::flock(port, LOCK_EX | LOCK_NB), 0);
    const DoctorDocument document = Document({}, 1);
    EXPECT_EQ(Line(document, "holder")["verdict"], "fault");
    EXPECT_EQ(Line(document, "holder")["proof"], "open by test_console (" + std::to_string(::getpid()) + ")");
    EXPECT_EQ(Line(document, "answer")["verdict"], "untold");
    EXPECT_EQ(Line(document, "answer")["proof"], "not asked, as the port is in use");
    ::close(port);
    EXPECT_EQ(Line(Document(), "holder")["verdict"], "good");
    Locks.Stop();
}

TEST_F(Binary_Doctor, ends_cleanly_at_ctrl_c_while_a_silent_adapter_is_asked) {
    Locks.Start({"--fault", "silent@#0+"});
    std::filesystem::remove(At("HIST"));
    const auto run = std::make_unique<Process>(QvmctlPath(), Locks.Here({"--json", "doctor", "--fix", "--yes"}));
    ASSERT_TRUE(run->WaitFor("try 1 of 4"));
    run->Signal(SIGINT);
    const RunResult result = run->Wait(10);
    EXPECT_EQ(result.Code, 3) << result.Err;
    EXPECT_THAT(result.Err, HasSubstr("Cancelled while the adapter was asked"));
    EXPECT_EQ(result.Err.find("try 2"), std::string::npos);
    EXPECT_EQ(DoctorDocument::parse(result.Out)["exit"], 3);
    EXPECT_FALSE(Locks.Directory.Has("HIST")) << "nothing was mended";
}

TEST_F(Binary_Doctor, tells_a_port_that_is_none) {
    Locks.Directory.Write("nothing", "");
    const RunResult result = Locks.RunHere({"--json", "--port", At("nothing"), "doctor"});
    EXPECT_EQ(result.Code, 1);
    EXPECT_EQ(Line(DoctorDocument::parse(result.Out), "adapter")["proof"], "what is there is no serial port");
}

TEST_F(Binary_Doctor, mends_what_needs_no_judgement_only_when_it_is_answered_yes) {
    Locks.Start();
    std::filesystem::remove(At("HIST"));
    const std::string users = At("DAT/BX10X52WUJ9.UBW");
    const std::string bytes = Locks.Directory.Read("DAT/BX10X52WUJ9.UBW");
    ::chmod(users.c_str(), 0644);

    DoctorDocument document = Document({"--fix"}, 1);
    EXPECT_EQ(document["fixes"].size(), 2U);
    EXPECT_EQ(document["fixes"][0]["result"], "declined");
    EXPECT_FALSE(Locks.Directory.Has("HIST"));
    EXPECT_EQ(Mode(users), 0644U);
    EXPECT_EQ(Line(document, "folder", "HIST")["fixable"], true);

    document = Document({"--fix", "--yes"});
    EXPECT_EQ(document["fixes"][0]["check"], "folder");
    EXPECT_EQ(document["fixes"][0]["result"], "mended");
    EXPECT_EQ(document["fixes"][1]["about"], "DAT/BX10X52WUJ9.UBW");
    EXPECT_EQ(Bad(document), "") << "what was mended is looked at again, and the adapter is not asked again";
    EXPECT_TRUE(std::filesystem::is_directory(At("HIST")));
    EXPECT_EQ(Mode(users), 0640U);
    EXPECT_EQ(Locks.Directory.Read("DAT/BX10X52WUJ9.UBW"), bytes);
    Locks.Stop();
}

TEST_F(Binary_Doctor, never_mends_what_a_file_holds_nor_makes_an_installation) {
    const std::string cut = Locks.Directory.Read("DAT/C64UX12H3D.EBW").substr(0, 8999);
    Locks.Directory.Write("DAT/C64UX12H3D.EBW", cut);
    const DoctorDocument document = Document({"--fix", "--yes"}, 1);
    EXPECT_EQ(Line(document, "file", "DAT/C64UX12H3D.EBW")["verdict"], "fault");
    EXPECT_EQ(Locks.Directory.Read("DAT/C64UX12H3D.EBW"), cut);

    const TempDirectory empty;
    const RunResult result = Qvmctl({"--dir", empty.Path(), "doctor", "--fix", "--yes"});
    EXPECT_EQ(result.Code, 1);
    EXPECT_THAT(result.Out, HasSubstr("FAULT          folder DAT: is not in "));
    EXPECT_FALSE(empty.Has("DAT"));
    EXPECT_FALSE(empty.Has("HIST"));
}

TEST_F(Binary_Doctor, wants_the_fix_with_the_yes) {
    EXPECT_EQ(Doctor({"--yes"}).Code, 1);
    EXPECT_THAT(Doctor({"--yes"}).Err, HasSubstr("--yes requires --fix"));
}

} // namespace
} // namespace qvm::test
