#pragma once

#include "MemoryFiles.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace qvm::test {

/// A user as a test wants it in the data files.
struct TestUser {
    std::string Name{};
    std::string Code = "123456";
    std::string Group = "-"; ///< the group's identifier
    std::string Right = "1";
    std::string Label{};
    std::string KeyId{};
    std::string KeyData{};
    std::string FingerFlag = "--";
    std::string FingerId{};
    std::map<int, char> Marks{}; ///< lock number to mark
};

/// Writes data files by offsets typed by hand, not through the program's own record tables.
class Datendateien {
public:
    /// `app`: the program's directory, with a trailing separator.
    explicit Datendateien(MemoryFiles& disk, std::string_view app = "/q/")
        : disk_(disk), dat_(std::string(app) + "DAT/") {}

    /// Switches: five characters, "X" on.
    void Lock(int number, std::string_view name, std::string_view serial, std::string_view switches = "XXXXX");
    void User(int number, const TestUser& user);
    /// A fingerprint template: length (low byte first), then the rest, as decimals.
    void Template(int record, std::string_view identifier, const std::vector<std::uint8_t>& values);
    /// The same with the decimals as they stand in the file.
    void Template(int record, std::string_view identifier, std::string_view text);
    void Slot(int number, std::uint8_t day, std::string_view from, std::string_view to);
    void Group(int number, std::string_view name, std::string_view days, std::string_view id);
    void LockGroup(int number, std::string_view name, std::string_view days, std::string_view id);
    void LockHasGroup(int lock, std::string_view id);
    void Holiday(int record, std::string_view from, std::string_view to, char kind);
    void Priority(int lock, std::string_view text);
    void Emi(int lock, char state);
    void Channel(int lock, std::string_view channel, std::string_view target, std::string_view change);
    /// Reception setting of a lock: mode, always on, third character, h, m, s, signal flag, level.
    void Reception(int lock, char mode, char always, char third, int h, int m, int s, char flag,
                   std::string_view level);
    /// Unit 1 to 5 of a lock; the serial is four parts of two characters, hexadecimal digits in a good one.
    void Unit(int lock, int unit, std::string_view name, std::string_view serial, char module,
              std::string_view number = "1");

    std::string& File(const std::string& name) { return disk_.Files[dat_ + name]; }
    /// A field of a record: `text` from `offset` on, filled up to `width`. A file that is not there yet gets the
    /// records that a window leaves in it.
    void Put(const std::string& file, std::size_t length, int record, std::size_t offset, std::size_t width,
             std::string_view text, char pad = ' ');

private:
    MemoryFiles& disk_;
    std::string dat_;
};

} // namespace qvm::test
