#pragma once

#include <functional>
#include <memory>

namespace qvm {

class PortNumbers;

/// The system's word that something about serial ports may have changed. What it was is for the receiver to find out.
/// Each operating system has a file of its own with this class; the build takes one of them. A system for which there
/// is no such file yet never reports: ports are then found when the program is started or told to look again.
class PortWatch {
public:
    /// Calls `stir` from the event loop, many times for one plugging. `numbers` must live longer.
    PortWatch(const PortNumbers& numbers, std::function<void()> stir);
    ~PortWatch();
    PortWatch(const PortWatch&) = delete;
    PortWatch& operator=(const PortWatch&) = delete;

private:
    struct System;

    std::unique_ptr<System> system_;
};

} // namespace qvm
