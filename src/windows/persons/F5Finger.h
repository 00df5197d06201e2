#pragma once

#include "F51.h"
#include "F5Leser.h"

#include <array>
#include <optional>
#include <string>

namespace qvm {

/// Fingerprints of F5: enrolled by the unit on the desk, deleted, set to premium or standard. The window is disabled
/// while F51 shows an enrolment.
struct F5Finger {
    F5Finger(F5& window, F51& enrolment, Link& serialLink, AdapterListe& list);

    F5& f5;
    F51& f51;
    Kern& kern;
    Link& link;
    AdapterListe& Adapter;

    // The menu of column 7.
    /// For the row FsRow.
    void FS_anerlen_Click();
    /// Asks, then takes finger, slot and the marks of the row FsRow away. The template stays in its file, unreferenced.
    void FS_loeschen_Click();
    /// For the row under the cursor, where a finger is.
    void F5_FSpremium_Click();
    void F5_FSstandard_Click();

    // What comes back. The link has seen to it that an enrolment owes it.
    void Finger_Schritt();
    void Finger_Daten();
    /// The reader refused. The operator is told elsewhere.
    void Leser_Abgelehnt();

    /// The template of the enrolment under way goes to its store, and its slot to the row that was asked for. False,
    /// behind a message, when nothing was stored.
    bool Finger_Speichern();
    /// The lowest slot from 1 to 250 that stands in no row's label; 251 when all do.
    int NextSlot() const { return Freier(Bezeichnete()); }

private:
    static constexpr int HighestSlot = 999;
    using Slots = std::array<bool, HighestSlot + 1>; ///< which are used

    Slots Bezeichnete() const;
    static int Freier(const Slots& used);
    /// Freier, but 0 when that one is used as well.
    static int Unbelegter(const Slots& used);
    /// As NextSlot, but that no slot is taken whose template somebody may still ask for: a user of the file, one of the
    /// table, or one that an undo or redo brings back. When that leaves none only those of the table count. 0 when they
    /// have all, nothing when the files cannot be read.
    std::optional<int> Slot_Zum_Schreiben() const;
    /// The slot as above, with the template in it; nothing, behind a message, when it was not written.
    std::optional<int> Template_Ablegen(int row, const std::string& identifier) const;
    /// True, behind a message, when the unit that was asked is gone: another may be speaking.
    bool Aufgegeben();
    void Nichts_Erwarten();
    void Verlassen();

    F5Zeile asked_;
    std::string template_; ///< decimals, each followed by " : "
    int stand_ = 0;        ///< of the adapters, when the enrolment was asked for
    bool broken_ = false;  ///< a piece of it lied about its length, or its first one did not come
};

} // namespace qvm
