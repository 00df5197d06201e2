// A row that nobody answers does not hold up the rows behind it.

#include "F91.h"
#include "ListMark.h"

#include <cstdint>

namespace qvm {
void F91::Tick_Wache() {
    if (work_ == Work::None) {
        Wache.Stop();
        return;
    }
    Stand_Zeigen();
    if (work_ != Work::Direct || Geduld <= 0 || Lauf_Stille(run) < std::int64_t{1000} * Geduld) {
        return;
    }
    if (run.link.Lauf.Chain.AbbruchWunsch == 0) {
        Zeile_Aufgeben();
        return;
    }
    // The reply at which the cancel would have closed the session does not come. The cancel ends the list by itself.
    Lauf_Verlassen(run, RunOutcome::Cancelled, kern.Zeile(Line::Cancelled));
    f9.Fertig(Line::Cancelled);
}

void F91::Zeile_Aufgeben() {
    if (work_ == Work::None) {
        return;
    }
    if (work_ == Work::Network) {
        Net_Abbrechen(netz);
    } else {
        Lauf_Verlassen(run, RunOutcome::NotReached, kern.Zeile(Line::ConnectionFailed));
    }
    Zeile_Markieren(ListMark::Failed,
                    {.End = RunOutcome::NotReached, .Text = kern.Zeile(Line::ConnectionFailed), .Silent = true});
    Naechste_Zeile(StepPrgNextDataset);
}

} // namespace qvm
