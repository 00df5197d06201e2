#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qvm::test {

/// The texts that a PDF of this system draws, in their order, code page 1252; of a file that is none, nothing.
std::vector<std::string> PdfTexte(std::string_view bytes);

} // namespace qvm::test
