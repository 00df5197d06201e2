#pragma once

#include <string>
#include <vector>

/// What a report says, without a place on paper. Texts in code page 1252.
namespace qvm {

struct ReportTable {
    std::vector<std::string> Headings{};          ///< none: there is no table
    std::vector<int> Shares{};                    ///< how the width is divided, one for each heading, more than 0
    std::vector<std::vector<std::string>> Rows{}; ///< a text for each heading
};

/// A part of a report: heading, paragraph and table, each of which may be missing.
struct ReportPart {
    std::string Heading{};
    std::string Text{};
    ReportTable Table{};
};

struct Report {
    std::string Title;
    std::string Subtitle; ///< whom or what it is about; may be empty
    std::string System;   ///< which program made it
    std::string Moment;   ///< when, as text
    std::string PageText; ///< foot of each page: "%1" its number, "%2" how many there are
    std::string Nothing;  ///< in place of a table without a row
    std::vector<ReportPart> Parts{};
    std::vector<std::string> Signatures{}; ///< below lines to write on, side by side; none: nothing is to be signed
};

} // namespace qvm
