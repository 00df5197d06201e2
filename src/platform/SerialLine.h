#pragma once

#include "PortFault.h"

#include <QObject>

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>

class QSerialPort;

namespace qvm {

class PortGuard;

/// One serial port on Qt's event loop: 19200 baud, 8 data bits, no parity, 1 stop bit, no handshake. Works on
/// pseudo-terminals as well, which ignore speed and lines.
///
/// Received bytes go through a queue and are handed out in an event of their own, one call a byte. The signal of
/// QSerialPort does not come again while its slot is on the stack, so a receiver that waits inside it would wait in
/// vain. An event hands out for a few milliseconds at most, and no more is read than the queue holds, so that a device
/// that floods the line neither stops the other events nor fills the memory.
class SerialLine : public QObject {
public:
    SerialLine();
    ~SerialLine() override;

    /// Closes what is open, then opens `device` (UTF-8) for this program alone. Bytes that came before are dropped.
    bool Open(const std::string& device);
    /// Drops the bytes that nobody has got yet.
    void Close();
    bool IsOpen() const;
    /// Request to send. Devices without the line ignore it.
    void SetRts(bool on);
    /// Sends in order, as fast as the device takes it. Dropped when no port is open.
    void Write(std::span<const std::uint8_t> bytes);
    void OnByte(std::function<void(std::uint8_t)> receiver);

    /// Why the port is not open; None after Open gave true.
    const PortFault& Fault() const { return fault_; }
    /// Closes, for a reason that lies outside.
    void Refuse(PortFault fault);

protected:
    bool event(QEvent* event) override;

private:
    void SetUp();
    void Fetch();
    void HandOut();
    void Ask();
    void Broken();

    std::unique_ptr<QSerialPort> port_;
    std::unique_ptr<PortGuard> guard_;
    std::string device_;
    PortFault fault_;
    std::deque<std::uint8_t> queue_;
    std::shared_ptr<std::function<void(std::uint8_t)>> receiver_;
    std::optional<bool> rts_; ///< as set last
    bool asked_ = false;      ///< an event to hand out bytes is under way
    bool opening_ = false;
    bool broken_ = false; ///< an event to close the port is under way, or has come
};

} // namespace qvm
