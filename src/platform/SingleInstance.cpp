#include "SingleInstance.h"

#include <QCryptographicHash>
#include <QDir>
#include <QSocketNotifier>
#include <QStandardPaths>

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <string_view>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>

namespace qvm {

namespace {

std::string BasePath(const std::string& directory) {
    const QDir folder(QString::fromStdString(directory));
    const QString real = folder.canonicalPath().isEmpty() ? folder.absolutePath() : folder.canonicalPath();
    const QByteArray key = QCryptographicHash::hash(real.toUtf8(), QCryptographicHash::Sha256).toHex().left(16);
    const QString runtime = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    return runtime.isEmpty() ? std::string() : runtime.toStdString() + "/qvm7702-" + key.toStdString();
}

/// Nothing when the path is too long for a socket.
std::optional<sockaddr_un> Address(const std::string& path) {
    sockaddr_un address{};
    if (path.size() >= sizeof(address.sun_path)) {
        return std::nullopt;
    }
    address.sun_family = AF_UNIX;
    std::copy(path.begin(), path.end(), address.sun_path);
    return address;
}

FileHandle* NewSocket() {
    return new FileHandle(::socket(AF_UNIX, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
}

} // namespace

SingleInstance::SingleInstance(std::string directory, std::function<void()> bringToFront)
    : directory_(std::move(directory)), bringToFront_(std::move(bringToFront)) {}

SingleInstance::~SingleInstance() {
    notifier_.reset();
    if (socket_) {
        ::unlink((base_ + ".socket").c_str());
    }
}

bool SingleInstance::Claim() {
    if (lock_) {
        return true;
    }
    base_ = BasePath(directory_);
    if (base_.empty()) {
        return true;
    }
    auto lock = std::make_unique<FileHandle>(base_ + ".lock", O_RDWR | O_CREAT | O_NOFOLLOW, 0600);
    if (lock->Good() && ::flock(lock->Number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        Call();
        return false;
    }
    lock_ = std::move(lock);
    Listen();
    return true;
}

/// Without the socket the instance is the only one all the same; a later one cannot bring it to the front.
bool SingleInstance::Listen() {
    const std::string path = base_ + ".socket";
    const auto address = Address(path);
    std::unique_ptr<FileHandle> socket(NewSocket());
    ::unlink(path.c_str()); // a crashed instance leaves it behind
    if (!address || !socket->Good() ||
        ::bind(socket->Number(), reinterpret_cast<const sockaddr*>(&*address), sizeof(*address)) != 0) {
        return false;
    }
    socket_ = std::move(socket);
    notifier_ = std::make_unique<QSocketNotifier>(socket_->Number(), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] { Called(); });
    return true;
}

void SingleInstance::Call() const {
    const auto address = Address(base_ + ".socket");
    const std::unique_ptr<FileHandle> socket(NewSocket());
    if (address && socket->Good()) {
        ::sendto(socket->Number(), "show", 4, MSG_NOSIGNAL, reinterpret_cast<const sockaddr*>(&*address),
                 sizeof(*address));
    }
}

void SingleInstance::Called() const {
    std::array<char, 16> message{};
    bool wanted = false;
    while (::recv(socket_->Number(), message.data(), message.size(), 0) >= 0) {
        wanted = true;
    }
    if (wanted && bringToFront_) {
        bringToFront_();
    }
}

} // namespace qvm
