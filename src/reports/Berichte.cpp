#include "Berichte.h"

#include "Berichtsdaten.h"
#include "Berichtskopf.h"
#include "Schrift.h"
#include "Text.h"
#include "Words.h"

#include <string>

namespace qvm {
namespace {

/// "1 Tor, 3 Lager": those that are opened by finger, or the others.
std::string Schlossliste(const ReportUser& user, bool byFinger) {
    std::string list;
    for (const ReportLock& lock : user.Locks) {
        if (lock.ByFinger == byFinger) {
            list += (list.empty() ? "" : ", ") + std::to_string(lock.Number) + FastBlank + lock.Name;
        }
    }
    return list;
}

std::string Zugangsart(const Kern& kern, const ReportLock& lock) {
    return Wort(kern, lock.ByFinger ? Word::MarkFinger : Word::MarkAccess);
}

} // namespace

Report Bericht_Benutzer(const Kern& kern, const UserTable& table) {
    Report report = Berichtskopf(kern, Wort(kern, Word::ReportPeople));
    ReportTable rows{.Headings = {kern.Zeile(Line::Number), kern.Zeile(Line::Name), kern.Zeile(Line::TimerGroup),
                                  kern.Zeile(Line::Right), kern.Zeile(Line::KeyColumn), Wort(kern, Word::ReportLocks),
                                  Wort(kern, Word::ReportByFinger)},
                     .Shares = {5, 17, 14, 7, 17, 26, 14}};
    for (const ReportUser& user : Berichtsbenutzer(table)) {
        rows.Rows.push_back({std::to_string(user.Number), user.Name, user.Group, user.Right, Schluesseltext(kern, user),
                             Schlossliste(user, false), Schlossliste(user, true)});
    }
    report.Parts.push_back({.Table = std::move(rows)});
    return report;
}

Report Bericht_Tueren(const Kern& kern, const UserTable& table, int user) {
    const ReportUser told = Berichtsbenutzer(table, user);
    Report report = Berichtskopf(kern, Wort(kern, Word::ReportDoors));
    report.Subtitle = Benutzerzeile(kern, told);
    ReportTable rows{.Headings = {kern.Zeile(Line::Number), kern.Zeile(Line::DoorLock), Wort(kern, Word::ReportAccess)},
                     .Shares = {1, 5, 4}};
    for (const ReportLock& lock : told.Locks) {
        rows.Rows.push_back({std::to_string(lock.Number), lock.Name, Zugangsart(kern, lock)});
    }
    report.Parts.push_back({.Table = std::move(rows)});
    return report;
}

Report Bericht_Personen(const Kern& kern, const UserTable& table, int lock, std::string_view lockName) {
    Report report = Berichtskopf(kern, Wort(kern, Word::ReportPersons));
    report.Subtitle = Wort(kern, Word::LockLine, {std::to_string(lock), lockName});
    ReportTable rows{.Headings = {kern.Zeile(Line::Number), kern.Zeile(Line::Name), kern.Zeile(Line::TimerGroup),
                                  kern.Zeile(Line::KeyColumn), Wort(kern, Word::ReportAccess)},
                     .Shares = {1, 3, 3, 3, 3}};
    for (const ReportUser& user : Berichtsbenutzer(table)) {
        for (const ReportLock& marked : user.Locks) {
            if (marked.Number == lock) {
                rows.Rows.push_back({std::to_string(user.Number), user.Name, user.Group, Schluesseltext(kern, user),
                                     Zugangsart(kern, marked)});
            }
        }
    }
    report.Parts.push_back({.Table = std::move(rows)});
    return report;
}

Report Bericht_Ereignisse(const Kern& kern, std::string_view about, const std::vector<ReportEvent>& events) {
    Report report = Berichtskopf(kern, kern.Zeile(Line::HistoryView));
    report.Subtitle = about;
    ReportTable rows{
        .Headings = {kern.Zeile(Line::Name), kern.Zeile(Line::Date), kern.Zeile(Line::Time), kern.Zeile(Line::Event)},
        .Shares = {6, 3, 2, 8}};
    for (const ReportEvent& event : events) {
        rows.Rows.push_back({});
        for (const std::string& field : event) {
            rows.Rows.back().emplace_back(RTrim(field));
        }
    }
    report.Parts.push_back({.Table = std::move(rows)});
    return report;
}

} // namespace qvm
