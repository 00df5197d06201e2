#pragma once

#include "Report.h"
#include "UserTable.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The reports, in the language in use. See docs/decisions/reports.md for what is never in them.
namespace qvm {

struct Kern;

/// All users with a name: number, name, timer group, right, key, locks by mark and by finger.
Report Bericht_Benutzer(const Kern& kern, const UserTable& table);

/// The locks that a user, 1 to 250, has a mark for.
Report Bericht_Tueren(const Kern& kern, const UserTable& table, int user);

/// The users that have a mark for a lock, 1 to 200.
/// @param lockName as it is to be called
Report Bericht_Personen(const Kern& kern, const UserTable& table, int lock, std::string_view lockName);

/// What a user, 1 to 250, was given, where it is good for and when, with places to sign. Nothing when the file of the
/// time slots cannot be read or is damaged.
std::optional<Report> Bericht_Empfang(const Kern& kern, const UserTable& table, int user);

/// Name, date, time, event or state.
using ReportEvent = std::array<std::string, 4>;

/// Events of a history.
/// @param about which file
Report Bericht_Ereignisse(const Kern& kern, std::string_view about, const std::vector<ReportEvent>& events);

} // namespace qvm
