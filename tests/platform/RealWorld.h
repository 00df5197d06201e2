#pragma once

#include "QtPlatform.h"
#include "TempDirectory.h"

#include <cstdint>
#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <utility>

namespace qvm::test {

/// Long enough for the slowest machine; only a broken program waits that long.
inline constexpr int Patience = 20000;

inline PlatformOptions OptionsFor(std::string directory, std::optional<std::string> device = std::nullopt) {
    return {.Directory = std::move(directory),
            .PortDevice = std::move(device),
            .ShowMessage = {},
            .OpenFile = {},
            .SaveFile = {},
            .OpenWithLinkedApp = {},
            .BringToFront = {}};
}

/// A real platform in a directory of its own.
class RealWorld : public testing::Test {
protected:
    Platform& World() { return platform_.World(); }

    /// Handles events until `done`; false after Patience.
    bool RunUntil(const std::function<bool()>& done) {
        const std::int64_t end = World().Milliseconds() + Patience;
        const TimerId wake = World().StartTimer(10, [] {});
        while (!done() && World().Milliseconds() < end) {
            World().ProcessEvents();
        }
        World().StopTimer(wake);
        return done();
    }

    /// Handles the events of at least `ms` milliseconds and counts the turns that takes. A program that waits as it
    /// should needs a handful.
    int TurnsIn(int ms) {
        bool over = false;
        int turns = 0;
        const TimerId end = World().StartTimer(ms, [&over] { over = true; });
        while (!over) {
            World().ProcessEvents();
            ++turns;
        }
        World().StopTimer(end);
        return turns;
    }

    TempDirectory Directory;

private:
    QtPlatform platform_{OptionsFor(Directory.Path())};
};

} // namespace qvm::test
