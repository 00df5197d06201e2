#pragma once

#include "Link.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>

namespace qvm {

/// A history record as the lock sends it, 22 bytes.
struct HistoryRecord {
    int Day = 0, Month = 0, Year = 0; ///< year: two digits
    int Hour = 0, Minute = 0;
    std::string Name; ///< code page 1252; bytes below 0x20 read as blanks
    std::uint8_t Event = 0;
};

inline constexpr int HistoryRecordLength = 22;
inline constexpr std::uint8_t HistoryEnd = 0xFF; ///< event byte behind the last record

HistoryRecord Historie_Zerlegen(const Platform& platform, std::span<const std::uint8_t, HistoryRecordLength> bytes);
/// Text of the event byte's low nibble, and of its high nibble ("" when it has none).
std::string Ereignis_Text(const Kern& kern, std::uint8_t event);
std::string Zustand_Text(const Kern& kern, std::uint8_t event);
/// "200" and the year below 10, "20" and the year otherwise.
std::string Jahr_Text(int year);
/// "dd.mm.yyyy", or nothing for a date that does not exist.
std::optional<std::string> Uhr_Textdatum(int day, int month, const std::string& year);
/// "H_yyyymmdd_hhmmss_<lock>.HST"; characters that a file name cannot hold become "_".
std::string Historie_Dateiname(const DateTime& now, std::string_view lockName);

/// Why the events of a lock are not all there, in the language in use; empty when they are.
std::string Historie_Verlust_Text(const Kern& kern, HistoryLoss why);

bool Datei_Zeile_Anhaengen(const FileStore& files, const std::string& path, std::string_view text);

/// Appends the lines of a record to the run's .HST file, which the first record makes, with `firstLine` at its head:
/// all of them or none. False on a file error; the next record then makes the file if there is none yet.
bool Historie_Schreiben(Link& link, const HistoryRecord& record, std::string_view lockName, std::string_view firstLine);

/// The run's .HST file is on the disk, so that it outlives the PC; true as well when the run made none. To be asked
/// before its lock is erased. False sets HistoryLost.
bool Historie_Sichern(Link& link);

/// What the progress window is shown of the first record with a state.
using ZustandAnzeige = Hook<void(std::uint8_t highNibble, const std::string& text)>;

/// Decodes the record in the link's RxBuffer and writes its lines into the run's .HST file, which the first record
/// makes. Sets HistoryStop when the record is older than HistoryCutoff; that record is still written. False on a file
/// error. `about`: which lock it is, for a message box.
bool Historie_Eintrag(Link& link, std::string_view lockName, const ZustandAnzeige& show, std::string_view about = {});

} // namespace qvm
