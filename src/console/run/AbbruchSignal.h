#pragma once

#include <csignal>

namespace qvm {

/// Ctrl-C, Ctrl-\ and the termination signals as a question instead of an end. While this lives they are blocked and
/// picked up when asked for, so that no handler and no global state is needed.
class AbbruchSignal {
public:
    AbbruchSignal();
    ~AbbruchSignal();
    AbbruchSignal(const AbbruchSignal&) = delete;
    AbbruchSignal& operator=(const AbbruchSignal&) = delete;

    /// How many have come since the start.
    int Anzahl();

private:
    sigset_t wanted_{};
    sigset_t before_{};
    int count_ = 0;
};

} // namespace qvm
