#pragma once

#include <QPalette>
#include <QString>

#include <ostream>
#include <string>
#include <vector>

namespace qvm::test {

/// The colours that a desktop gives its programs.
struct DesktopPalette {
    std::string Name; ///< "breeze-dark" for one
    QPalette Colours;
};

inline void PrintTo(const DesktopPalette& desktop, std::ostream* out) {
    *out << desktop.Name;
}

/// As desktops really set them: two dark ones, one of high contrast, a light one.
const std::vector<DesktopPalette>& desktopPalettes();

/// Gives the running program this palette by way of its style, as the desktop's own comes. False when there is none of
/// that name.
bool dressProgram(const QString& name);

} // namespace qvm::test
