#pragma once

#include "Console.h"

#include <string>
#include <vector>

namespace qvm {

/// A table of rows on standard error that changes in place on a terminal; elsewhere each change is a line.
class Tafel {
public:
    explicit Tafel(const Console& console) : console_(console) {}

    /// One line a row, UTF-8, without line ends.
    void Beginnen(const std::vector<std::string>& rows);
    /// `row` from 0. It is kept in sight.
    void Setzen(std::size_t row, const std::string& text);
    /// The line below the table, on a terminal only.
    void Fusszeile(const std::string& text);
    /// A line of its own above the table.
    void Meldung(const std::string& text);
    /// The table stays as it is.
    void Beenden();

private:
    void Zeichnen();
    void Wischen();

    const Console& console_;
    std::vector<std::string> rows_;
    std::string foot_;
    std::size_t current_ = 0;
    int drawn_ = 0; ///< lines that stand on the screen
};

} // namespace qvm
