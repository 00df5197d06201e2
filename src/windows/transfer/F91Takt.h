#pragma once

/// Milliseconds that the steps of a list run share.
namespace qvm::ListTakt {

inline constexpr int StartDelay = 1000; ///< before the first row
inline constexpr int Watch = 1000;      ///< between two looks at the row under way
inline constexpr int SearchPoll = 200;  ///< between two looks while a search for adapters has the port

} // namespace qvm::ListTakt
