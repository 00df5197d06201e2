#pragma once

#include "Hook.h"

#include <functional>

namespace qvm {

/// What the link tells upward.
struct LinkHooks {
    Hook<void()> Telegramm_Geht; ///< TxBuffer is about to go out to a device; no telegram
    Hook<void()> Fortschritt;    ///< and has gone; the values stand in RunState
    /// A good frame stands in RxBuffer. May be empty. False when nobody else is to look at it.
    std::function<bool()> Antwort_Gekommen;
    Hook<void()> Adapter_Erkannt; ///< the identification that a search waits for
};

/// Calls a hook that may be empty.
inline void Rufen(const std::function<void()>& hook) {
    if (hook) {
        hook();
    }
}

} // namespace qvm
