#pragma once

#include "Bedienung.h"
#include "Fortschritt.h"
#include "Laufsitzung.h"

#include <string>
#include <vector>

namespace qvm {

/// Runs one lock after the other through the handlers of F13, F11 and F9, as an operator would. One lives while the
/// locks of a command are worked off.
class Schlosslauf {
public:
    Schlosslauf(Laufsitzung& session, Fortschritt& progress);

    LockResult Ausfuehren(int lock);
    /// The operator wants no further lock.
    bool Abgebrochen() const { return operator_.Will_Ende(); }

private:
    bool Starten(int lock);
    void Warten();
    void Tick();
    void Abbrechen();
    void Anzeigen();
    LockEnd Ende_Bestimmen() const;
    void Bericht_Fuellen(LockResult& result) const;

    Laufsitzung& session_;
    Programm& program_;
    const LaufAuftrag& order_;
    Fortschritt& progress_;
    std::vector<std::string> messages_;
    Bedienung operator_;
    Timer watch_;
    bool silent_ = false;
};

} // namespace qvm
