#pragma once

namespace qvm {

/// Milliseconds between two looks for Ctrl-C, for silence and for the progress of a run.
inline constexpr int WatchMs = 100;

} // namespace qvm
