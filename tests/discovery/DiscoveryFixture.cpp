#include "DiscoveryFixture.h"

namespace qvm::test {

Bytes RecordPayload(std::string_view name) {
    Bytes payload{1, 0, 255, 7, 0};
    payload.insert(payload.end(), name.begin(), name.end());
    payload.resize(27, 0);
    for (std::uint8_t n = 0; n < 16; ++n) {
        payload.push_back(n);
    }
    return payload;
}

DiscoveryFixture::DiscoveryFixture() {
    kern.AppPath = "/q/";
    kern.Config.PortName = "USB-Port1";
    kern.Config.RadioChannel = "3";
    world.AdapterPortNumbers.clear();
    world.PortThere = [this](int port) {
        return Systems.contains(port) || Devices.contains(port) || Silent.contains(port);
    };
    world.OnWrite = [this](std::span<const std::uint8_t> bytes) {
        const int port = world.PortNumber;
        Asked.push_back(port);
        if (const auto system = Systems.find(port); system != Systems.end()) {
            system->second->Receive(bytes);
        } else if (const auto device = Devices.find(port); device != Devices.end()) {
            device->second(bytes);
        }
    };
}

DiscoveryFixture::~DiscoveryFixture() {
    EXPECT_EQ(world.HourglassDepth, 0);
    EXPECT_FALSE(list.SucheLaeuft);
    for (const auto& [port, system] : Systems) {
        EXPECT_EQ(system->JudgementLines(), "") << "port " << port;
    }
}

VirtualSystem& DiscoveryFixture::Plug(int port, std::string_view name, DeviceAddress address, std::uint8_t version) {
    VirtualWorld devices;
    devices.Adapter.Name = name;
    devices.Adapter.Address = address;
    devices.Adapter.Version = version;
    devices.ReplyMs = 20;
    SimSurroundings around;
    around.Now = [this] { return world.Elapsed(); };
    around.After = [this](int ms, std::function<void()> action) { world.At(ms, std::move(action)); };
    around.Send = [this, port](const Bytes& bytes) {
        if (world.PortNumber == port) {
            world.Deliver(bytes);
        }
    };
    Systems[port] = std::make_unique<VirtualSystem>(std::move(devices), std::move(around));
    world.AdapterPortNumbers.push_back(port);
    return *Systems[port];
}

void DiscoveryFixture::PlugDevice(int port, Device device) {
    Devices[port] = std::move(device);
    world.AdapterPortNumbers.push_back(port);
}

void DiscoveryFixture::PlugSilent(int port) {
    Silent.insert(port);
    world.AdapterPortNumbers.push_back(port);
}

void DiscoveryFixture::PlugAnswering(int port, std::map<std::uint8_t, Bytes> answers) {
    PlugDevice(port, [this, answers = std::move(answers)](std::span<const std::uint8_t> bytes) {
        if (const auto answer = answers.find(bytes[2]); answer != answers.end()) {
            world.Deliver(answer->second, 20);
        }
    });
}

void DiscoveryFixture::Mode(std::string_view mode) {
    kern.Config.PortAutomatik = mode;
    kern.Config.PortNummer = 1;
}

bool DiscoveryFixture::Search() {
    Port_Einrichten(link, list);
    const std::int64_t start = world.Elapsed();
    const bool found = Adapter_Suchen(link, list);
    Took = world.Elapsed() - start;
    return found;
}

void DiscoveryFixture::NextProbe(const Bytes& probe) {
    for (const std::uint8_t byte : probe) {
        world.RandomValues.push_back((byte + 0.5) / 256.0);
    }
}

std::vector<std::string> DiscoveryFixture::Names() const {
    std::vector<std::string> names;
    for (const AdapterSatz& adapter : list.Saetze) {
        names.push_back(adapter.Name);
    }
    return names;
}

} // namespace qvm::test
