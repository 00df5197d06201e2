#pragma once

#include <QString>

#include <string_view>

/// Words of the windows that the language files do not hold, as they belong to the front end alone.
namespace qvm::ui {

enum class Word {
    Yes, ///< with its mnemonic
    No,
    LightRed, ///< the link light in words
    LightYellow,
    LightGreen,
    Version,
    Cipher,
    DataDirectory,
    Libraries,
    AdapterPresent,
    AdapterAbsent,
    SerialPort,
    RadioChannel,
    LanguageName,
    KeyBar, ///< what a screen reader calls the tool bar
};

/// `language`: as the configuration names it; German for any other.
QString word(Word which, std::string_view language);

} // namespace qvm::ui
