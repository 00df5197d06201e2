#pragma once

#include "Platform.h"

#include <QString>

#include <optional>
#include <string>
#include <string_view>

/// File dialogs over the window in front. Paths are UTF-8, titles and filters code page 1252.
namespace qvm::ui {

/// "text|*.EXT|" as Qt takes it, "text (*.EXT)". Several pairs may follow each other, several patterns stand with ";"
/// between them. A text without a pattern is left out.
QString toQtFilter(std::string_view filter);

/// The file that the operator chose; nothing when cancelled.
std::optional<std::string> openFile(const FileDialog& dialog);
/// Likewise for a file to be written. A name without an ending gets that of the first pattern; a file that is there
/// already is asked about.
std::optional<std::string> saveFile(const FileDialog& dialog);

} // namespace qvm::ui
