#include "Gebaeudeleitung.h"

#include <algorithm>
#include <utility>

namespace qvm {
namespace {

constexpr int OnlyPort = 1;
constexpr const char* DeviceName = "QVM";

} // namespace

Gebaeudeleitung::~Gebaeudeleitung() {
    for (const auto& timer : waiting_) {
        world_.StopTimer(*timer);
    }
}

void Gebaeudeleitung::Einsetzen(Platform& inside) {
    inside.Port = SerialPort{
        .Open = [this](int) { return Oeffnen(); },
        .Close = [this] { Schliessen(); },
        .IsOpen = [this] { return open_; },
        .SetRts = [](bool) {},
        .Write =
            [this](std::span<const std::uint8_t> bytes) {
                if (open_ && Gesendet) {
                    Gesendet(bytes);
                }
            },
        .OnByte = [this](std::function<void(std::uint8_t)> receiver) { receiver_ = std::move(receiver); },
        .LastError = [this] { return PortFault_English(fault_); },
        .LastFault = [this] { return fault_; },
    };
    inside.AdapterPorts = [this] { return plugged_ ? std::vector{OnlyPort} : std::vector<int>(); };
    inside.PortDevice = [](int) { return std::string(DeviceName); };
    inside.OnPortChange = [this](std::function<void(PortChange)> receiver) { changed_ = std::move(receiver); };
}

bool Gebaeudeleitung::Oeffnen() {
    fault_ = plugged_ ? PortFault{} : PortFault{.What = PortFault::Kind::NotThere, .Device = DeviceName};
    open_ = plugged_;
    return open_;
}

void Gebaeudeleitung::Schliessen() {
    open_ = false;
    incoming_.clear();
    fault_ = {};
}

void Gebaeudeleitung::Empfangen(const std::vector<std::uint8_t>& bytes) {
    if (!open_) {
        return;
    }
    if (incoming_.empty()) {
        Nach(0, [this] { Zustellen(); });
    }
    incoming_.insert(incoming_.end(), bytes.begin(), bytes.end());
}

/// The receiver may handle events itself, by which this is called once more: the order of the bytes stays.
void Gebaeudeleitung::Zustellen() {
    while (!incoming_.empty()) {
        const std::uint8_t byte = incoming_.front();
        incoming_.pop_front();
        if (receiver_) {
            receiver_(byte);
        }
    }
}

void Gebaeudeleitung::Nach(int ms, std::function<void()> action) {
    auto timer = std::make_shared<TimerId>();
    waiting_.push_back(timer);
    *timer = world_.StartTimer(std::max(ms, 1), [this, timer, action = std::move(action)] {
        const TimerId id = *timer;
        const auto act = action; // what stops the timer may take this function with it
        std::erase(waiting_, timer);
        world_.StopTimer(id);
        act();
    });
}

void Gebaeudeleitung::Melden(PortChange change) {
    Nach(0, [this, change] {
        if (changed_) {
            changed_(change);
        }
    });
}

void Gebaeudeleitung::Ziehen() {
    if (!plugged_) {
        return;
    }
    plugged_ = false;
    const bool broken = open_;
    Schliessen();
    if (broken) {
        fault_ = {.What = PortFault::Kind::Broken, .Device = DeviceName};
    }
    Melden(PortChange::Removed);
}

void Gebaeudeleitung::Stecken() {
    if (!plugged_) {
        plugged_ = true;
        Melden(PortChange::Arrived);
    }
}

} // namespace qvm
