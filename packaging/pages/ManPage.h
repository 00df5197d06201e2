#pragma once

#include "CommandTree.h"

#include <string>

namespace qvm::pages {

/// What a page says beside the command line.
struct PageFrame {
    std::string Version{}; ///< of the program
    std::string Summary{}; ///< behind the name in the first line, without a full stop
    std::string More{};    ///< further sections, as they stand in the page
};

/// The manual page of section 1, for man(7). Each option and command of the tree has its entry.
std::string ManPage_Of(const Command& program, const PageFrame& frame);

} // namespace qvm::pages
