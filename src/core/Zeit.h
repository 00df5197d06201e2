#pragma once

#include "Platform.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qvm {

/// A date of the Gregorian calendar.
struct Datum {
    int Year = 2000;
    int Month = 1;
    int Day = 1;
    auto operator<=>(const Datum&) const = default;
};

/// True for a date that exists, years 100 to 9999.
bool Datum_Gueltig(const Datum& datum);
/// "dd.mm.yyyy".
std::string Datum_Text(const Datum& datum);
/// "dd.mm.yyyy" back to a date; nothing when the text has another shape or the date does not exist.
std::optional<Datum> Datum_Lesen(std::string_view text);
/// Minutes since midnight of a time of day "hh:mm", one or two digits each; nothing when the text is none.
std::optional<int> Uhrzeit_Lesen(std::string_view text);
/// "hh:mm" of the minutes since midnight, 0 to 1439.
std::string Uhrzeit_Text(int minutes);
/// The date `days` later (earlier when negative).
Datum Datum_Plus(const Datum& datum, int days);
Datum Heute(const DateTime& now);
/// Whole seconds from 01.01.2000 00:00:00 to the moment, by the PC's local clock.
std::int64_t Sekunden_Seit_2000(const DateTime& moment);
/// Whole days from 01.01.2000 to the day.
std::int64_t Tage_Seit_2000(const DateTime& moment);
/// The whole number nearest to value / 2, a tie going to the even neighbour.
std::int64_t Halbieren_Gerade(std::int64_t value);

} // namespace qvm
