#include "ProgramDirectory.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <cerrno>
#include <cstring>
#include <sys/stat.h>

namespace qvm {

namespace {

constexpr const char* FolderName = "qvm7702";

std::string Closed(std::string folder) {
    if (folder.empty() || folder.back() != '/') {
        folder += '/';
    }
    return folder;
}

bool IsFolder(const std::string& path) {
    struct stat info {};
    return ::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

/// 0 when the folder is there afterwards, else the system's error.
int Made(const std::string& path) {
    constexpr mode_t ForTheUserAlone = 0700;
    if (IsFolder(path) || ::mkdir(path.c_str(), ForTheUserAlone) == 0) {
        return 0;
    }
    // Another program may have made it just now; what else stands there is in the way.
    return errno != EEXIST ? errno : IsFolder(path) ? 0 : ENOTDIR;
}

} // namespace

ProgramPlaces ProgramPlaces_Here(const std::string& named) {
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return {.Named = named,
            .Environment = qEnvironmentVariable("QVM_DIR").toStdString(),
            .Executable = QCoreApplication::applicationDirPath().toStdString(),
            .UserData = data.toStdString()};
}

ProgramDirectory ProgramDirectory_Choose(const ProgramPlaces& places) {
    if (!places.Named.empty()) {
        return {.Path = Closed(places.Named)};
    }
    if (!places.Environment.empty()) {
        // A file manager, which may be asked to open something in it, does not know where this program was started.
        return {.Path = Closed(QFileInfo(QString::fromStdString(places.Environment)).absoluteFilePath().toStdString())};
    }
    if (IsFolder(Closed(places.Executable) + "DAT")) {
        return {.Path = Closed(places.Executable)};
    }
    return {.Path = Closed(Closed(places.UserData) + FolderName), .OfUser = true};
}

std::string ProgramDirectory_Make(const ProgramDirectory& directory) {
    if (!directory.OfUser) {
        return {};
    }
    for (std::size_t end = directory.Path.find('/', 1); end != std::string::npos;
         end = directory.Path.find('/', end + 1)) {
        if (const int error = Made(directory.Path.substr(0, end)); error != 0) {
            return std::strerror(error);
        }
    }
    return {};
}

std::string ProgramFiles_Of(const std::string& executableFolder) {
    const QString share = QDir::cleanPath(QString::fromStdString(Closed(executableFolder) + "../share/" + FolderName));
    return Closed(IsFolder(share.toStdString()) ? share.toStdString() : executableFolder);
}

} // namespace qvm
