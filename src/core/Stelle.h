#pragma once

#include <cstddef>

namespace qvm {

/// A number of the logic, which counts in `int`, as an index of a container. `index` is never negative.
constexpr std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

} // namespace qvm
