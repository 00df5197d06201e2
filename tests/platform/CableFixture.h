#pragma once

#include "FarEnd.h"
#include "RealWorld.h"

#include <cstdint>
#include <filesystem>
#include <vector>

namespace qvm::test {

using Bytes = std::vector<std::uint8_t>;

/// A platform whose port 1 is a pseudo-terminal, by way of the link com1.
class CableFixture : public RealWorld {
protected:
    CableFixture() { std::filesystem::create_symlink(Cable.Device(), Directory / "com1"); }

    void OpenPort() {
        ASSERT_TRUE(World().Port.Open(1)) << World().Port.LastError();
        World().Port.OnByte([this](std::uint8_t byte) { Got.push_back(byte); });
    }

    FarEnd Cable;
    Bytes Got;
};

} // namespace qvm::test
