#pragma once

#include "Platform.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace qvm {

/// What the front end brings along. A function left empty gets a stand-in that lets nothing happen: questions are
/// answered with the last of their buttons, dialogs count as cancelled, nothing is opened.
struct PlatformOptions {
    std::string Directory;                 ///< the program's: links `com<n>`, the cipher's library. UTF-8
    std::string ProgramFiles{};            ///< what comes with the program; Platform::ProgramFiles
    std::optional<std::string> PortDevice; ///< stands for port 1 and replaces all port numbers

    std::function<Answer(const Message&)> ShowMessage;
    std::function<std::optional<std::string>(const FileDialog&)> OpenFile;
    std::function<std::optional<std::string>(const FileDialog&)> SaveFile;
    std::function<PrintResult(const ReportPages&)> PrintPages = {};
    std::function<bool(const std::string& target, const std::string& directory)> OpenWithLinkedApp;
    std::function<void()> BringToFront; ///< another instance was started while this one runs
    std::function<void(bool on)> Hourglass = {};
};

/// The world of a real program: POSIX files and clock, Qt's event loop and serial port. One for a program, on the
/// thread of the QCoreApplication, which must live longer; all services run on that thread.
class QtPlatform {
public:
    explicit QtPlatform(PlatformOptions options);
    ~QtPlatform();
    QtPlatform(const QtPlatform&) = delete;
    QtPlatform& operator=(const QtPlatform&) = delete;

    /// All services, until this object ends. A front end may replace functions in it.
    Platform& World();
    /// Which cipher is in use, for the about box. UTF-8.
    const std::string& CipherText() const;

private:
    struct Services;

    std::unique_ptr<Services> services_;
};

} // namespace qvm
