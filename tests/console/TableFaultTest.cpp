// A spreadsheet that is to be written onto a disk of which one operation after the other fails.

#include "Befehle.h"
#include "PosixFiles.h"
#include "VirtualLocks.h"
#include "VirtualPlatform.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace qvm::test {
namespace {

/// The disk, of which the writing operation of a number fails.
class FailingDisk {
public:
    explicit FailingDisk(int failAt) : left_(failAt) {}

    FileStore Store() {
        const FileStore disk = PosixFiles();
        FileStore store = disk;
        store.Replace = [this, disk](const std::string& path, std::string_view bytes) {
            return Works() && disk.Replace(path, bytes);
        };
        store.WriteAt = [this, disk](const std::string& path, std::uint64_t offset, std::string_view bytes) {
            return Works() && disk.WriteAt(path, offset, bytes);
        };
        store.Append = [this, disk](const std::string& path, std::string_view bytes) {
            return Works() && disk.Append(path, bytes);
        };
        store.Remove = [this, disk](const std::string& path) { return Works() && disk.Remove(path); };
        return store;
    }
    /// False: fewer operations were made.
    bool Failed() const { return left_ <= 0; }

private:
    bool Works() { return --left_ != 0; }

    int left_;
};

class Table_On_A_Failing_Disk : public testing::Test {
protected:
    std::map<std::string, std::string> Data() const {
        std::map<std::string, std::string> files;
        for (const std::string& name : Directory.List("DAT")) {
            files[name] = Directory.Read("DAT/" + name);
        }
        return files;
    }

    /// Names of the files that are other ones than then.
    std::vector<std::string> ChangedSince(const std::map<std::string, std::string>& then) const {
        std::vector<std::string> names;
        for (const auto& [name, bytes] : Data()) {
            if (!then.contains(name) || then.at(name) != bytes) {
                names.push_back(name);
            }
        }
        return names;
    }

    /// Takes the sheet while each of the operations fails in turn, until all of them work; gives how many there are.
    int Take(const std::string& sheet) {
        const std::map<std::string, std::string> before = Data();
        for (int failing = 1; failing < 100; ++failing) {
            SCOPED_TRACE(failing);
            VirtualPlatform world;
            FailingDisk disk(failing);
            world.World.Files = disk.Store();
            Optionen options;
            options.Wanted = Command::Import;
            options.File = Directory.Write("sheet.csv", sheet);
            std::ostringstream out, err;
            const ExitCode code =
                Befehl_Tabelle({.Welt = world.World, .AppPath = Directory.Path()}, {.Out = out, .Err = err}, options);
            if (!disk.Failed()) {
                EXPECT_EQ(code, ExitCode::Good) << err.str();
                EXPECT_THAT(ChangedSince(before), testing::Not(testing::IsEmpty()));
                return failing - 1;
            }
            EXPECT_EQ(code, ExitCode::Fault);
            EXPECT_EQ(out.str(), "");
            EXPECT_THAT(err.str(), testing::HasSubstr("could not be written, and are as they were."));
            EXPECT_THAT(ChangedSince(before), testing::IsEmpty());
        }
        ADD_FAILURE() << "never works";
        return 0;
    }

    VirtualLocks Locks;
    const TempDirectory& Directory = Locks.Directory;
};

TEST_F(Table_On_A_Failing_Disk, of_users_leaves_every_file_as_it_was) {
    EXPECT_GE(Take("Name,Right\nCora,0\n"), 1);
}

TEST_F(Table_On_A_Failing_Disk, of_locks_leaves_every_file_as_it_was) {
    // The channel file comes first, as the serial number is another one.
    EXPECT_GE(Take("Name;Serial no.\nFern;00.0A.10.0F\n"), 2);
}

} // namespace
} // namespace qvm::test
