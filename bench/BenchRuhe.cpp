// What the program costs while it waits, and how soon it serves an input while the line is flooded. The far end of a
// pseudo-terminal, behind the link com1, is a thread of its own; only the program's thread is measured.
//
//     bench_ruhe [SECONDS]        a line for each state of the line, each measured for that long

#include "QtPlatform.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <memory>
#include <poll.h>
#include <string>
#include <sys/resource.h>
#include <termios.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int DefaultSeconds = 5;
constexpr std::chrono::milliseconds BetweenInputs(10);

double ProcessorSeconds() {
    rusage used{};
    ::getrusage(RUSAGE_THREAD, &used);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(used.ru_utime) + seconds(used.ru_stime);
}

/// The adapter's end of the line.
class Line {
public:
    Line() : handle_(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK)) {
        std::array<char, 128> name{};
        if (handle_ < 0 || ::grantpt(handle_) != 0 || ::unlockpt(handle_) != 0 ||
            ::ptsname_r(handle_, name.data(), name.size()) != 0) {
            std::perror("pseudo-terminal");
            std::exit(1);
        }
        device_ = name.data();
        termios settings{};
        ::tcgetattr(handle_, &settings);
        ::cfmakeraw(&settings);
        ::tcsetattr(handle_, TCSANOW, &settings);
    }
    ~Line() { Unplug(); }
    Line(const Line&) = delete;
    Line& operator=(const Line&) = delete;

    const std::string& Device() const { return device_; }
    void Unplug() {
        if (handle_ >= 0) {
            ::close(handle_);
            handle_ = -1;
        }
    }
    /// One write, waiting a little for room.
    void Send(const std::vector<std::uint8_t>& bytes) const {
        if (::write(handle_, bytes.data(), bytes.size()) < 0 && errno == EAGAIN) {
            pollfd room{.fd = handle_, .events = POLLOUT, .revents = 0};
            ::poll(&room, 1, 20);
        }
    }

private:
    int handle_;
    std::string device_;
};

/// What another thread does over and over until this object ends.
class Meanwhile {
public:
    Meanwhile(std::chrono::milliseconds pause, std::function<void()> action)
        : thread_([this, pause, action = std::move(action)] {
              while (!over_) {
                  action();
                  std::this_thread::sleep_for(pause);
              }
          }) {}
    ~Meanwhile() {
        over_ = true;
        thread_.join();
    }
    Meanwhile(const Meanwhile&) = delete;
    Meanwhile& operator=(const Meanwhile&) = delete;

private:
    std::atomic<bool> over_ = false;
    std::thread thread_;
};

/// Inputs from outside by way of a pipe, as those of a window come by way of a socket. Keeps how long each has waited.
class Inputs {
public:
    Inputs() {
        if (::pipe2(pipe_.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
            std::perror("pipe");
            std::exit(1);
        }
        notifier_ = std::make_unique<QSocketNotifier>(pipe_[0], QSocketNotifier::Read);
        QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] { Serve(); });
    }
    ~Inputs() {
        notifier_.reset();
        ::close(pipe_[0]);
        ::close(pipe_[1]);
    }
    Inputs(const Inputs&) = delete;
    Inputs& operator=(const Inputs&) = delete;

    /// From any thread.
    void Give() const {
        const Clock::rep now = Clock::now().time_since_epoch().count();
        [[maybe_unused]] const ssize_t done = ::write(pipe_[1], &now, sizeof(now));
    }
    std::vector<double> Milliseconds;

private:
    void Serve() {
        Clock::rep given = 0;
        while (::read(pipe_[0], &given, sizeof(given)) == sizeof(given)) {
            const auto waited = Clock::now().time_since_epoch() - Clock::duration(given);
            Milliseconds.push_back(std::chrono::duration<double, std::milli>(waited).count());
        }
    }

    std::array<int, 2> pipe_{};
    std::unique_ptr<QSocketNotifier> notifier_;
};

void TurnFor(qvm::Platform& world, int milliseconds) {
    bool over = false;
    const qvm::TimerId end = world.StartTimer(milliseconds, [&over] { over = true; });
    while (!over) {
        world.ProcessEvents();
    }
    world.StopTimer(end);
}

class Measurement {
public:
    Measurement(qvm::Platform& world, int seconds) : world_(world), seconds_(seconds) {
        Work(std::chrono::microseconds(0));
    }

    void Rest(const char* state) {
        bytes_ = 0;
        const double before = ProcessorSeconds();
        TurnFor(world_, seconds_ * 1000);
        const double share = (ProcessorSeconds() - before) / seconds_ * 100;
        std::printf("%-44s %7.3f %% of a core, %.0f bytes/s\n", state, share, static_cast<double>(bytes_) / seconds_);
    }

    void Served(const char* state) {
        Inputs inputs;
        {
            const Meanwhile user(BetweenInputs, [&inputs] { inputs.Give(); });
            Rest(state);
        }
        std::vector<double>& waits = inputs.Milliseconds;
        std::sort(waits.begin(), waits.end());
        if (!waits.empty()) {
            std::printf("%-44s %7.3f ms median, %.3f ms longest of %zu\n", "    an input waits",
                        waits[waits.size() / 2], waits.back(), waits.size());
        }
    }

    /// What the receiver does with each byte.
    void Work(std::chrono::microseconds time) {
        world_.Port.OnByte([this, time](std::uint8_t) {
            ++bytes_;
            const auto end = Clock::now() + time;
            while (Clock::now() < end) {
            }
        });
    }

private:
    qvm::Platform& world_;
    int seconds_;
    std::uint64_t bytes_ = 0;
};

int Measure(const std::string& directory, int seconds) {
    Line line;
    std::filesystem::create_symlink(line.Device(), directory + "/com1");
    qvm::QtPlatform platform({.Directory = directory,
                              .PortDevice = {},
                              .ShowMessage = {},
                              .OpenFile = {},
                              .SaveFile = {},
                              .OpenWithLinkedApp = {},
                              .BringToFront = {}});
    qvm::Platform& world = platform.World();
    world.OnPortChange([](qvm::PortChange) {});
    Measurement measurement(world, seconds);
    measurement.Rest("ports watched, none open");
    if (!world.Port.Open(1)) {
        std::fprintf(stderr, "%s\n", world.Port.LastError().c_str());
        return 1;
    }
    measurement.Rest("port open, silent");
    measurement.Served("port open, silent, inputs");
    {
        const Meanwhile drip(std::chrono::seconds(1), [&line] { line.Send({0x55}); });
        measurement.Rest("a byte a second");
    }
    const std::vector<std::uint8_t> garbage(4096, 0xA5);
    {
        const Meanwhile flood(std::chrono::milliseconds(0), [&] { line.Send(garbage); });
        measurement.Served("flood");
        measurement.Work(std::chrono::microseconds(200));
        measurement.Served("flood, 0.2 ms of work a byte");
    }
    measurement.Work(std::chrono::microseconds(0));
    line.Unplug();
    TurnFor(world, 500); // bytes that came before are still handed out
    measurement.Rest("far end closed");
    world.Port.Close();
    std::filesystem::remove(directory + "/com1");
    measurement.Rest("adapter pulled, port closed");
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const int seconds = argc > 1 ? std::atoi(argv[1]) : DefaultSeconds;
    std::string directory = (std::filesystem::temp_directory_path() / "qvm-ruhe-XXXXXX").string();
    if (::mkdtemp(directory.data()) == nullptr) {
        std::perror("directory");
        return 1;
    }
    const int code = Measure(directory, std::max(seconds, 1));
    std::filesystem::remove_all(directory);
    return code;
}
