#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

inline constexpr std::size_t HistoryFieldCount = 4;
/// Characters of a field that are read; what the program writes is far shorter.
inline constexpr std::size_t LongestHistoryField = 250;

/// A line of a .HST file, split at its tabs, code page 1252.
struct HistoryLine {
    std::array<std::string, HistoryFieldCount> Fields; ///< name, date, time, event or state
    std::size_t Count = 0;                             ///< fields of the line, those beyond the fourth too; at least 1
};

/// What a line is, by its shape: an event has name, date, time and text, a state nothing but tabs before its text.
/// Anything else, the line of the lock above all, is neither.
enum class HistoryLineKind { Other, Event, State };
HistoryLineKind Historie_Zeilenart(const HistoryLine& line);

struct HistoryLines {
    std::vector<HistoryLine> Lines;
    std::size_t Total = 0; ///< lines of the file, also those that were not wanted
};

/// The first `most` lines of a file's bytes. They end in LF or CR LF; a last line without an end counts. Control
/// characters read as blanks, as in the records that the lines are made from; a field is cut at LongestHistoryField.
HistoryLines Historie_Zeilen(std::string_view bytes, std::size_t most = static_cast<std::size_t>(-1));

/// One event with the state that was reported together with it, code page 1252.
struct HistoryEvent {
    std::string Name, Date, Time, Event;
    std::string State; ///< of the line behind it; may be empty

    bool operator==(const HistoryEvent&) const = default;
};

/// A .HST file, taken apart.
struct HistoryFile {
    std::string Serial; ///< the first line: which lock
    std::vector<HistoryEvent> Events;
    std::size_t Skipped = 0; ///< lines that are neither event nor state, blank ones apart
};

HistoryFile Historie_Lesen(std::string_view bytes);

} // namespace qvm
