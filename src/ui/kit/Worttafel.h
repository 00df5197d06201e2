#pragma once

#include <QString>

#include <WordList.h>
#include <string_view>

namespace qvm::ui {

/// A word of the program's own, for a widget. `language`: as the configuration names it; German for any other.
QString word(Word which, std::string_view language);

} // namespace qvm::ui
