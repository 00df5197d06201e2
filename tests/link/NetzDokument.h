#pragma once

#include "Text.h"

#include <string>

namespace qvm {

inline std::string Hex2(unsigned value) {
    return "0x" + HexText(value, 2);
}

/// The chapter on the network path in Markdown (ASCII), made from the declared layouts.
std::string Net_Dokument();

} // namespace qvm
