#pragma once

#include "Programmierlauf.h"

#include <cstdint>
#include <optional>
#include <string>

/// How far a run is. Windows and console show the same.
namespace qvm {

struct RunProgress {
    int Done = 0, Total = 0;        ///< telegrams acknowledged, of those that lock and units are to get
    int Percent = 0;                ///< 100 only when nothing is left
    bool Endless = false;           ///< events are read, and nobody knows how many there are
    std::string Step;               ///< in the language in use: "user 12 of 40"; empty once nothing is left
    std::optional<int> SecondsLeft; ///< estimated from what went before; nothing while there is too little to go by,
                                    ///< behind a cancel, and without an adapter
};

/// `done` of `total`, 0 to 100, rounded down; 0 of nothing.
constexpr int Prozent(int done, int total) {
    return total <= 0 || done <= 0 ? 0 : done >= total ? 100 : static_cast<int>(std::int64_t{100} * done / total);
}

/// Of the run that is on, or ended last. What a failed unit was to get counts no more. Goes through the whole account.
RunProgress Lauf_Fortschritt(const Programmierlauf& run);
/// Step and time left: "user 12 of 40, about 2 min left".
std::string Schritt_Text(const Kern& kern, const RunProgress& progress);
/// The same behind the share that is done: "31 %, user 12 of 40, about 2 min left".
std::string Fortschritt_Text(const Kern& kern, const RunProgress& progress);
/// What is done from here on goes at a pace of its own: the time left is reckoned anew.
void Lauf_Tempo_Neu(Programmierlauf& run);

} // namespace qvm
