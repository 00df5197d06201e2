// Each call of the system that a load, a save or a check makes fails once. A file is the old one or the new one
// afterwards, nothing else lies beside it, and who asked hears of it.

#include "Check.h"
#include "Import.h"
#include "Inhalt.h"
#include "Kern.h"
#include "Konfiguration.h"
#include "PosixFiles.h"
#include "SyscallFaults.h"
#include "Tables.h"
#include "VirtualPlatform.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <string>

namespace qvm::test {
namespace {

namespace fs = std::filesystem;

constexpr int Errors[] = {EIO, ENOSPC, EMFILE, EINTR};

class Each_call : public testing::Test {
protected:
    Each_call() {
        std::string pattern = (fs::temp_directory_path() / "qvm-syscalls-XXXXXX").string();
        directory_ = std::string(::mkdtemp(pattern.data())) + "/";
    }
    ~Each_call() override { fs::remove_all(directory_); }

    std::string Path(const std::string& name = {}) const { return directory_ + name; }
    void Put(const std::string& name, const std::string& bytes) const {
        std::ofstream(Path(name), std::ios::binary) << bytes;
    }
    /// All that lies in the directory, by name.
    std::map<std::string, std::string> Held() const {
        std::map<std::string, std::string> held;
        for (const auto& entry : fs::directory_iterator(directory_)) {
            held[entry.path().filename().string()] = Inhalt(entry.path().string());
        }
        return held;
    }
    void Empty() const {
        for (const auto& entry : fs::directory_iterator(directory_)) {
            fs::remove_all(entry.path());
        }
    }
    /// Does `action` with call 1 failing, then call 2, until none is left, with every error. `prepare` comes before
    /// each, `examine` behind; it gets the name of the call.
    static int Break(const std::function<void()>& prepare, const std::function<void()>& action,
                     const std::function<void(const std::string& call, int error)>& examine) {
        int broken = 0;
        for (const int error : Errors) {
            for (int number = 1;; ++number) {
                prepare();
                std::string call;
                {
                    const SyscallFault fault(number, error);
                    action();
                    call = fault.Failed();
                }
                if (call.empty()) {
                    break;
                }
                SCOPED_TRACE(call + " is call " + std::to_string(number) + ", error " + std::to_string(error));
                examine(call, error);
                ++broken;
            }
        }
        return broken;
    }
    /// The same for one write to the file "a" that holds `old`, or is missing when that is "-".
    void Break_Write(const std::string& old, const std::string& fresh, const std::function<bool()>& write) {
        bool done = false;
        const std::map<std::string, std::string> before =
            old == "-" ? std::map<std::string, std::string>{} : std::map<std::string, std::string>{{"a", old}};
        const std::map<std::string, std::string> after{{"a", fresh}};
        const int broken = Break(
            [&] {
                Empty();
                if (old != "-") {
                    Put("a", old);
                }
            },
            [&] { done = write(); },
            [&](const std::string&, int) {
                EXPECT_TRUE(Held() == before || Held() == after);
                EXPECT_TRUE(!done || Held() == after);
            });
        EXPECT_GT(broken, 12);
    }

