#include "Tafel.h"

#include <algorithm>
#include <ostream>
#include <sys/ioctl.h>
#include <unistd.h>

namespace qvm {

namespace {

constexpr int FallbackLines = 24, FallbackColumns = 80;

struct ScreenSize {
    int Lines = FallbackLines;
    int Columns = FallbackColumns;
};

ScreenSize Bildschirm() {
    winsize size{};
    if (::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_row < 4 || size.ws_col < 20) {
        return {};
    }
    return {.Lines = size.ws_row, .Columns = size.ws_col};
}

/// A line that wraps would spoil the table: at most `columns` characters.
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

} // namespace

void Tafel::Beginnen(const std::vector<std::string>& rows) {
    rows_ = rows;
    foot_.clear();
    current_ = 0;
    drawn_ = 0;
    if (console_.Terminal) {
        Zeichnen();
    }
}

void Tafel::Setzen(std::size_t row, const std::string& text) {
    if (row >= rows_.size()) {
        return;
    }
    if (rows_[row] == text) {
        return;
    }
    current_ = row;
    rows_[row] = text;
    if (console_.Terminal) {
        Zeichnen();
    } else {
        console_.Meldung(text);
    }
}

void Tafel::Fusszeile(const std::string& text) {
    const std::string line = Anzeigetext(text);
    if (line != foot_) {
        foot_ = line;
        if (console_.Terminal) {
            Zeichnen();
        }
    }
}

void Tafel::Meldung(const std::string& text) {
    Wischen();
    console_.Meldung(text);
    if (console_.Terminal) {
        Zeichnen();
    }
}

void Tafel::Beenden() {
    if (console_.Terminal) {
        foot_.clear();
        Zeichnen();
    }
    drawn_ = 0;
}

void Tafel::Wischen() {
    if (drawn_ > 0) {
        // Up to the table's first line, and erase all below.
        console_.Err << "\r\x1B[" << drawn_ << "A\x1B[J";
        drawn_ = 0;
    }
}

void Tafel::Zeichnen() {
    Wischen();
    const ScreenSize screen = Bildschirm();
    const std::size_t room = static_cast<std::size_t>(screen.Lines - 2);
    const std::size_t shown = std::min(rows_.size(), room);
    // The present row stands in the middle of a table that is longer than the screen.
    const std::size_t wanted = current_ > shown / 2 ? current_ - shown / 2 : 0;
    const std::size_t first = std::min(wanted, rows_.size() - shown);
    for (std::size_t row = first; row < first + shown; ++row) {
        console_.Err << Gekuerzt(Anzeigetext(rows_[row]), screen.Columns - 1) << "\n";
        ++drawn_;
    }
    if (!foot_.empty()) {
        console_.Err << Gekuerzt(foot_, screen.Columns - 1) << "\n";
        ++drawn_;
    }
    console_.Err.flush();
}

} // namespace qvm
