#pragma once

#include <QString>

#include <string>
#include <string_view>

/// The one place where the system's texts and Qt's meet.
namespace qvm::ui {

/// Code page 1252 to Unicode. Every byte has a character.
QString toQt(std::string_view cp1252);

/// The same for a widget that would take "&" for the mark of a mnemonic.
QString captionOf(std::string_view cp1252);

/// Unicode to code page 1252. What the code page does not hold becomes "?".
std::string fromQt(const QString& text);

} // namespace qvm::ui
