#pragma once

#include "PortBook.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

/// A serial device of the PC.
struct SerialDevice {
    std::string Name; ///< without directory, "ttyUSB0"
    int Vendor = 0;   ///< USB identity; 0: none
    int Product = 0;
};

/// USB identity of the adapter's bridge to the serial line.
inline constexpr int AdapterVendor = 0x067B, AdapterProduct = 0x2303;

/// The serial devices that the PC has now.
std::vector<SerialDevice> SerialDevices();

/// Port numbers where the system has none: `n` means the link `com<n>` of the program's directory if there is one,
/// else the device /dev/ttyUSB<n-1>. A device given by name stands for port 1 and replaces all others.
class PortNumbers {
public:
    /// `directory` with or without a separator at its end.
    PortNumbers(std::string directory, std::optional<std::string> device);

    /// The device behind a number from 1 to 255, whether it is there or not. Empty for other numbers, and for all but
    /// 1 when the device was given by name.
    std::string Device(int number) const;
    /// The same for an operator: a link with what it leads to, "com3 -> /dev/ttyUSB0"; without its directory.
    std::string Describe(int number) const;
    /// Numbers of the ports that can hold an adapter, ascending: links that lead to something, and those of `devices`
    /// with the adapter's USB identity.
    std::vector<int> Adapters(const std::vector<SerialDevice>& devices) const;
    /// The port numbers that have something behind them now, whatever it is.
    PortsThere There() const;

    /// The directory where links, or the device given by name, come and go.
    std::string WatchedDirectory() const;
    /// True when an entry of that name there can stand for a port number.
    bool IsWatched(std::string_view name) const;

private:
    std::string Link(int number) const;

    std::string directory_;
    std::optional<std::string> device_;
};

} // namespace qvm
