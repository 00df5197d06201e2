#pragma once

#include "Controls.h"
#include "Report.h"

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <list>
#include <optional>

namespace qvm {

struct Kern;

enum class ReportKind : std::uint8_t { People, Doors, Receipt, Persons, Events };

/// How a report is handed over.
enum class ReportWay : std::uint8_t { Pdf, Printer };

/// One report in the menus of a window.
struct ReportEntry {
    explicit ReportEntry(ReportKind kind) : Kind(kind) {}

    ReportKind Kind;
    MenuEntry Entry;   ///< below "Save as PDF"
    MenuEntry Printed; ///< below "Print": a model has one view
};

/// How a window hands its reports over: a menu for each way, with an entry for each report.
struct Berichtsmenue {
    /// @param kinds which reports there are, in the order of the entries
    Berichtsmenue(const Kern& kernel, std::initializer_list<ReportKind> kinds);

    const Kern& kern;
    MenuEntry Sichern; ///< "Save as PDF"
    MenuEntry Drucken; ///< "Print"; without a text where nothing can be printed
    std::list<ReportEntry> Berichte;

    /// Makes the report of what the window shows. Nothing when data of it could not be read: that is told then.
    std::function<std::optional<Report>(ReportKind)> Erstellen;

    /// Words anew.
    void Texte_Setzen();
    /// Whether there is anything to report.
    void Freigeben(ReportKind kind, bool possible);
    /// An entry was chosen. Does nothing while there is nothing to report.
    void Ausgeben(ReportKind kind, ReportWay way) const;

private:
    bool Moeglich(ReportKind kind) const;
};

} // namespace qvm
