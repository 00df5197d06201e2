#pragma once

#include "Platform.h"

#include <cstdint>

namespace qvm {

/// Local date and time. A leap second reads as second 59.
DateTime Clock_Now();
/// Milliseconds since an arbitrary moment; never goes back, whatever becomes of date and time.
std::int64_t Clock_Milliseconds();

} // namespace qvm
