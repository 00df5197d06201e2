#pragma once

#include "Controls.h"

#include <string>
#include <vector>

namespace qvm {

/// A list of entries that can be checked, as many of them as one likes.
struct CheckList {
    struct Entry {
        std::string Text;
        bool Checked = false;

        bool operator==(const Entry&) const = default;
    };

    Observed<std::vector<Entry>> Entries;
    Observed<int> Current{-1}; ///< index of the entry that the keyboard is on, -1: none
    Observed<bool> Visible{true};
};

} // namespace qvm
