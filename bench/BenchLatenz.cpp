// How long the program takes from the last byte of a reply to the first byte of the next telegram, over a
// pseudo-terminal: the far end is a thread that answers each telegram at once and looks at the clock. Both ways through
// the system and the waking of both threads are part of the time.
//
//     bench_latenz [ROUNDS]        prints median, 99th percentile and the longest, in microseconds

#include "QtPlatform.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t TelegramSize = 34;
constexpr std::size_t ReplySize = 14;
constexpr int DefaultRounds = 20000;
/// The first rounds fill caches; they do not count.
constexpr int WarmUp = 200;

/// The far end: takes whole telegrams, answers each, notes the time between its reply and the next telegram.
class FarEnd {
public:
    explicit FarEnd(int handle) : handle_(handle) {}

    /// False when the line ends.
    bool Rounds(int count, std::vector<double>& microseconds) {
        const std::array<std::uint8_t, ReplySize> reply{};
        Clock::time_point sent{};
        for (int round = 0; round < count; ++round) {
            if (!Take(1)) {
                return false;
            }
            const Clock::time_point first = Clock::now();
            if (round > WarmUp) {
                microseconds.push_back(std::chrono::duration<double, std::micro>(first - sent).count());
            }
            if (!Take(TelegramSize - 1)) {
                return false;
            }
            sent = Clock::now();
            if (::write(handle_, reply.data(), reply.size()) != static_cast<ssize_t>(reply.size())) {
                return false;
            }
        }
        return true;
    }

private:
    bool Take(std::size_t count) {
        std::array<std::uint8_t, TelegramSize> bytes{};
        while (count > 0) {
            const ssize_t got = ::read(handle_, bytes.data(), count);
            if (got <= 0) {
                return false;
            }
            count -= static_cast<std::size_t>(got);
        }
        return true;
    }

    int handle_;
};

/// The program's end: a telegram after each whole reply.
void Program(qvm::Platform& world, const int& rounds) {
    const std::array<std::uint8_t, TelegramSize> telegram{};
    std::size_t received = 0;
    int replies = 0;
    world.Port.OnByte([&](std::uint8_t) {
        if (++received == ReplySize) {
            received = 0;
            ++replies;
            world.Port.SetRts(true);
            world.Port.Write(telegram);
        }
    });
    world.Port.SetRts(true);
    world.Port.Write(telegram);
    while (replies < rounds && world.Port.IsOpen()) {
        world.ProcessEvents();
    }
    world.Port.OnByte([](std::uint8_t) {});
}

double Rank(const std::vector<double>& sorted, double fraction) {
    const double position = fraction * static_cast<double>(sorted.size() - 1);
    return sorted[static_cast<std::size_t>(position)];
}

int Measure(int rounds) {
    const int line = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    std::array<char, 128> name{};
    if (line < 0 || ::grantpt(line) != 0 || ::unlockpt(line) != 0 || ::ptsname_r(line, name.data(), name.size()) != 0) {
        std::perror("pseudo-terminal");
        return 1;
    }
    qvm::QtPlatform platform({.Directory = ".",
                              .PortDevice = name.data(),
                              .ShowMessage = {},
                              .OpenFile = {},
                              .SaveFile = {},
                              .OpenWithLinkedApp = {},
                              .BringToFront = {}});
    qvm::Platform& world = platform.World();
    if (!world.Port.Open(1)) {
        std::fprintf(stderr, "%s\n", world.Port.LastError().c_str());
        return 1;
    }
    std::vector<double> microseconds;
    microseconds.reserve(static_cast<std::size_t>(rounds));
    std::thread farEnd([&] { FarEnd(line).Rounds(rounds, microseconds); });
    Program(world, rounds);
    farEnd.join();
    ::close(line);
    if (microseconds.empty()) {
        std::fputs("no round was measured\n", stderr);
        return 1;
    }
    std::sort(microseconds.begin(), microseconds.end());
    std::printf("rounds %zu  median %.1f us  99th percentile %.1f us  longest %.1f us\n", microseconds.size(),
                Rank(microseconds, 0.5), Rank(microseconds, 0.99), microseconds.back());
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const int rounds = argc > 1 ? std::atoi(argv[1]) : DefaultRounds;
    return Measure(std::max(rounds, 2 * WarmUp));
}
