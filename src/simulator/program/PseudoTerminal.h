#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace qvm {

/// The device end of a serial line whose other end is a terminal device in the file system.
///
/// No handle of that other end is kept open here: an exclusive lock that a killed client left on it would then never go
/// away. So the line hangs up whenever the last client closes it, and comes back with the next one.
class PseudoTerminal {
public:
    PseudoTerminal() = default;
    ~PseudoTerminal();
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    /// Makes the pair, in raw mode. False with a sentence in `fault` when that fails.
    bool Open(std::string& fault);
    /// Path of the clients' end.
    const std::string& Name() const { return name_; }
    int Handle() const { return handle_; }
    /// What has come; nothing when the line hung up and no byte is left.
    std::optional<std::vector<std::uint8_t>> Read();
    /// As many of the bytes as the line takes; the count.
    std::size_t Write(std::span<const std::uint8_t> bytes);
    /// Hangs up for good, as when the adapter is pulled out.
    void Close();

private:
    int handle_ = -1;
    std::string name_;
};

/// A symbolic link to a device for as long as this lives. Replaces a link that stands there, never anything else.
class DeviceLink {
public:
    DeviceLink() = default;
    ~DeviceLink();
    DeviceLink(const DeviceLink&) = delete;
    DeviceLink& operator=(const DeviceLink&) = delete;

    bool Make(const std::string& link, const std::string& device, std::string& fault);
    /// Removes it if it still leads to the device.
    void Remove();

private:
    std::string link_;
    std::string device_;
};

} // namespace qvm
