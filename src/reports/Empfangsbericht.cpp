// The receipt for what a user was given.

#include "Berichte.h"
#include "Berichtskopf.h"
#include "Record.h"
#include "Text.h"
#include "TimeRecords.h"
#include "Wochentage.h"
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

/// The times at which the user comes in.
struct Zeiten {
    bool Limited = false; ///< his group has a slot, whether that is switched on or not
    ReportTable Slots{};  ///< those that are switched on
};

/// Nothing when one of the slots has a day that is none: what a lock does with it is not to be signed.
std::optional<Zeiten> Gruppenzeiten(const Kern& kern, const RecordFile& slots, const GroupTable& groups,
                                    const std::string& group) {
    Zeiten times{.Slots = {.Headings = {kern.Zeile(Line::Day), kern.Zeile(Line::From), kern.Zeile(Line::To)},
                           .Shares = {6, 2, 2}}};
    const auto named = std::find_if(groups.begin() + 1, groups.end(), [&group](const GroupEntry& entry) {
        return !group.empty() && Trim(entry.Name) == group;
    });
    for (int slot = 1; named != groups.end() && slot <= PersonSlots.Count; ++slot) {
        const auto at = static_cast<std::size_t>(slot - 1);
        if (at >= named->Days.size() || named->Days[at] != 'X') {
            continue;
        }
        times.Limited = true;
        const int record = PersonSlots.First + slot - 1;
        // A slot that the file does not hold is switched off.
        const int day = record > slots.Count() ? 0 : Feld_Byte(slots.Record(record), TimeSlot::DayIndex);
        if (day > WochentageEnde) {
            return std::nullopt;
        }
        if (day >= 1 && day <= LetzterWochentag) {
            times.Slots.Rows.push_back(
                {Wochentag_Text(kern, day), slots.Text(record, TimeSlot::From), slots.Text(record, TimeSlot::To)});
        }
    }
    return times;
}

ReportPart Zeitteil(const Kern& kern, Zeiten times, const std::string& group) {
    ReportPart part{.Heading = Wort(kern, Word::ReportTimes)};
    if (!times.Limited) {
        part.Text = Wort(kern, Word::ReportAnyTime);
        return part;
    }
    part.Text = kern.Zeile(Line::TimerGroup) + ": " + group;
    if (times.Slots.Rows.empty()) {
        part.Text += ", " + Wort(kern, Word::ReportNoTime);
    } else {
        part.Table = std::move(times.Slots);
    }
    return part;
}

} // namespace

std::optional<Report> Bericht_Empfang(const Kern& kern, const UserTable& table, int user) {
    RecordFile slots(TimeSlot::Record);
    if (slots.Laden(kern.Welt.Files, kern.DatPfad()) == ReadStatus::Error) {
        return std::nullopt;
    }
    const ReportUser told = Berichtsbenutzer(table, user);
    std::optional<Zeiten> times = Gruppenzeiten(kern, slots, table.GroupTablePerson, told.Group);
    if (!times) {
        return std::nullopt;
    }
    Report report = Berichtskopf(kern, Wort(kern, Word::ReportReceipt));
    report.Subtitle = Benutzerzeile(kern, told);
    report.Parts.push_back({.Table = Gegenstaende(kern, told)});
    report.Parts.push_back({.Heading = Wort(kern, Word::ReportLocks), .Table = Schlosstabelle(kern, told)});
    report.Parts.push_back(Zeitteil(kern, std::move(*times), told.Group));
    report.Parts.push_back({.Text = Wort(kern, Word::ReportReceived)});
    report.Signatures = {Wort(kern, Word::ReportPlaceDate), Wort(kern, Word::ReportSignature),
                         Wort(kern, Word::ReportIssuer)};
    return report;
}

} // namespace qvm
