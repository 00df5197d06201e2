#include "Fortschritt.h"

#include <algorithm>
#include <ostream>

namespace qvm {

namespace {

constexpr int BarWidth = 30;
constexpr int PlainStep = 10; ///< percent between two plain lines

} // namespace

void Fortschritt::Beginnen(const std::string& what) {
    Wischen();
    what_ = Anzeigetext(what);
    status_.clear();
    percent_ = shownStep_ = -1;
    if (!console_.Terminal) {
        console_.Err << what_ << " ...\n";
        console_.Err.flush();
    }
}

void Fortschritt::Zeigen(int done, int total, const std::string& status) {
    const int percent =
        total <= 0 ? 0 : static_cast<int>(std::clamp<std::int64_t>(std::int64_t{100} * done / total, 0, 100));
    const std::string text = Anzeigetext(status);
    if (percent == percent_ && text == status_) {
        return;
    }
    if (console_.Terminal) {
        Wischen();
        const int filled = percent * BarWidth / 100;
        console_.Err << what_ << " [" << std::string(static_cast<std::size_t>(filled), '#')
                     << std::string(static_cast<std::size_t>(BarWidth - filled), '.') << "] " << percent << " %";
        if (!text.empty()) {
            console_.Err << "  " << text;
        }
        bar_ = true;
    } else if (percent / PlainStep != shownStep_ || text != status_) {
        console_.Err << what_ << ": " << percent << " %" << (text.empty() ? "" : "  ") << text << "\n";
        shownStep_ = percent / PlainStep;
    }
    console_.Err.flush();
    percent_ = percent;
    status_ = text;
}

void Fortschritt::Meldung(const std::string& text) {
    Wischen();
    percent_ = -1;
    console_.Meldung(text);
}

void Fortschritt::Beenden() {
    Wischen();
}

void Fortschritt::Wischen() {
    if (bar_) {
        // Back to the first column, and erase to the end of the line.
        console_.Err << "\r\x1B[K";
        console_.Err.flush();
        bar_ = false;
    }
}

} // namespace qvm
