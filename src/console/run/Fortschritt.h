#pragma once

#include "Console.h"

#include <string>

namespace qvm {

/// The progress of one lock's run on standard error: a bar in one line on a terminal, plain lines otherwise.
class Fortschritt {
public:
    explicit Fortschritt(const Console& console) : console_(console) {}

    /// `what`: which lock, UTF-8.
    void Beginnen(const std::string& what);
    /// `status`: a note behind the bar, UTF-8. `step`: what changes too often for plain lines; on a terminal only.
    void Zeigen(int percent, const std::string& status, const std::string& step = {});
    /// A line of its own above the bar.
    void Meldung(const std::string& text);
    /// Removes the bar.
    void Beenden();

private:
    void Wischen();

    const Console& console_;
    std::string what_;
    std::string status_;
    std::string step_;
    int percent_ = -1;
    int shownStep_ = -1;
    bool bar_ = false;
};

} // namespace qvm
