#include "DatensatzStand.h"
#include "Modelle.h"
#include "Text.h"
#include "TimeRecords.h"
#include "Zeit.h"

#include <optional>

namespace qvm {
namespace {

constexpr int FirstSingle = 1, LastSingle = 20;
constexpr int FirstPermanent = 22, LastPermanent = 41;
constexpr std::size_t MostHolidays = 20;
constexpr std::uint8_t EveryYear = 99;
constexpr std::size_t DayAndMonth = 6; // "dd.mm.", which " - -" follows where a year would stand

std::uint8_t Byte(int value) {
    return static_cast<std::uint8_t>(value);
}

/// A single holiday as the lock takes it, with the end made exclusive; nothing for an unused record, and for one whose
/// dates do not exist. A lock has two digits of a year: an end on 31.12.2099 goes out as 01.01.00.
std::optional<HolidayRow> Einzeltag(const RecordFile& calendar, int record) {
    const std::string kind = calendar.Text(record, CalendarEntry::Kind);
    const auto from = Datum_Lesen(calendar.Text(record, CalendarEntry::DateFrom));
    const auto to = Datum_Lesen(calendar.Text(record, CalendarEntry::DateTo));
    if ((kind != "0" && kind != "1") || !from || !to) {
        return std::nullopt;
    }
    const Datum end = Datum_Plus(*to, 1);
    return HolidayRow{Byte(from->Day), Byte(from->Month), Byte(from->Year % 100),
                      Byte(end.Day),   Byte(end.Month),   Byte(end.Year % 100)};
}

/// Day and month of "dd.mm. - -", in a leap year, as 29 February is a day of the year.
std::optional<Datum> Tag_Im_Jahr(std::string_view text) {
    return Datum_Lesen(std::string(Mid(text, 1, DayAndMonth)) + "2000");
}

/// A permanent holiday. Its end is not moved: whether the lock takes it as exclusive here, too, is not known.
std::optional<HolidayRow> Jahrestag(const RecordFile& calendar, int record, std::uint8_t year) {
    const auto from = Tag_Im_Jahr(calendar.Text(record, CalendarEntry::DateFrom));
    const auto to = Tag_Im_Jahr(calendar.Text(record, CalendarEntry::DateTo));
    if (!from || !to) {
        return std::nullopt;
    }
    return HolidayRow{Byte(from->Day), Byte(from->Month), year, Byte(to->Day), Byte(to->Month), year};
}

/// Adds the permanent holidays behind the `used` entries of the table, packed.
void Jahrestage_Fuellen(std::array<HolidayRow, 22>& table, std::size_t used, const RecordFile& calendar,
                        std::uint8_t year) {
    for (int record = FirstPermanent; record <= LastPermanent && used < MostHolidays; ++record) {
        if (const auto row = Jahrestag(calendar, record, year)) {
            table[used++] = *row;
        }
    }
}

} // namespace

bool Kalender_Laden(DatasetStand& stand) {
    if (Trim(stand.row.Calendars).empty()) {
        return true;
    }
    RecordFile calendar(CalendarEntry::Record);
    if (!Datei_Lesen(stand, calendar)) {
        return false;
    }
    Dataset& dataset = stand.dataset;
    std::size_t used = 0;
    for (int record = FirstSingle; record <= LastSingle; ++record) {
        if (const auto row = Einzeltag(calendar, record)) {
            dataset.HolidayTableA[used++] = *row;
        }
    }
    if (Eine_Feiertagstabelle(stand.serial)) {
        const std::uint8_t year = Byte(stand.kern.Welt.Now().Year % 100);
        Jahrestage_Fuellen(dataset.HolidayTableA, used, calendar, year);
    } else {
        Jahrestage_Fuellen(dataset.HolidayTableB, 0, calendar, EveryYear);
    }
    return true;
}

} // namespace qvm
