// Every data file damaged or replaced by what is no file, under every command. That nothing waits for ever shows by the
// tests coming to their end; an alarm ends them otherwise.

#include "CheckFixture.h"
#include "Hauptprogramm.h"
#include "Inhalt.h"
#include "PosixFiles.h"
#include "RunBinary.h"
#include "VirtualLine.h"

#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <span>
#include <sstream>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace qvm::test {
namespace {

namespace fs = std::filesystem;

/// The data files in which a run of the lock below looks, and the settings.
const std::set<std::string> OfARun{"EST7CSB29A.I_1",  "CHEUSB25C.I_2",     "BX10X52WUJ9.UBW", "RFCHANDIF12.RFX",
                                   "TEmpTCD0UPK.FSD", "C64UX12H3D.EBW",    "CPRT88X3FDA.PRT", "LSOEMIPART.LMT",
                                   "SBSCLKZU.SB1",    "LOCKCLASSCOMX.CMB", "T6WRSSISN.TSD",   "TX33Y98BSG9.TBW",
                                   "TIMGRP33T7.PBG",  "TIMGRP44T8_S.SBS"};
const std::set<std::string> Settings{"EST7CSB29A.I_1", "CHEUSB25C.I_2"};

/// What is done to a file; it gets the path of the good one.
struct Attack {
    const char* Name;
    bool Unreadable; ///< no command can read it
    std::function<void(const std::string& path)> Do;
};

void Cut(const std::string& path, std::size_t size) {
    fs::resize_file(path, size);
}

/// Bytes of a fixed sequence, control characters among the first ones.
void Randomise(const std::string& path) {
    std::string bytes(fs::file_size(path), '\0');
    std::uint32_t state = 7702;
    for (char& byte : bytes) {
        state = state * 1664525U + 1013904223U;
        byte = static_cast<char>(state >> 24U);
    }
    std::ofstream(path, std::ios::binary) << bytes;
}

void Socket(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_LT(path.size(), sizeof(address.sun_path));
    path.copy(address.sun_path, path.size());
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
    ::close(socket);
}

const Attack Attacks[] = {
    {"cut in the middle", false, [](const std::string& path) { Cut(path, fs::file_size(path) / 2); }},
    {"cut by a byte", false, [](const std::string& path) { Cut(path, fs::file_size(path) - 1); }},
    {"empty", false, [](const std::string& path) { Cut(path, 0); }},
    {"random", false, Randomise},
    {"a pipe", true,
     [](const std::string& path) {
         fs::remove(path);
         ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
     }},
    {"a directory", true,
     [](const std::string& path) {
         fs::remove(path);
         fs::create_directory(path);
     }},
    {"a device", true,
     [](const std::string& path) {
         fs::remove(path);
         fs::create_symlink("/dev/zero", path);
     }},
    {"a link to itself", true,
     [](const std::string& path) {
         fs::remove(path);
         fs::create_symlink(fs::path(path).filename(), path);
     }},
    {"a link to nothing", true,
     [](const std::string& path) {
         fs::remove(path);
         fs::create_symlink("nowhere", path);
     }},
    {"a socket", true,
     [](const std::string& path) {
         fs::remove(path);
         Socket(path);
     }},
};

class Hostile_files : public testing::Test {
protected:
    Hostile_files() {
        ::alarm(300);
        MemoryFiles disk;
        EXPECT_TRUE(Import(disk, Clean).Done);
        for (const auto& [path, bytes] : disk.Files) {
            good_[path.substr(Dat.size())] = bytes;
        }
        // One template will do, in the first record.
        good_["TEmpTCD0UPK.FSD"].erase(0, std::size_t{249} * 3028);
        good_["EST7CSB29A.I_1"] = "Deutsch\r\n1\r\nUSB-Port1\r\n5\r\n";
        Directory.Write("code", "123456\n");
        Directory.Write("QVM_Deutsch.DAT", "");
        Restore();
        Directory.Write("document.json", Exported());
    }
    ~Hostile_files() override { ::alarm(0); }

    std::string Path(const std::string& name) const { return Directory.Path() + "DAT/" + name; }
    void Restore() const {
        fs::remove_all(Directory.Path() + "DAT");
        fs::remove_all(Directory.Path() + "HIST");
        for (const auto& [name, bytes] : good_) {
            Directory.Write("DAT/" + name, bytes);
        }
    }
    const std::map<std::string, std::string>& Good() const { return good_; }

