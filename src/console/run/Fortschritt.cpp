#include "Fortschritt.h"

#include "Bildschirm.h"

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
    step_.clear();
    percent_ = shownStep_ = -1;
    if (!console_.Terminal) {
        console_.Err << what_ << " ...\n";
        console_.Err.flush();
    }
}

void Fortschritt::Zeigen(int percent, const std::string& status, const std::string& step) {
    const std::string text = Anzeigetext(status);
    if (percent == percent_ && text == status_ && (step == step_ || !console_.Terminal)) {
        return;
    }
    if (console_.Terminal) {
        Wischen();
        const int filled = percent * BarWidth / 100;
        std::string line = what_ + " [" + std::string(static_cast<std::size_t>(filled), '#') +
                           std::string(static_cast<std::size_t>(BarWidth - filled), '.') + "] " +
                           std::to_string(percent) + " %";
        for (const std::string& part : {text, Anzeigetext(step)}) {
            line += (part.empty() ? "" : "  ") + part;
        }
        console_.Err << Gekuerzt(line, Bildschirm().Columns - 1);
        bar_ = true;
    } else if (percent / PlainStep != shownStep_ || text != status_) {
        console_.Err << what_ << ": " << percent << " %" << (text.empty() ? "" : "  ") << text << "\n";
        shownStep_ = percent / PlainStep;
    }
    console_.Err.flush();
    percent_ = percent;
    status_ = text;
    step_ = step;
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
