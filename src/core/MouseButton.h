#pragma once

#include <cstdint>

namespace qvm {

/// With which button of the mouse a grid was clicked.
enum class MouseButton : std::uint8_t { Left, Right };

} // namespace qvm
