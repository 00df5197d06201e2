// The receipt for what a user was given.

#include "Berichte.h"
#include "Berichtskopf.h"
#include "Record.h"
#include "Text.h"
#include "TimeRecords.h"
#include "Words.h"
#include "Zeitfenster.h"

#include <algorithm>
#include <utility>

namespace qvm {
namespace {

ReportTable Gegenstaende(const Kern& kern, const ReportUser& user) {
    ReportTable items{.Headings = {Wort(kern, Word::ReportItem), kern.Zeile(Line::Designation)}, .Shares = {1, 1}};
    if (user.Key != ReportKey::None) {
        items.Rows.push_back({Schluesselname(kern, user.Key), user.KeyLabel});
    }
    if (user.HasCode) {
        items.Rows.push_back({Wort(kern, Word::ReportCode), {}});
    }
    return items;
}

ReportTable Schlosstabelle(const Kern& kern, const ReportUser& user) {
    ReportTable locks{.Headings = {kern.Zeile(Line::Number), kern.Zeile(Line::DoorLock)}, .Shares = {1, 9}};
    for (const ReportLock& lock : user.Locks) {
        locks.Rows.push_back({std::to_string(lock.Number), lock.Name});
    }
    return locks;
}

/// Nothing of a slot that is off or whose day is none.
std::vector<std::string> Zeitzeile(const Kern& kern, const RecordFile& slots, int slot) {
    const int record = PersonSlots.First + slot - 1;
    const auto day = static_cast<std::size_t>(Feld_Byte(slots.Record(record), TimeSlot::DayIndex));
    if (record > slots.Count() || day == 0 || day >= kern.Sprache.TagTexte.size()) {
        return {};
    }
    return {kern.Sprache.TagTexte[day], slots.Text(record, TimeSlot::From), slots.Text(record, TimeSlot::To)};
}

/// The slots of the user's group. Without a row when nothing limits him.
ReportTable Zeiten(const Kern& kern, const RecordFile& slots, const GroupTable& groups, const std::string& group) {
    ReportTable times{.Headings = {kern.Zeile(Line::Day), kern.Zeile(Line::From), kern.Zeile(Line::To)},
                      .Shares = {6, 2, 2}};
    const auto named = std::find_if(groups.begin() + 1, groups.end(), [&group](const GroupEntry& entry) {
        return !group.empty() && Trim(entry.Name) == group;
    });
    if (named == groups.end()) {
        return times;
    }
    for (int slot = 1; slot <= PersonSlots.Count; ++slot) {
        const auto at = static_cast<std::size_t>(slot - 1);
        if (at < named->Days.size() && named->Days[at] == 'X') {
            if (auto row = Zeitzeile(kern, slots, slot); !row.empty()) {
                times.Rows.push_back(std::move(row));
            }
        }
    }
    return times;
}

} // namespace

std::optional<Report> Bericht_Empfang(const Kern& kern, const UserTable& table, int user) {
    RecordFile slots(TimeSlot::Record);
    if (slots.Laden(kern.Welt.Files, kern.DatPfad()) == ReadStatus::Error) {
        return std::nullopt;
    }
    const ReportUser told = Berichtsbenutzer(table, user);
    Report report = Berichtskopf(kern, Word::ReportReceipt);
    report.Subtitle = Benutzerzeile(kern, told);
    report.Parts.push_back({.Table = Gegenstaende(kern, told)});
    report.Parts.push_back({.Heading = Wort(kern, Word::ReportLocks), .Table = Schlosstabelle(kern, told)});
    ReportTable times = Zeiten(kern, slots, table.GroupTablePerson, told.Group);
    ReportPart when{.Heading = Wort(kern, Word::ReportTimes)};
    if (times.Rows.empty()) {
        when.Text = Wort(kern, Word::ReportAnyTime);
    } else {
        when.Text = kern.Zeile(Line::TimerGroup) + ": " + told.Group;
        when.Table = std::move(times);
    }
    report.Parts.push_back(std::move(when));
    report.Parts.push_back({.Text = Wort(kern, Word::ReportReceived)});
    report.Signatures = {Wort(kern, Word::ReportPlaceDate), Wort(kern, Word::ReportSignature),
                         Wort(kern, Word::ReportIssuer)};
    return report;
}

} // namespace qvm