    struct Outcome {
        ExitCode Code{};
        std::string Text; ///< both outputs
    };
    /// One command in this process, on the real files, in virtual time. The adapter answers, the lock does not: a
    /// command that addresses it gets to the files that it needs for that.
    Outcome Run(Command command, bool force = false) const {
        VirtualPlatform world;
        VirtualSystem system({}, LineOf(world));
        world.OnWrite = [&system](std::span<const std::uint8_t> bytes) { system.Receive(bytes); };
        world.World.Files = PosixFiles();
        world.World.ShowMessage = [](const Message& message) {
            return message.Choice == Buttons::Ok ? Answer::Ok : Answer::No;
        };
        std::ostringstream out, err;
        Optionen options;
        options.Wanted = command;
        options.Locks = {1};
        options.CodeFrom = Directory.Path() + "code";
        options.File = command == Command::Import ? Directory.Path() + "document.json" : "-";
        options.Force = force;
        const Umgebung surroundings{.Welt = world.World, .AppPath = Directory.Path()};
        const ExitCode code = Befehl_Ausfuehren(surroundings, {.Out = out, .Err = err}, options);
        return {code, out.str() + err.str()};
    }
    /// What lies in DAT, by name; of what is no plain file its kind.
    std::map<std::string, std::string> Held() const {
        std::map<std::string, std::string> held;
        for (const auto& entry : fs::directory_iterator(Directory.Path() + "DAT")) {
            const auto status = entry.symlink_status();
            held[entry.path().filename().string()] = fs::is_regular_file(status)
                                                         ? Inhalt(entry.path().string())
                                                         : "kind " + std::to_string(static_cast<int>(status.type()));
        }
        return held;
    }
    /// `others`: what a command has nothing to do with must not be named.
    enum class Others { MayBeNamed, AreNotNamed };
    /// Every file with every attack: what `wants` says must be named by a command that ends with a fault and changes
    /// nothing that lies there. With the others the command has to come to its end, which a pipe tells best.
    void Attack_All(Command command, const std::function<bool(const std::string& file, const Attack&)>& wants,
                    Others others = Others::MayBeNamed) const {
        for (const auto& [name, bytes] : Good()) {
            for (const Attack& attack : Attacks) {
                const bool wanted = wants(name, attack);
                if (!wanted && others == Others::MayBeNamed && std::string_view(attack.Name) != "a pipe") {
                    continue;
                }
                SCOPED_TRACE(name + " is " + attack.Name);
                Restore();
                attack.Do(Path(name));
                const auto before = Held();
                const Outcome outcome = Run(command);
                if (wanted) {
                    EXPECT_EQ(outcome.Code, ExitCode::Fault);
                    EXPECT_THAT(outcome.Text, testing::HasSubstr(name));
                    EXPECT_EQ(Held(), before);
                } else if (others == Others::AreNotNamed) {
                    EXPECT_THAT(outcome.Text, testing::Not(testing::HasSubstr(name)));
                }
            }
        }
    }

    TempDirectory Directory;

private:
    std::string Exported() const {
        const Outcome outcome = Run(Command::Export);
        EXPECT_EQ(outcome.Code, ExitCode::Good);
        return outcome.Text;
    }

