#pragma once

#include <string>

namespace qvm {

/// The chapter on the network path in Markdown (ASCII), made from the declared layouts.
std::string Netz_Dokument();

} // namespace qvm
