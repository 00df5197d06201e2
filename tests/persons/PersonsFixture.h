#pragma once

#include "F5_Laden.h"
#include "F5_Speichern.h"
#include "Kern.h"
#include "VirtualPlatform.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <string>
#include <string_view>

namespace qvm::test {

inline std::string Nulls(std::size_t n) {
    return std::string(n, '\0');
}
inline std::string Blanks(std::size_t n) {
    return std::string(n, ' ');
}
inline std::string Dashes(std::size_t n) {
    return std::string(n, '-');
}

/// An installation with a user table, in memory.
struct Persons : testing::Test {
    static constexpr const char* UserFile = "/qvm/DAT/BX10X52WUJ9.UBW";
    static constexpr const char* LockFile = "/qvm/DAT/C64UX12H3D.EBW";
    static constexpr const char* ChannelFile = "/qvm/DAT/RFCHANDIF12.RFX";
    static constexpr const char* TemplateFile = "/qvm/DAT/TEmpTCD0UPK.FSD";

    VirtualPlatform Welt;
    Kern kern{Welt.World};
    UserTable table;

    Persons() {
        kern.AppPath = "/qvm/";
        table.GroupTablePerson[1] = {"1", "Timer-A", "", "", "PB_2008TimA"};
        table.GroupTablePerson[2] = {"2", "Timer-B", "", "", "PB_2008TimB"};
        table.GroupTablePerson[3] = {"3", "Putzdienst", "", "", "PB_0000003"};
    }

    std::string& File(const char* path) { return Welt.Disk.Files[path]; }
    bool Has(const char* path) const { return Welt.Disk.Files.contains(path); }

    /// Gives a lock a name in the lock file, which grows as needed.
    void NameLock(int lock, std::string_view name) {
        std::string& file = File(LockFile);
        const std::size_t at = static_cast<std::size_t>(lock - 1) * 45;
        if (file.size() < at + 45) {
            file.resize(at + 45, ' ');
        }
        file.replace(at, 20, std::string(name) + Nulls(20 - name.size()));
    }

    /// One field of a user's record as it stands in the file.
    std::string FileField(int user, std::size_t offset, std::size_t width) {
        return File(UserFile).substr(static_cast<std::size_t>(user - 1) * 419 + offset, width);
    }
};

/// A record of 419 bytes: everything blank but name and lock mask.
inline std::string PlainUser(std::string_view name, std::string_view marks) {
    return std::string(name) + Nulls(16 - name.size()) + "-" + Blanks(14) + Blanks(4 + 10 + 16 + 41 + 93) + "--" +
           Blanks(21) + std::string(marks) + Dashes(200 - marks.size()) + " ";
}

} // namespace qvm::test
