#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Rules of single settings of a lock.
namespace qvm {

class Grid;
struct Kern;

/// False when another row of the lock table has that name already. An empty name is always free.
bool Schlossname_Frei(const Grid& locks, int row, std::string_view name);

/// Picture of column 10 for a serial that has just been entered: not applicable for a lock without an EMI setting and
/// for an empty text; off for any other.
int Emi_Bild(std::string_view serial);

/// Switches that are neither on nor off, as those of a lock without a serial number are, become on.
void Schalter_Geben(Grid& locks, int row);

/// The priority as a lock takes it: "1" to "5" give 0 to 4, any other text the middle, 2.
std::uint8_t Prioritaet_Code(std::string_view text);

/// Text of column 17 for a stored door mode: "AA" gives `Line::RoomDoor`, "BB" `Line::CommonDoor`, any other nothing.
/// Without a language file the mode shows as it is stored, so that a save keeps it.
std::string Tuermodus_Text(const Kern& kern, std::string_view mode);
/// The stored mode, "AA", "BB" or nothing, for a text of column 17.
std::string Tuermodus_Kennung(const Kern& kern, std::string_view text);

} // namespace qvm
