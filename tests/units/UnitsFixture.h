#pragma once

#include "Kern.h"
#include "UnitSettings.h"
#include "Units.h"
#include "VirtualPlatform.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <string>

namespace qvm::test {

inline std::string Nulls(std::size_t n) {
    return std::string(n, '\0');
}
inline std::string Blanks(std::size_t n) {
    return std::string(n, ' ');
}

/// An installation with a unit table and the window's grid, in memory.
struct UnitWorld : testing::Test {
    static constexpr const char* UnitFile = "/qvm/DAT/T6WRSSISN.TSD";

    VirtualPlatform Welt;
    Kern kern{Welt.World};
    UnitSettings settings;
    Grid FGK20{6, 5};

    UnitWorld() { kern.AppPath = "/qvm/"; }

    std::string& File(const char* path) { return Welt.Disk.Files[path]; }
    bool Has(const char* path) const { return Welt.Disk.Files.contains(path); }
};

/// A record of 241 bytes: a head of 16 bytes and no unit.
inline std::string HeadOnly(const std::string& head) {
    return head + Blanks(241 - head.size());
}

} // namespace qvm::test