    const FileStore Files = PosixFiles();

private:
    std::string directory_;
};

TEST_F(Each_call, of_a_replace_fails_once) {
    Break_Write("old", "new text", [&] { return Files.Replace(Path("a"), "new text"); });
    Break_Write("-", "new text", [&] { return Files.Replace(Path("a"), "new text"); });
}

TEST_F(Each_call, of_a_record_written_in_place_fails_once) {
    Break_Write("0123456789", "012abc6789", [&] { return Files.WriteAt(Path("a"), 3, "abc"); });
    Break_Write("0123", "01abcd", [&] { return Files.WriteAt(Path("a"), 2, "abcd"); });
    Break_Write("-", "abcd", [&] { return Files.WriteAt(Path("a"), 0, "abcd"); });
}

TEST_F(Each_call, of_a_line_appended_fails_once) {
    Break_Write("one", "one two", [&] { return Files.Append(Path("a"), " two"); });
    Break_Write("-", "one", [&] { return Files.Append(Path("a"), "one"); });
}

TEST_F(Each_call, of_a_flush_fails_once_and_who_asked_hears_of_it) {
    bool done = false;
    int unflushed = 0;
    const int broken = Break([&] { Put("a", "one"); }, [&] { done = Files.Flush(Path("a")); },
                             [&](const std::string& call, int error) {
                                 const bool harmless = call == "close" || (call == "open" && error == EINTR);
                                 EXPECT_EQ(done, harmless);
                                 unflushed += call == "fsync" ? 1 : 0;
                                 EXPECT_EQ(Held(), (std::map<std::string, std::string>{{"a", "one"}}));
                             });
    EXPECT_GT(broken, 12);
    EXPECT_GE(unflushed, 8) << "file and directory, with each error";
}

TEST_F(Each_call, of_a_read_fails_once_and_a_file_that_is_there_is_never_missing) {
    ReadStatus status{};
    std::string bytes;
    FileFault fault{};
    const int broken = Break([&] { Put("a", "text"); },
                             [&] {
                                 status = Files.ReadAll(Path("a"), bytes);
                                 fault = Files.LastFault();
                             },
                             [&](const std::string& call, int error) {
                                 const bool harmless =
                                     call == "close" || (error == EINTR && call != "stat" && call != "fstat");
                                 EXPECT_EQ(status, harmless ? ReadStatus::Ok : ReadStatus::Error);
                                 EXPECT_EQ(bytes, harmless ? "text" : "");
                                 EXPECT_EQ(fault == FileFault::None, harmless);
                             });
    EXPECT_GT(broken, 15);
}

TEST_F(Each_call, of_a_save_of_the_settings_fails_once) {
    VirtualPlatform world;
    world.World.Files = Files;
    const std::string oldSettings = "Deutsch\r\n1\r\nUSB-Port3\r\n5\r\n",
                      newSettings = "English\r\n1\r\nUSB-Port3\r\n7\r\n";
    const std::string oldAdapter = "SET       \r\n     \r\n     \r\n     \r\n     \r\n     \r\n";
    const std::string newAdapter = "RESET     \r\n     \r\n     \r\n     \r\n     \r\n     \r\n";
    bool saved = false;
    const std::string directory = Path();
    const int broken = Break(
        [&] {
            Empty();
            fs::create_directory(Path("DAT"));
            Put("DAT/EST7CSB29A.I_1", oldSettings);
            Put("DAT/CHEUSB25C.I_2", oldAdapter);
        },
        [&] {
            Kern kern(world.World);
            kern.AppPath = directory;
            Konfiguration_Laden(kern);
            kern.Config.Sprache = "English";
            kern.Config.RadioChannel = "7";
            kern.Config.PortAutomatik = "RESET";
            saved = Konfiguration_Speichern(kern);
        },
        [&](const std::string&, int) {
            std::map<std::string, std::string> held;
            for (const auto& entry : fs::directory_iterator(Path("DAT"))) {
                held[entry.path().filename().string()] = Inhalt(entry.path().string());
            }
            ASSERT_EQ(held.size(), 2U);
            // Values that the load lost are the defaults in the new file; those of a file that was not read stay.
            const bool freshSettings = held["EST7CSB29A.I_1"] == newSettings;
            const bool freshAdapter = held["CHEUSB25C.I_2"] == newAdapter;
            EXPECT_TRUE(freshSettings || held["EST7CSB29A.I_1"] == oldSettings);
            EXPECT_TRUE(freshAdapter || held["CHEUSB25C.I_2"] == oldAdapter);
            EXPECT_TRUE(!saved || (freshSettings && freshAdapter));
        });
    EXPECT_GT(broken, 60);
}

TEST_F(Each_call, of_a_check_fails_once_and_the_check_is_not_clean) {
    for (const RecordLayout* layout : Satztabellen()) {
        Put(std::string(layout->File), "");
    }
    std::vector<Finding> findings;
    std::size_t atRest = 0;
    {
        const SyscallFault none(0, 0);
        atRest = Daten_Pruefen(Files, Path()).size();
    }
    const int broken = Break([] {}, [&] { findings = Daten_Pruefen(Files, Path()); },
                             [&](const std::string& call, int error) {
                                 // The others are done again when they were interrupted.
                                 const bool once = call == "stat" || call == "lstat" || call == "fstat";
                                 const bool harmless = call == "close" || (error == EINTR && !once);
                                 const bool told =
                                     std::any_of(findings.begin(), findings.end(), [](const Finding& finding) {
                                         return finding.Text.find("cannot be read") != std::string::npos;
                                     });
                                 EXPECT_NE(told, harmless);
                                 EXPECT_TRUE(!harmless || findings.size() == atRest);
                             });
    EXPECT_GT(broken, 200);
    EXPECT_GT(atRest, 0U);
}

} // namespace
} // namespace qvm::test
