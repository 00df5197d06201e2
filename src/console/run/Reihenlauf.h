#pragma once

#include "Bedienung.h"
#include "Laufsitzung.h"
#include "Netzzeile.h"
#include "Tafel.h"

#include <optional>
#include <string>
#include <vector>

namespace qvm {

/// A list run through the handlers of F13, F11, F92 and F91, as an operator would do it. One lives while the list of a
/// command is worked off.
class Reihenlauf {
public:
    /// `at`: delayed start.
    Reihenlauf(Laufsitzung& session, const std::optional<DateTime>& at, Tafel& table);
    ~Reihenlauf();
    Reihenlauf(const Reihenlauf&) = delete;
    Reihenlauf& operator=(const Reihenlauf&) = delete;

    /// Works the session's locks off in the order of the lock grid, and tells it each result as soon as it stands.
    void Ausfuehren();

private:
    bool Starten();
    void Melden(const std::string& text);
    void Zeile_Beginnt(int row);
    void Zeile_Fertig(int row);
    LockResult& Ergebnis(int row) { return results_[static_cast<std::size_t>(row - 1)]; }
    /// The row that a message box belongs to; nullptr for none.
    LockResult* Zeile_Der_Meldung();
    void Anschluss_Geaendert(PortChange change);
    void Erzaehlen(bool all);
    void Tick();
    void Abbrechen();
    void Anzeigen();
    std::string Zeile(int row) const;
    std::string Fuss() const;

    Laufsitzung& session_;
    Programm& program_;
    const LaufAuftrag& order_;
    std::optional<DateTime> at_;
    Tafel& table_;
    std::vector<LockResult> results_; ///< before the operator, whose first look at the grid may have something to say
    Bedienung operator_;
    Timer watch_;
    std::size_t told_ = 0;
    int telegramsBefore_ = 0;
    int questions_ = 0; ///< how many were answered
    std::int64_t rowBegun_ = 0;
};

} // namespace qvm
