#include "InputLines.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <unistd.h>

namespace qvm {

namespace {

constexpr std::size_t LongestLine = 65536;

} // namespace

std::vector<std::string> InputLines::Read() {
    std::array<char, 4096> bytes{};
    const ssize_t count = ::read(handle_, bytes.data(), bytes.size());
    if (count <= 0) {
        handle_ = -1;
        return {};
    }
    std::vector<std::string> lines;
    for (const char byte : std::string_view(bytes.data(), static_cast<std::size_t>(count))) {
        if (byte == '\n') {
            if (!tooLong_) {
                lines.push_back(rest_);
            }
            rest_.clear();
            tooLong_ = false;
        } else if (rest_.size() < LongestLine) {
            rest_ += byte;
        } else {
            tooLong_ = true;
        }
    }
    return lines;
}

} // namespace qvm
