#pragma once

#include "AdapterScan.h"
#include "AntwortRahmen.h"
#include "AutoRegister.h"
#include "VirtualPlatform.h"
#include "VirtualSystem.h"

#include <cstdint>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qvm::test {

using Bytes = std::vector<std::uint8_t>;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// What follows index 3 of a complete record: the address, a 0, the name as it stands in its 20 bytes, two zeros, then
/// key bytes 0 to 15.
Bytes RecordPayload(std::string_view name);

/// Adapters and other devices behind several ports of one PC.
struct DiscoveryFixture : ::testing::Test {
    /// What a device that is no virtual adapter does with the bytes that reach it.
    using Device = std::function<void(std::span<const std::uint8_t> bytes)>;

    VirtualPlatform world;
    Kern kern{world.World};
    Link link{kern};
    AdapterListe list;
    std::map<int, std::unique_ptr<VirtualSystem>> Systems; ///< by port
    std::map<int, Device> Devices;
    std::set<int> Silent;   ///< ports that open and never answer
    std::vector<int> Asked; ///< port of each telegram, in turn

    DiscoveryFixture();
    ~DiscoveryFixture() override;

    /// A virtual adapter behind the port, which becomes a candidate.
    VirtualSystem& Plug(int port, std::string_view name, DeviceAddress address = {10, 20, 30, 40},
                        std::uint8_t version = 12);
    /// Another device behind the port, which becomes a candidate.
    void PlugDevice(int port, Device device);
    void PlugSilent(int port);
    /// A device that answers with fixed wire bytes, by the telegram's code; nothing for other codes.
    void PlugAnswering(int port, std::map<std::uint8_t, Bytes> answers);
    /// "SET" or "RESET" on port 1.
    void Mode(std::string_view mode);
    /// Finds the candidates, then searches. `Took` holds the virtual milliseconds of the search.
    bool Search();
    /// Fractions that make these probe bytes.
    void NextProbe(const Bytes& probe);
    std::vector<std::string> Names() const;

    std::int64_t Took = 0;
};

} // namespace qvm::test
