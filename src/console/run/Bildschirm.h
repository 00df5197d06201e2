#pragma once

#include <string>

namespace qvm {

struct ScreenSize {
    int Lines = 24;
    int Columns = 80;
};

/// Of the terminal on standard error; the usual size where it does not tell, or is too small to be meant.
ScreenSize Bildschirm();

/// A line that wraps could not be erased again: at most `columns` characters of it.
std::string Gekuerzt(const std::string& utf8, int columns);

} // namespace qvm