    std::map<std::string, std::string> good_;
};

/// What a writer may leave, too: no record in a file of holidays, and the port search's settings with their first line
/// alone, here without its end.
bool Looks_Whole(const std::string& file, const Attack& attack) {
    const std::string name = attack.Name;
    return (file == "KL10X49WTTI.CBW" && name == "empty") || (file == "CHEUSB25C.I_2" && name.starts_with("cut"));
}

TEST_F(Hostile_files, leave_the_good_installation_alone) {
    const auto before = Held();
    EXPECT_EQ(Run(Command::Check).Text, "All data files are in order.\n");
    EXPECT_EQ(Run(Command::Dataset).Code, ExitCode::Good);
    EXPECT_EQ(Run(Command::Export).Code, ExitCode::Good);
    EXPECT_EQ(Held(), before);
}

TEST_F(Hostile_files, under_check_are_all_named_when_they_cannot_be_read) {
    Attack_All(Command::Check, [](const std::string&, const Attack& attack) { return attack.Unreadable; });
}

TEST_F(Hostile_files, under_check_are_never_clean_when_they_are_damaged) {
    for (const auto& [name, bytes] : Good()) {
        for (const Attack& attack : Attacks) {
            const bool lines = bytes.find("\r\n") != std::string::npos;
            if (attack.Unreadable || Looks_Whole(name, attack) || (lines && !Settings.contains(name))) {
                continue;
            }
            SCOPED_TRACE(name + " is " + attack.Name);
            Restore();
            attack.Do(Path(name));
            EXPECT_EQ(Run(Command::Check).Code, ExitCode::Fault);
        }
    }
}

TEST_F(Hostile_files, under_export_are_all_named_when_they_cannot_be_read) {
    Attack_All(Command::Export, [](const std::string&, const Attack& attack) { return attack.Unreadable; });
}

TEST_F(Hostile_files, under_import_are_all_named_when_they_cannot_be_read) {
    Attack_All(Command::Import, [](const std::string&, const Attack& attack) { return attack.Unreadable; });
}

TEST_F(Hostile_files, under_dataset_are_named_when_the_lock_rests_on_them) {
    Attack_All(Command::Dataset, [](const std::string& file, const Attack& attack) {
        return OfARun.contains(file) && !Looks_Whole(file, attack);
    });
}

TEST_F(Hostile_files, under_program_are_named_when_the_lock_rests_on_them) {
    Attack_All(Command::Program, [](const std::string& file, const Attack& attack) {
        return OfARun.contains(file) && !Looks_Whole(file, attack);
    });
}

TEST_F(Hostile_files, under_run_are_named_when_the_lock_rests_on_them) {
    Attack_All(Command::Run, [](const std::string& file, const Attack& attack) {
        return OfARun.contains(file) && !Looks_Whole(file, attack);
    });
}

TEST_F(Hostile_files, under_history_only_the_settings_count_and_that_locks_and_channels_can_be_read) {
    Attack_All(
        Command::History,
        [](const std::string& file, const Attack& attack) {
            return (Settings.contains(file) && !Looks_Whole(file, attack)) ||
                   ((file == "C64UX12H3D.EBW" || file == "RFCHANDIF12.RFX") && attack.Unreadable);
        },
        Others::AreNotNamed);
}

TEST_F(Hostile_files, that_are_damaged_are_taken_as_they_are_on_request) {
    Cut(Path("BX10X52WUJ9.UBW"), std::size_t{419} * 125);
    const Outcome refused = Run(Command::Dataset);
    EXPECT_EQ(refused.Code, ExitCode::Fault);
    EXPECT_THAT(refused.Text, testing::HasSubstr("--force"));
    const Outcome forced = Run(Command::Dataset, true);
    EXPECT_EQ(forced.Code, ExitCode::Good);
    EXPECT_THAT(forced.Text, testing::HasSubstr("BX10X52WUJ9.UBW: it is too short"));
}

TEST_F(Hostile_files, that_cannot_be_read_and_damaged_settings_no_request_helps) {
    fs::remove(Path("BX10X52WUJ9.UBW"));
    fs::create_symlink("BX10X52WUJ9.UBW", Path("BX10X52WUJ9.UBW"));
    EXPECT_EQ(Run(Command::Dataset, true).Code, ExitCode::Fault);
    Restore();
    Cut(Path("EST7CSB29A.I_1"), 12);
    EXPECT_EQ(Run(Command::Dataset, true).Code, ExitCode::Fault);
    EXPECT_EQ(Run(Command::Program, true).Code, ExitCode::Fault);
}

TEST_F(Hostile_files, among_the_histories_are_named_and_the_others_printed) {
    Directory.Write("HIST/H_1.HST", "");
    ASSERT_EQ(::mkfifo((Directory.Path() + "HIST/H_2.HST").c_str(), 0600), 0);
    fs::create_symlink("/dev/zero", Directory.Path() + "HIST/H_3.HST");
    const Outcome outcome = Run(Command::Events);
    EXPECT_EQ(outcome.Code, ExitCode::Fault);
    EXPECT_THAT(outcome.Text, testing::HasSubstr("H_1.HST: "));
    EXPECT_THAT(outcome.Text, testing::HasSubstr("H_2.HST cannot be read: it is a pipe and not a file"));
    EXPECT_THAT(outcome.Text, testing::HasSubstr("H_3.HST cannot be read: it is a device and not a file"));
}

TEST_F(Hostile_files, a_pipe_ends_the_binary_with_its_name) {
    fs::remove(Path("BX10X52WUJ9.UBW"));
    ASSERT_EQ(::mkfifo(Path("BX10X52WUJ9.UBW").c_str(), 0600), 0);
    for (const char* command : {"check", "export"}) {
        const RunResult result = Qvmctl({"--dir", Directory.Path(), command});
        EXPECT_EQ(result.Code, 1) << command;
        EXPECT_THAT(result.Out + result.Err,
                    testing::HasSubstr("BX10X52WUJ9.UBW cannot be read: it is a pipe and not a file"))
            << command;
    }
}

TEST_F(Hostile_files, left_by_a_killed_save_are_gone_behind_the_next_import) {
    Directory.Write("DAT/.BX10X52WUJ9.UBW.aB3xY9", "half");
    Directory.Write("DAT/backup-20260305-070809/.BX10X52WUJ9.UBW.aB3xY9", "half");
    Directory.Write("DAT/backup-20260305-070809/BX10X52WUJ9.UBW", "kept");
    Directory.Write("DAT/.EST7CSB29A.I_1-20260305-070809.aB3xY9", "half");
    Directory.Write("DAT/.other.aB3xY9", "kept");
    EXPECT_EQ(Run(Command::Check).Code, ExitCode::Good);
    EXPECT_TRUE(Directory.Has("DAT/.BX10X52WUJ9.UBW.aB3xY9"));
    EXPECT_EQ(Run(Command::Import).Code, ExitCode::Good);
    EXPECT_FALSE(Directory.Has("DAT/.BX10X52WUJ9.UBW.aB3xY9"));
    EXPECT_FALSE(Directory.Has("DAT/backup-20260305-070809/.BX10X52WUJ9.UBW.aB3xY9"));
    EXPECT_TRUE(Directory.Has("DAT/backup-20260305-070809/BX10X52WUJ9.UBW"));
    EXPECT_FALSE(Directory.Has("DAT/.EST7CSB29A.I_1-20260305-070809.aB3xY9"));
    EXPECT_TRUE(Directory.Has("DAT/.other.aB3xY9"));
}

} // namespace
} // namespace qvm::test
