#include "Berichtsmenue.h"

#include "Berichtsausgabe.h"
#include "Kern.h"
#include "Words.h"

#include <algorithm>

namespace qvm {
namespace {

std::string Berichtsname(const Kern& kern, ReportKind kind) {
    switch (kind) {
    case ReportKind::People:
        return Wort(kern, Word::ReportPeople);
    case ReportKind::Doors:
        return Wort(kern, Word::ReportDoors);
    case ReportKind::Receipt:
        return Wort(kern, Word::ReportReceipt);
    case ReportKind::Persons:
        return Wort(kern, Word::ReportPersons);
    case ReportKind::Events:
        break;
    }
    return kern.Zeile(Line::HistoryView);
}

} // namespace

Berichtsmenue::Berichtsmenue(const Kern& kernel, std::initializer_list<ReportKind> kinds) : kern(kernel) {
    for (const ReportKind kind : kinds) {
        Berichte.emplace_back(kind);
    }
}

void Berichtsmenue::Texte_Setzen() {
    Sichern.Text = Wort(kern, Word::ReportSave);
    Drucken.Text = kern.Welt.PrintPages ? Wort(kern, Word::ReportPrint) : std::string();
    for (ReportEntry& entry : Berichte) {
        entry.Entry.Text = Berichtsname(kern, entry.Kind);
        entry.Printed.Text = Berichtsname(kern, entry.Kind);
    }
}

void Berichtsmenue::Freigeben(ReportKind kind, bool possible) {
    for (ReportEntry& entry : Berichte) {
        if (entry.Kind == kind) {
            entry.Entry.Enabled = possible;
            entry.Printed.Enabled = possible;
        }
    }
    const bool any =
        std::any_of(Berichte.begin(), Berichte.end(), [](const ReportEntry& entry) { return entry.Entry.Enabled(); });
    Sichern.Enabled = any;
    Drucken.Enabled = any;
}

bool Berichtsmenue::Moeglich(ReportKind kind) const {
    return std::any_of(Berichte.begin(), Berichte.end(),
                       [kind](const ReportEntry& entry) { return entry.Kind == kind && entry.Entry.Enabled(); });
}

void Berichtsmenue::Ausgeben(ReportKind kind, ReportWay way) const {
    if (!Moeglich(kind)) {
        return;
    }
    const std::optional<Report> report = Erstellen ? Erstellen(kind) : std::nullopt;
    if (!report) {
        kern.Meldung(Wort(kern, Word::ReportNoData), Buttons::Ok, Icon::Exclamation);
    } else if (way == ReportWay::Pdf) {
        Bericht_Sichern(kern, *report);
    } else {
        Bericht_Drucken(kern, *report);
    }
}

} // namespace qvm
