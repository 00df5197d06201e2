#pragma once

#include "Kern.h"

#include <functional>
#include <string_view>

/// Questions that several windows ask in the same way.
namespace qvm {

enum class Verlassen {
    Speichern, ///< yes
    Verwerfen, ///< no
    Bleiben,   ///< the question was closed without an answer: back to the window
};

/// What becomes of the changes of a window that is being left.
Verlassen Verlassen_Fragen(const Kern& kern, std::string_view title);

/// Whether a window may be left: it asks while `dirty`. False when it is to stay, also when the changes were to be
/// saved and `save`, which tells whether it did, could not: they are not to be lost.
bool Verlassen_Erlaubt(const Kern& kern, bool dirty, std::string_view title, const std::function<bool()>& save);

/// A question whose Yes loses something: Return alone says No, as closing the question does. True for Yes.
bool Verlust_Hinnehmen(const Kern& kern, std::string_view question, std::string_view title = SystemTitle);

} // namespace qvm
