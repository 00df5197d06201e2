#pragma once

#include "Netzzeile.h"
#include "Programm.h"
#include "Schlosslauf.h"
#include "Tafel.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace qvm {

/// A list run through the handlers of F13, F11, F92 and F91, as an operator would do it. One lives while the list of a
/// command is worked off.
class Reihenlauf {
public:
    /// `at`: delayed start.
    Reihenlauf(Programm& program, const LaufAuftrag& order, const std::optional<DateTime>& at, Tafel& table);
    ~Reihenlauf();
    Reihenlauf(const Reihenlauf&) = delete;
    Reihenlauf& operator=(const Reihenlauf&) = delete;

    /// Works the locks off in the order of the lock grid. One result a lock; each is told once as soon as it stands.
    std::vector<LockResult> Ausfuehren(const std::vector<int>& locks,
                                       const std::function<void(const LockResult&)>& tell);
    void Gesendet() { ++telegrams_; }

private:
    Answer Antworten(const Message& message);
    bool Starten(const std::vector<int>& locks);
    void Zeile_Beginnt(int row);
    void Zeile_Fertig(int row);
    LockResult& Ergebnis(int row) { return results_[static_cast<std::size_t>(row - 1)]; }
    /// The row that a message box belongs to; nullptr for none.
    LockResult* Zeile_Der_Meldung();
    void Anschluss_Geaendert(PortChange change);
    void Erzaehlen(bool all);
    void Tick();
    void Abbrechen(bool again);
    void Anzeigen();
    std::string Zeile(int row) const;
    std::string Fuss() const;

    Programm& program_;
    const LaufAuftrag& order_;
    std::optional<DateTime> at_;
    Tafel& table_;
    Timer watch_;
    std::function<Answer(const Message&)> shownBefore_;
    std::function<void(const LockResult&)> tell_;
    std::vector<LockResult> results_;
    std::size_t told_ = 0;
    int telegrams_ = 0;
    int telegramsBefore_ = 0;
    int interrupts_ = 0;
    int questions_ = 0; ///< how many were answered
    Zeilenumstand state_;
    bool atOnce_ = false; ///< the operator does not want to wait for the answer to the cancel
    std::int64_t cancelSince_ = 0;
    std::int64_t rowBegun_ = 0;
};

} // namespace qvm
