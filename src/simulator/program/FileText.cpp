#include "FileText.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace qvm {

namespace {

bool WriteAll(int file, std::string_view text) {
    while (!text.empty()) {
        const ssize_t count = ::write(file, text.data(), text.size());
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            return false;
        }
        text.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

} // namespace

std::string SystemFault(const std::string& what) {
    return what + ": " + std::strerror(errno);
}

std::optional<std::string> FileText_Read(const std::string& path, std::string& fault) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    std::string text;
    std::array<char, 65536> part{};
    ssize_t count = file < 0 ? -1 : 1;
    while (count > 0) {
        count = ::read(file, part.data(), part.size());
        text.append(part.data(), count > 0 ? static_cast<std::size_t>(count) : 0);
    }
    if (count < 0) {
        fault = SystemFault("cannot read " + path);
    }
    if (file >= 0) {
        ::close(file);
    }
    return count < 0 ? std::nullopt : std::optional{std::move(text)};
}

bool FileText_Replace(const std::string& path, std::string_view text, std::string& fault) {
    const std::string sibling = path + ".new";
    const int file = ::open(sibling.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    bool good = file >= 0 && WriteAll(file, text) && ::fsync(file) == 0;
    good = file >= 0 && ::close(file) == 0 && good;
    good = good && ::rename(sibling.c_str(), path.c_str()) == 0;
    if (!good) {
        fault = SystemFault("cannot write " + path);
        ::unlink(sibling.c_str());
    }
    return good;
}

} // namespace qvm
