#include "CheckStand.h"
#include "Text.h"
#include "TimeRecords.h"
#include "Zeit.h"

#include <algorithm>

namespace qvm {

namespace {

void Zeit_Pruefen(CheckStand& stand, const RecordLayout& layout, int record, const RecordField& field) {
    const std::string text = stand.Text(layout, record, field);
    if (!text.empty() && !Uhrzeit_Minuten(text)) {
        stand.Melden(FindingKind::Range, layout, record, field.Name, Zitat(text) + " is not a time");
    }
}

/// A group's slot map, count, identifier and name, in either file.
void Gruppe_Pruefen(CheckStand& stand, const RecordLayout& layout, int record, const RecordField& daysField,
                    const RecordField& countField, const RecordField& idField) {
    const std::string days = stand.Text(layout, record, daysField);
    if (days.find_first_not_of("X-") != std::string::npos) {
        stand.Melden(FindingKind::Range, layout, record, daysField.Name,
                     Zitat(days) + " holds more than \"X\" and \"-\"");
    }
    const auto marks = std::count(days.begin(), days.end(), 'X');
    const std::string count = stand.Text(layout, record, countField);
    if (!count.empty() && Dezimalzahl(count) != static_cast<int>(marks)) {
        stand.Melden(FindingKind::Range, layout, record, countField.Name,
                     Zitat(count) + " is not the number of slots, which is " + std::to_string(marks));
    }
    const std::string id = stand.Text(layout, record, idField);
    if (!id.empty() && !id.starts_with("PB_")) {
        stand.Melden(FindingKind::Range, layout, record, idField.Name,
                     Zitat(id) + " is not the identifier of a timer group");
    }
}

void Gruppen_Pruefen(CheckStand& stand, const RecordLayout& layout, int first, int last, const RecordField& nameField,
                     const RecordField& daysField, const RecordField& countField, const RecordField& idField) {
    DoubledTexts names, ids;
    for (int record = first; record <= std::min(stand.Letzter(layout), last); ++record) {
        const std::string name = stand.Text(layout, record, nameField);
        const std::string id = stand.Text(layout, record, idField);
        if (const auto before = names.Sehen(name, record)) {
            stand.Melden(FindingKind::Doubled, layout, record, nameField.Name,
                         Zitat(name) + " is the name of group " + std::to_string(*before) + ", too");
        }
        if (const auto before = ids.Sehen(id, record)) {
            stand.Melden(FindingKind::Doubled, layout, record, idField.Name,
                         Zitat(id) + " is the identifier of group " + std::to_string(*before) + ", too");
        }
        if (!name.empty() && id.empty()) {
            stand.Melden(FindingKind::Range, layout, record, idField.Name,
                         "the group has a name but no identifier, so nobody can be bound to it");
        }
        Gruppe_Pruefen(stand, layout, record, daysField, countField, idField);
    }
}

/// "dd.mm. - -" with a day that some year has.
bool Permanenter_Tag(std::string_view text) {
    return text.size() == 10 && text.substr(6) == " - -" && Datum_Lesen(std::string(text.substr(0, 6)) + "2000");
}

void Einzeltag_Pruefen(CheckStand& stand, int record) {
    const RecordLayout& calendar = CalendarEntry::Record;
    const std::string fromText = stand.Text(calendar, record, CalendarEntry::DateFrom);
    const std::string toText = stand.Text(calendar, record, CalendarEntry::DateTo);
    const std::string kind = stand.Text(calendar, record, CalendarEntry::Kind);
    if (fromText.empty() && toText.empty() && kind.empty()) {
        return;
    }
    const std::optional<Datum> from = Datum_Lesen(fromText);
    const std::optional<Datum> to = Datum_Lesen(toText);
    const auto bad = [&](const RecordField& field, const std::string& text, const std::optional<Datum>& date) {
        // Locks take the year as two digits.
        if (!date || date->Year < 2000 || date->Year > 2099) {
            stand.Melden(FindingKind::Range, calendar, record, field.Name,
                         Zitat(text) + " is not a date from 2000 to 2099");
        }
    };
    bad(CalendarEntry::DateFrom, fromText, from);
    bad(CalendarEntry::DateTo, toText, to);
    if (to == Datum{.Year = 2099, .Month = 12, .Day = 31}) {
        stand.Melden(FindingKind::Range, calendar, record, CalendarEntry::DateTo.Name,
                     "is too late: locks get the day behind it, and take its year 2100 for 2000");
    }
    if (from && to && *to < *from) {
        stand.Melden(FindingKind::Range, calendar, record, CalendarEntry::DateTo.Name, "lies before the first day");
    }
    if (kind != "0" && kind != "1") {
        stand.Melden(FindingKind::Range, calendar, record, CalendarEntry::Kind.Name,
                     kind.empty() ? "is missing, so locks do not get this holiday" : "there is no kind " + Zitat(kind));
    }
}

void Dauertag_Pruefen(CheckStand& stand, int record) {
    const RecordLayout& calendar = CalendarEntry::Record;
    const std::string from = stand.Text(calendar, record, CalendarEntry::DateFrom);
    const std::string to = stand.Text(calendar, record, CalendarEntry::DateTo);
    if (from.empty() && to.empty()) {
        return;
    }
    for (const auto& [field, text] :
         {std::pair(&CalendarEntry::DateFrom, from), std::pair(&CalendarEntry::DateTo, to)}) {
        if (!Permanenter_Tag(text)) {
            stand.Melden(FindingKind::Range, calendar, record, field->Name, Zitat(text) + " is not a day of the year");
        }
    }
}

} // namespace

void Schaltuhren_Pruefen(CheckStand& stand) {
    const RecordLayout& slots = TimeSlot::Record;
    for (int record = 1; record <= stand.Letzter(slots); ++record) {
        const int day = Feld_Byte(stand.File(slots).Record(record), TimeSlot::DayIndex);
        if (day > 10) {
            stand.Melden(FindingKind::Range, slots, record, TimeSlot::DayIndex.Name,
                         std::to_string(day) + " is not a day selector from 0 to 10");
        }
        Zeit_Pruefen(stand, slots, record, TimeSlot::From);
        Zeit_Pruefen(stand, slots, record, TimeSlot::To);
        const auto from = Uhrzeit_Minuten(stand.Text(slots, record, TimeSlot::From));
        const auto to = Uhrzeit_Minuten(stand.Text(slots, record, TimeSlot::To));
        if (from && to && *to < *from) {
            stand.Melden(FindingKind::Range, slots, record, TimeSlot::To.Name, "the slot ends before it begins");
        }
    }
    // The first two person groups are the program's own, whatever the file holds.
    Gruppen_Pruefen(stand, TimeGroup::Record, 3, 7, TimeGroup::Name, TimeGroup::Days, TimeGroup::Count,
                    TimeGroup::PbId);
    Gruppen_Pruefen(stand, LockTimeGroup::Record, 1, 5, LockTimeGroup::Name, LockTimeGroup::Days, LockTimeGroup::Count,
                    LockTimeGroup::PbId);
}

void Kalender_Pruefen(CheckStand& stand) {
    for (int record = 1; record <= stand.Letzter(CalendarEntry::Record); ++record) {
        if (record <= 20) {
            Einzeltag_Pruefen(stand, record);
        } else if (record >= 22) {
            Dauertag_Pruefen(stand, record);
        }
    }
}

void Offsets_Pruefen(CheckStand& stand) {
    const RecordLayout& offsets = GuestOffset::Record;
    for (int record = 1; record <= stand.Letzter(offsets); ++record) {
        Zeit_Pruefen(stand, offsets, record, GuestOffset::Time);
        Zeit_Pruefen(stand, offsets, record, GuestOffset::Base);
        const std::string id = stand.Text(offsets, record, GuestOffset::OffsetId);
        if (!id.empty() && id != std::string(GuestOffset::IdPrefix) + std::to_string(record)) {
            stand.Melden(FindingKind::Range, offsets, record, GuestOffset::OffsetId.Name,
                         Zitat(id) + " is not the identifier of offset " + std::to_string(record));
        }
    }
}

} // namespace qvm
