#include "Tafel.h"

#include "Bildschirm.h"

#include <algorithm>
#include <ostream>

namespace qvm {

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
