#pragma once

#include "Platform.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <span>
#include <vector>

namespace qvm {

/// A serial port in memory. An adapter is plugged in at its far end, at whatever number, until it is pulled out.
class Gebaeudeleitung {
public:
    /// @param world the real one, for its timers
    explicit Gebaeudeleitung(const Platform& world) : world_(world) {}
    ~Gebaeudeleitung();
    Gebaeudeleitung(const Gebaeudeleitung&) = delete;
    Gebaeudeleitung& operator=(const Gebaeudeleitung&) = delete;

    /// Puts port, adapter ports and the news of them into a world of the program. This must outlive it.
    void Einsetzen(Platform& inside);

    std::function<void(std::span<const std::uint8_t> bytes)> Gesendet; ///< what the program has written
    /// Bytes for the program, once this call is over; dropped while the port is closed.
    void Empfangen(const std::vector<std::uint8_t>& bytes);
    /// Runs `action` `ms` from now, and never inside this call.
    void Nach(int ms, std::function<void()> action);

    bool Steckt() const { return plugged_; }
    void Ziehen();
    void Stecken();

private:
    bool Oeffnen();
    void Schliessen();
    void Zustellen();
    void Melden(PortChange change);

    const Platform& world_;
    bool plugged_ = true, open_ = false;
    PortFault fault_;
    std::deque<std::uint8_t> incoming_;
    std::function<void(std::uint8_t)> receiver_;
    std::function<void(PortChange)> changed_;
    std::vector<std::shared_ptr<TimerId>> waiting_;
};

} // namespace qvm
