#pragma once

#include "AbbruchSignal.h"
#include "LockResult.h"
#include "Optionen.h"
#include "TraceDatei.h"

#include <optional>
#include <string_view>
#include <vector>

namespace qvm {

/// What the commands that run locks, `program`, `history` and `run`, have in common: they refuse, report and count
/// alike, and differ in who works the locks off between `Beginnen` and `Abschliessen`.
class Laufsitzung {
    AbbruchSignal signal_; // first, so that the whole program lives under it

public:
    Laufsitzung(const Umgebung& world, const Console& console, const Optionen& options);
    Laufsitzung(const Laufsitzung&) = delete;
    Laufsitzung& operator=(const Laufsitzung&) = delete;

    /// All that comes before the first lock: data directory, program, damaged files, locks that cannot be run, trace,
    /// code, adapters, in this order. Nothing when the locks may be run; otherwise the exit code of a refusal, which
    /// was reported.
    std::optional<ExitCode> Beginnen();
    /// The operator cancelled while adapters were searched: no lock is to be begun.
    bool Abgebrochen() const { return cancelled_; }

    /// Takes what became of a lock, once for each, as soon as it stands. Where results come while a table is shown
    /// (`run`) documents go out one a line and the text waits for the end.
    void Melden(const LockResult& result);
    /// The report that is left, and the exit code of all locks.
    ExitCode Abschliessen();

    Programm program;
    LaufAuftrag Auftrag;
    std::vector<int> Locks; ///< in the order in which they are run
    int Telegramme = 0;     ///< sent since the first lock

private:
    std::vector<std::string> Hindernisse();
    void Mitschreiben();

    const Umgebung& world_;
    const Console& console_;
    const Optionen& options_;
    std::string_view word_;
    bool table_; ///< results come while a table is shown
    TraceDatei trace_;
    bool cancelled_ = false;
    std::vector<LockResult> results_;
};

} // namespace qvm
