#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace qvm {

/// The device end of a serial line whose other end is a terminal device in the file system.
///
/// A handle of that other end stays open here: a client that is killed leaves its exclusive lock on the device, and
/// only an open handle can take the lock off again. So the line never hangs up by itself; clients are seen coming and
/// going by watching the device's file.
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
    /// Becomes readable when bytes have come, and when a client has come or gone.
    int LineHandle() const { return line_; }
    int WatchHandle() const { return watch_; }
    /// Takes note of clients that came and went. True when one has gone: what was on its way to it is dropped.
    bool UpdateClients();
    bool HasClient() const { return clients_ > 0; }
    /// What has come.
    std::vector<std::uint8_t> Read();
    /// As many of the bytes as the line takes; the count.
    std::size_t Write(std::span<const std::uint8_t> bytes);
    /// Hangs up for good, as when the adapter is pulled out.
    void Close();

private:
    bool MakeRaw(std::string& fault);

    int line_ = -1;
    int peer_ = -1;
    int watch_ = -1;
    int clients_ = 0;
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
