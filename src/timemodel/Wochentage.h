#pragma once

#include "Zeit.h"

#include <string>
#include <string_view>

/// The day table: eleven day selectors in a table of twelve, of which the last is never used. The words come from the
/// catalogue.
namespace qvm {

struct Kern;

inline constexpr int LetzterWochentag = 10, WochentageEnde = 11;

/// Text of the selector 0 ("OFF") to 10; empty for 11 and outside.
const std::string& Wochentag_Text(const Kern& kern, int index);

/// Index, 0 to 10, of the first selector with exactly this text; -1 when there is none.
int Wochentag_Index(const Kern& kern, std::string_view text);

/// Whether the selector holds the weekday, 1, Monday, to 7. A selector that means no day holds none.
bool Wochentag_Haelt(int index, int weekday);

/// Weekday of a date: 1, Monday, to 7.
int Wochentag(const Datum& day);

} // namespace qvm
