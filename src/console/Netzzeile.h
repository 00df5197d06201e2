#pragma once

#include "Schlosslauf.h"

#include <string>

namespace qvm {

/// What surrounds the end of a row of the run list, beside what the list itself knows.
struct Zeilenumstand {
    bool Silent = false;     ///< given up for its silence
    bool Cancelling = false; ///< the operator wants the end
};

/// End, text, faults, history file and units of a row that has its mark, into `result`.
void Zeile_Uebernehmen(const Programm& program, const LaufAuftrag& order, int row, const Zeilenumstand& state,
                       LockResult& result);
/// The present row is a network one, stands still, and the adapter has been silent for as long as the order allows.
bool Netzzeile_Stumm(const Programm& program, const LaufAuftrag& order);

/// A single lock that goes through a network adapter, as the only row of the run list. Lives around the start of the
/// run, as the row may end in it.
class Netzzeile {
public:
    /// `result` gets all that becomes of the row.
    Netzzeile(Programm& program, const LaufAuftrag& order, Fortschritt& progress, LockResult& result);
    ~Netzzeile();
    Netzzeile(const Netzzeile&) = delete;
    Netzzeile& operator=(const Netzzeile&) = delete;

    /// Waits for the end of the row. `interrupts`: how many were there before, and are now. True when the operator
    /// cancelled it.
    bool Abwarten(int& interrupts);

private:
    void Tick(int& interrupts);

    Programm& program_;
    const LaufAuftrag& order_;
    Fortschritt& progress_;
    LockResult& result_;
    Zeilenumstand state_;
};

} // namespace qvm
