#include "PortNumbers.h"

#include <QSerialPortInfo>

#include <algorithm>
#include <charconv>
#include <set>
#include <string_view>
#include <sys/stat.h>
#include <utility>

namespace qvm {

namespace {

/// The lists of ports hold numbers in a byte.
constexpr int HighestNumber = 255;
constexpr std::string_view UsbDevice = "ttyUSB";

/// The port number of a USB serial device, 0 for other devices.
int NumberOf(std::string_view name) {
    if (!name.starts_with(UsbDevice)) {
        return 0;
    }
    name.remove_prefix(UsbDevice.size());
    int index = -1;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), index);
    const bool good = error == std::errc() && end == name.data() + name.size();
    return good && index >= 0 && index < HighestNumber ? index + 1 : 0;
}

bool LinkThere(const std::string& path) {
    struct stat info {};
    return ::lstat(path.c_str(), &info) == 0 && (S_ISLNK(info.st_mode) || S_ISCHR(info.st_mode));
}

bool LeadsSomewhere(const std::string& path) {
    struct stat info {};
    return LinkThere(path) && ::stat(path.c_str(), &info) == 0;
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
    return directory_ + "com" + std::to_string(number);
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

} // namespace qvm
