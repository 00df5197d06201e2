// udev's monitor for devices, inotify for the links of the program's directory. Where udev does not run, as in a
// container, the links alone are watched.

#include "FileHandle.h"
#include "PortNumbers.h"
#include "PortWatch.h"

#include <QObject>
#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <cstring>
#include <libudev.h>
#include <string>
#include <string_view>
#include <sys/inotify.h>
#include <utility>

namespace qvm {

namespace {

template <auto Free>
struct Release {
    template <typename Object>
    void operator()(Object* object) const {
        Free(object);
    }
};
using Udev = std::unique_ptr<udev, Release<udev_unref>>;
using UdevMonitor = std::unique_ptr<udev_monitor, Release<udev_monitor_unref>>;
using UdevDevice = std::unique_ptr<udev_device, Release<udev_device_unref>>;

constexpr std::uint32_t LinkEvents = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO;

/// "udev" and not "kernel": an arrival counts when the rules have given the device its group.
UdevMonitor Monitor(udev* library) {
    UdevMonitor monitor(library != nullptr ? udev_monitor_new_from_netlink(library, "udev") : nullptr);
    const bool good = monitor && udev_monitor_filter_add_match_subsystem_devtype(monitor.get(), "tty", nullptr) >= 0 &&
                      udev_monitor_enable_receiving(monitor.get()) >= 0;
    return good ? std::move(monitor) : nullptr;
}

std::unique_ptr<QSocketNotifier> Notifier(int handle, std::function<void()> action) {
    auto notifier = std::make_unique<QSocketNotifier>(handle, QSocketNotifier::Read);
    QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(), std::move(action));
    return notifier;
}

} // namespace

struct PortWatch::System {
    System(const PortNumbers& ports, std::function<void()> receiver)
        : numbers(ports), stir(std::move(receiver)), library(udev_new()), monitor(Monitor(library.get())),
          links(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
        if (monitor) {
            deviceNotifier = Notifier(udev_monitor_get_fd(monitor.get()), [this] { Devices(); });
        }
        if (links.Good() &&
            ::inotify_add_watch(links.Number(), ports.WatchedDirectory().c_str(), LinkEvents | IN_ONLYDIR) >= 0) {
            linkNotifier = Notifier(links.Number(), [this] { Links(); });
        }
    }

    void Devices() const;
    void Links() const;
    bool Concerned(std::string_view events) const;

    const PortNumbers& numbers;
    std::function<void()> stir;
    Udev library;
    UdevMonitor monitor;
    FileHandle links;
    std::unique_ptr<QSocketNotifier> deviceNotifier;
    std::unique_ptr<QSocketNotifier> linkNotifier;
};

/// Any terminal device counts, as a link may lead to it. Nothing read although there is news: some was lost.
void PortWatch::System::Devices() const {
    bool concerned = true;
    while (const UdevDevice device{udev_monitor_receive_device(monitor.get())}) {
        const char* const action = udev_device_get_action(device.get());
        const std::string_view name = action != nullptr ? action : "";
        concerned = name == "add" || name == "remove";
        if (concerned) {
            break; // the rest is reported at once, by the notifier
        }
    }
    if (concerned) {
        stir();
    }
}

void PortWatch::System::Links() const {
    std::array<char, 4096> events{};
    bool concerned = false;
    for (;;) {
        const ssize_t count = links.Read(events.data(), events.size());
        if (count <= 0) {
            break;
        }
        concerned = Concerned({events.data(), static_cast<std::size_t>(count)}) || concerned;
    }
    if (concerned) {
        stir();
    }
}

/// `events` as inotify gives them: whole ones, each with its name behind it, filled up with zeros.
bool PortWatch::System::Concerned(std::string_view events) const {
    while (events.size() >= sizeof(inotify_event)) {
        inotify_event event{};
        std::memcpy(&event, events.data(), sizeof(event));
        events.remove_prefix(sizeof(event));
        const std::string_view field = events.substr(0, event.len);
        if ((event.mask & IN_Q_OVERFLOW) != 0 || numbers.IsWatched(field.substr(0, field.find('\0')))) {
            return true;
        }
        events.remove_prefix(field.size());
    }
    return false;
}

PortWatch::PortWatch(const PortNumbers& numbers, std::function<void()> stir)
    : system_(std::make_unique<System>(numbers, std::move(stir))) {}

PortWatch::~PortWatch() = default;

} // namespace qvm
