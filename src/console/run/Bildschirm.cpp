#include "Bildschirm.h"

#include <sys/ioctl.h>
#include <unistd.h>

namespace qvm {

ScreenSize Bildschirm() {
    winsize size{};
    if (::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_row < 4 || size.ws_col < 20) {
        return {};
    }
    return {.Lines = size.ws_row, .Columns = size.ws_col};
}

std::string Gekuerzt(const std::string& utf8, int columns) {
    int characters = 0;
    for (std::size_t at = 0; at < utf8.size(); ++at) {
        const bool first = (static_cast<unsigned char>(utf8[at]) & 0xC0U) != 0x80U;
        if (first && ++characters > columns) {
            return utf8.substr(0, at);
        }
    }
    return utf8;
}

} // namespace qvm
