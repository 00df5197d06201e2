#pragma once

#include "Bedienung.h"
#include "Fortschritt.h"
#include "LockResult.h"

#include <string>

namespace qvm {

/// End, text, faults, history file and units of a row that has its mark, into `result`.
void Zeile_Uebernehmen(const Programm& program, const LaufAuftrag& order, int row, LockResult& result);
/// The present row is a network one, stands still, and the adapter has been silent for as long as the order allows.
bool Netzzeile_Stumm(const Programm& program, const LaufAuftrag& order);

/// A single lock that goes through a network adapter, as the only row of the run list. Lives around the start of the
/// run, as the row may end in it.
class Netzzeile {
public:
    /// `result` gets all that becomes of the row. From here on the row shows itself and can be cancelled, also while
    /// its adapter is still searched.
    Netzzeile(Programm& program, const LaufAuftrag& order, Fortschritt& progress, LockResult& result, Bedienung& user);
    ~Netzzeile();
    Netzzeile(const Netzzeile&) = delete;
    Netzzeile& operator=(const Netzzeile&) = delete;

    /// Waits for the end of the row.
    void Abwarten();

private:
    void Tick();

    Programm& program_;
    const LaufAuftrag& order_;
    Fortschritt& progress_;
    LockResult& result_;
    Bedienung& operator_;
    Timer watch_;
};

} // namespace qvm
