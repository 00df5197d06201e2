#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <termios.h>
#include <vector>

namespace qvm::test {

/// A pseudo-terminal, seen from the adapter's side. The program opens Device().
class FarEnd {
public:
    FarEnd();
    ~FarEnd() { Unplug(); }
    FarEnd(const FarEnd&) = delete;
    FarEnd& operator=(const FarEnd&) = delete;

    const std::string& Device() const { return device_; }
    /// Writes all, waiting for room. False when the line is closed.
    bool Send(std::span<const std::uint8_t> bytes) const;
    /// What has come so far, without waiting.
    std::vector<std::uint8_t> Received() const;
    /// The line settings that the program made.
    termios Settings() const;
    void Unplug();

private:
    int handle_ = -1;
    std::string device_;
};

} // namespace qvm::test
