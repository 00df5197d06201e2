#include "ProcessNames.h"

#include "FileHandle.h"

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <pwd.h>
#include <string_view>

namespace qvm {

namespace {

/// The beginning of a file of /proc.
std::string Beginning(const std::string& path) {
    std::array<char, 2048> bytes{};
    const FileHandle file(path, O_RDONLY);
    const ssize_t count = file.Good() ? file.Read(bytes.data(), bytes.size()) : 0;
    return {bytes.data(), count > 0 ? static_cast<std::size_t>(count) : 0};
}

} // namespace

std::string Process_Name(const std::string& number) {
    const std::string text = Beginning("/proc/" + number + "/comm");
    return text.substr(0, text.find('\n'));
}

std::string Process_User(const std::string& number) {
    // Not the owner of the entry: that is the administrator for a program that keeps its memory to itself.
    constexpr std::string_view Word = "\nUid:\t";
    const std::string text = Beginning("/proc/" + number + "/status");
    const std::size_t at = text.find(Word);
    if (at == std::string::npos) {
        return {};
    }
    const auto user = static_cast<uid_t>(std::strtoul(text.c_str() + at + Word.size(), nullptr, 10));
    const passwd* const entry = ::getpwuid(user);
    return entry != nullptr ? entry->pw_name : std::to_string(user);
}

} // namespace qvm
