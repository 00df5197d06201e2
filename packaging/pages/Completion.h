#pragma once

#include "CommandTree.h"

#include <string>

namespace qvm::pages {

/// The completion of a program for bash: commands, options, the values of those that have few, files and folders.
std::string BashCompletion_Of(const Command& program);

/// The same for zsh, with what each one does.
std::string ZshCompletion_Of(const Command& program);

} // namespace qvm::pages
