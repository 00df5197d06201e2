#pragma once

#include "Report.h"
#include "Schrift.h"

#include <string>
#include <string_view>
#include <vector>

/// Where a report stands on paper: what the file and the printer draw, each in its way.
namespace qvm {

/// A4.
inline constexpr Milli PageWidth = 595276, PageHeight = 841890;

/// A text on one line. X from the left, Y of the line it stands on from the top.
struct PageText {
    Milli X = 0, Y = 0;
    int Size = 0; ///< points
    bool Bold = false;
    std::string Text; ///< as Drucktext gives it, every blank a plain one
};

/// A level line.
struct PageRule {
    Milli X = 0, Y = 0, Width = 0;
};

struct ReportPage {
    std::vector<PageText> Texts; ///< in the order of reading: a cell is read to its end before the next one
    std::vector<PageRule> Rules;
};

struct ReportPages {
    std::string Title;
    std::string System;
    std::vector<ReportPage> Pages; ///< at least one
};

/// Sets the report: long texts are wrapped, at blanks, or within a word that is wider than its column; a row that does
/// not fit on the rest of a page begins the next one, and goes on there when it is longer than a page. Headings of a
/// table stand again on each page of it.
ReportPages Seiten_Setzen(const Report& report);

/// The lines of a text that may be so wide; at least one.
std::vector<std::string> Text_Umbrechen(std::string_view text, Milli width, int size, bool bold);

} // namespace qvm
