#include "SerialLine.h"

#include "FilePath.h"
#include "PortGuard.h"
#include "Text.h"

#include <QCoreApplication>
#include <QEvent>
#include <QSerialPort>

#include <chrono>
#include <climits>
#include <cstdlib>
#include <linux/serial.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <utility>

namespace qvm {

namespace {

constexpr auto BytesThere = QEvent::User;
constexpr auto CloseBroken = static_cast<QEvent::Type>(QEvent::User + 1);

/// Bytes that QSerialPort reads ahead, and about as many wait in the queue: two seconds of the line each. Further ones
/// stay with the system.
constexpr qint64 MostUnread = 4096;
constexpr std::size_t MostQueued = 4096;
/// How long one event hands out bytes. Far under what a person notices; at the speed of a real line an event never has
/// that much to do.
constexpr std::chrono::milliseconds LongestTurn(4);

/// A USB bridge otherwise keeps received bytes back for up to 16 ms. Other devices do not know the wish.
void AskLowLatency(int handle) {
    serial_struct settings{};
    if (::ioctl(handle, TIOCGSERIAL, &settings) == 0) {
        settings.flags |= ASYNC_LOW_LATENCY;
        ::ioctl(handle, TIOCSSERIAL, &settings);
    }
}

/// QSerialPort takes a device that is full for one that is broken, unless it is left to wait for room.
bool TakesBytes(int handle) {
    pollfd line{.fd = handle, .events = POLLOUT, .revents = 0};
    return ::poll(&line, 1, 0) == 1 && (line.revents & POLLOUT) != 0;
}

/// What QSerialPort reports although the port works: a pseudo-terminal has no lines.
bool Harmless(QSerialPort::SerialPortError error) {
    return error == QSerialPort::NoError || error == QSerialPort::UnsupportedOperationError ||
           error == QSerialPort::TimeoutError;
}

} // namespace

SerialLine::SerialLine() : port_(std::make_unique<QSerialPort>()) {
    connect(port_.get(), &QSerialPort::readyRead, this, [this] { Fetch(); });
    connect(port_.get(), &QSerialPort::errorOccurred, this, [this](QSerialPort::SerialPortError error) {
        if (!opening_ && !Harmless(error)) {
            Broken();
        }
    });
}

SerialLine::~SerialLine() {
    port_->disconnect(this);
}

bool SerialLine::Open(const std::string& device) {
    Close();
    // Locks and the kernel know a device by that name only.
    const std::string real = FilePath_Ziel(device);
    device_ = real;
    guard_ = std::make_unique<PortGuard>(real);
    if (guard_->Fault().What != PortFault::Kind::None) {
        Refuse(guard_->Fault());
        return false;
    }
    opening_ = true;
    SetUp();
    const bool open = port_->open(QIODevice::ReadWrite);
    opening_ = false;
    if (!open) {
        // The device itself could be opened a moment ago: what stands in the way is the lock file.
        const bool held = port_->error() == QSerialPort::PermissionError;
        Refuse(held ? PortFault_HeldNow(real)
                    : PortFault{.What = PortFault::Kind::Other,
                                .Device = AusUtf8(real),
                                .Detail = AusUtf8(port_->errorString().toStdString())});
        return false;
    }
    guard_->ExclusiveModeSet();
    AskLowLatency(port_->handle());
    port_->clear();
    fault_ = {};
    return true;
}

void SerialLine::SetUp() {
    broken_ = false;
    rts_.reset();
    port_->setPortName(QString::fromStdString(device_));
    port_->setBaudRate(QSerialPort::Baud19200);
    port_->setDataBits(QSerialPort::Data8);
    port_->setParity(QSerialPort::NoParity);
    port_->setStopBits(QSerialPort::OneStop);
    port_->setFlowControl(QSerialPort::NoFlowControl);
    port_->setReadBufferSize(MostUnread);
}

void SerialLine::Close() {
    if (port_->isOpen()) {
        port_->close();
    }
    guard_.reset();
    queue_.clear();
}

bool SerialLine::IsOpen() const {
    return port_->isOpen() && !broken_;
}

void SerialLine::Refuse(PortFault fault) {
    Close();
    fault_ = std::move(fault);
}

void SerialLine::SetRts(bool on) {
    // Each call is a transfer of its own on the USB bus, and the wish comes with every telegram. QSerialPort's own
    // routine would report an error on devices without the line.
    if (!IsOpen() || rts_ == on) {
        return;
    }
    const int line = TIOCM_RTS;
    ::ioctl(port_->handle(), on ? TIOCMBIS : TIOCMBIC, &line);
    rts_ = on;
}

void SerialLine::Write(std::span<const std::uint8_t> bytes) {
    if (!IsOpen() || bytes.empty()) {
        return;
    }
    // At once if the device takes it, not at the next turn of the event loop. What does not fit follows by itself.
    const bool now = port_->bytesToWrite() == 0 && TakesBytes(port_->handle());
    port_->write(reinterpret_cast<const char*>(bytes.data()), static_cast<qint64>(bytes.size()));
    if (now) {
        port_->flush();
    }
}

void SerialLine::OnByte(std::function<void(std::uint8_t)> receiver) {
    // Shared, so that a receiver may replace itself.
    receiver_ = receiver ? std::make_shared<std::function<void(std::uint8_t)>>(std::move(receiver)) : nullptr;
}

void SerialLine::Fetch() {
    if (queue_.size() >= MostQueued || port_->bytesAvailable() == 0) {
        return;
    }
    const QByteArray bytes = port_->readAll();
    queue_.insert(queue_.end(), bytes.begin(), bytes.end());
    Ask();
}

void SerialLine::Ask() {
    if (!asked_ && !queue_.empty()) {
        asked_ = true;
        QCoreApplication::postEvent(this, new QEvent(BytesThere), Qt::HighEventPriority);
    }
}

bool SerialLine::event(QEvent* event) {
    if (event->type() == BytesThere) {
        asked_ = false;
        HandOut();
        return true;
    }
    if (event->type() == CloseBroken) {
        // Unless the port was opened anew in the meantime.
        if (broken_ && port_->isOpen()) {
            port_->close();
            guard_.reset();
        }
        return true;
    }
    return QObject::event(event);
}

/// Hands out what has come, the rest in a later event. A receiver that waits gets what follows from inside its wait;
/// this turn then finds an empty queue.
void SerialLine::HandOut() {
    const auto end = std::chrono::steady_clock::now() + LongestTurn;
    while (!queue_.empty() && std::chrono::steady_clock::now() < end) {
        const std::uint8_t byte = queue_.front();
        queue_.pop_front();
        Ask();
        if (const auto receiver = receiver_) {
            (*receiver)(byte);
        }
    }
    Ask();
    if (IsOpen()) {
        Fetch(); // what found no room in the queue is not reported a second time
    }
}

/// The device is gone. QSerialPort goes on to report that at each turn of the event loop, and must not be closed while
/// it does.
void SerialLine::Broken() {
    if (broken_) {
        return;
    }
    broken_ = true;
    fault_ = {.What = PortFault::Kind::Broken, .Device = AusUtf8(device_)};
    QCoreApplication::postEvent(this, new QEvent(CloseBroken));
}

} // namespace qvm
