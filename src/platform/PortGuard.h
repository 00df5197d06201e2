#pragma once

#include "FileHandle.h"
#include "PortFault.h"

#include <string>

namespace qvm {

/// Keeps a serial device for this program alone: finds out whether it can be had, and holds the advisory lock that
/// other terminal programs look at. The device's own exclusive mode does not keep the administrator's programs out,
/// and tells a newcomer nothing but "busy".
class PortGuard {
public:
    /// Takes the device. `Fault` says why when it cannot be had.
    explicit PortGuard(const std::string& device);

    /// None when the device is held.
    const PortFault& Fault() const { return fault_; }

    /// To be called when the device was put into its exclusive mode. Takes a pseudo-terminal out of it again: the mode
    /// outlives a crashed program there, as long as the other end lives, and would keep out everybody for good.
    void ExclusiveModeSet() const;

private:
    FileHandle handle_;
    PortFault fault_;
};

/// Why `device` (UTF-8) cannot be opened; `error` is an errno value.
PortFault PortFault_Of(const std::string& device, int error);
/// The same for a device that another program holds; names the program if the system tells.
PortFault PortFault_HeldNow(const std::string& device);

} // namespace qvm
