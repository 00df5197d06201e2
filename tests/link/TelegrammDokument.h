#pragma once

#include <string>

namespace qvm {

/// The reference of all telegrams and replies in Markdown (ASCII), made from the declared layouts.
std::string Telegramm_Dokument();

} // namespace qvm
