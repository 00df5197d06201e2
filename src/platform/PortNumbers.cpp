#include "PortNumbers.h"

#include "FilePath.h"

#include <QSerialPortInfo>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <filesystem>
#include <set>
#include <string_view>
#include <sys/stat.h>
#include <system_error>
#include <utility>

namespace qvm {

namespace {

/// The lists of ports hold numbers in a byte.
constexpr int HighestNumber = 255;
constexpr std::string_view UsbDevice = "ttyUSB";

constexpr std::string_view LinkName = "com";

/// The number behind `word` in a name that holds nothing else, -1 for other names.
int NumberBehind(std::string_view word, std::string_view name) {
    if (!name.starts_with(word)) {
        return -1;
    }
    name.remove_prefix(word.size());
    int number = -1;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
    return error == std::errc() && end == name.data() + name.size() ? number : -1;
}

/// The port number of a USB serial device, 0 for other devices.
int NumberOf(std::string_view name) {
    const int index = NumberBehind(UsbDevice, name);
    return index >= 0 && index < HighestNumber ? index + 1 : 0;
}

bool LinkThere(const std::string& path) {
    struct stat info {};
    return ::lstat(path.c_str(), &info) == 0 && (S_ISLNK(info.st_mode) || S_ISCHR(info.st_mode));
}

bool LeadsSomewhere(const std::string& path) {
    struct stat info {};
    return LinkThere(path) && ::stat(path.c_str(), &info) == 0;
}

/// Nothing when the path leads nowhere.
std::optional<PortIdentity> IdentityOf(const std::string& path) {
    struct stat link {};
    struct stat device {};
    if (::lstat(path.c_str(), &link) != 0 || ::stat(path.c_str(), &device) != 0) {
        return std::nullopt;
    }
    PortIdentity identity{.Device = device.st_rdev, .Node = device.st_ino};
    // A device node may change its owner and stay the same; a link is changed by making a new one, which may get the
    // number of the old.
    if (S_ISLNK(link.st_mode)) {
        identity.Link = link.st_ino;
        identity.LinkTime = static_cast<std::int64_t>(link.st_ctim.tv_sec) * 1000000000 + link.st_ctim.tv_nsec;
    }
    return identity;
}

} // namespace

std::vector<SerialDevice> SerialDevices() {
    std::vector<SerialDevice> devices;
    const QList<QSerialPortInfo> ports = QSerialPortInfo::availablePorts();
    for (const QSerialPortInfo& port : ports) {
        devices.push_back({.Name = port.portName().toStdString(),
                           .Vendor = port.hasVendorIdentifier() ? port.vendorIdentifier() : 0,
                           .Product = port.hasProductIdentifier() ? port.productIdentifier() : 0});
    }
    return devices;
}

PortNumbers::PortNumbers(std::string directory, std::optional<std::string> device)
    : directory_(std::move(directory)), device_(std::move(device)) {
    if (!directory_.empty() && directory_.back() != '/') {
        directory_ += '/';
    }
}

std::string PortNumbers::Link(int number) const {
    return directory_ + std::string(LinkName) + std::to_string(number);
}

std::string PortNumbers::Device(int number) const {
    if (number < 1 || number > HighestNumber || (device_ && number != 1)) {
        return {};
    }
    if (device_) {
        return *device_;
    }
    return LinkThere(Link(number)) ? Link(number) : "/dev/" + std::string(UsbDevice) + std::to_string(number - 1);
}

std::string PortNumbers::Describe(int number) const {
    std::string device = Device(number);
    if (device_ || device.empty() || device != Link(number)) {
        return device;
    }
    std::string target = FilePath_Ziel(device);
    if (target == device) { // nothing is there yet
        std::error_code noLink;
        target = std::filesystem::read_symlink(device, noLink).string();
    }
    const std::string name = device.substr(directory_.size());
    return target.empty() ? name : name + " -> " + target;
}

std::vector<int> PortNumbers::Adapters(const std::vector<SerialDevice>& devices) const {
    if (device_) {
        return {1};
    }
    std::set<int> numbers;
    for (int number = 1; number <= HighestNumber; ++number) {
        if (LeadsSomewhere(Link(number))) {
            numbers.insert(number);
        }
    }
    for (const SerialDevice& device : devices) {
        const int number = NumberOf(device.Name);
        if (number > 0 && device.Vendor == AdapterVendor && device.Product == AdapterProduct) {
            numbers.insert(number);
        }
    }
    return {numbers.begin(), numbers.end()};
}

PortsThere PortNumbers::There() const {
    PortsThere there;
    for (int number = 1; number <= HighestNumber; ++number) {
        const std::string device = Device(number);
        if (const auto identity = device.empty() ? std::nullopt : IdentityOf(device)) {
            there.emplace(number, *identity);
        }
    }
    return there;
}

std::string PortNumbers::WatchedDirectory() const {
    if (!device_) {
        return directory_.empty() ? "." : directory_;
    }
    const std::size_t slash = device_->rfind('/');
    return slash == std::string::npos ? "." : device_->substr(0, slash + 1);
}

bool PortNumbers::IsWatched(std::string_view name) const {
    if (device_) {
        return name == std::string_view(*device_).substr(device_->rfind('/') + 1);
    }
    const int number = NumberBehind(LinkName, name);
    return number >= 1 && number <= HighestNumber && name == std::string(LinkName) + std::to_string(number);
}

} // namespace qvm
