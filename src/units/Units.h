#pragma once

#include <array>
#include <string>
#include <string_view>

namespace qvm {

/// One wireless unit of a lock.
struct Unit {
    std::string Name;              ///< up to 30 characters
    std::array<std::string, 4> Sn; ///< serial groups, hexadecimal text, up to 3 characters
    std::string Module;            ///< module class "1" or "2", "0" when refused
    std::string UnitNo;            ///< unit address, decimal text, up to 2 characters

    bool operator==(const Unit&) const = default;
};

/// The record of a lock in T6WRSSISN.TSD: one reception setting and five units.
struct UnitRecord {
    std::string UnitMode;   ///< "1" class "TA ", "2" class "AE " by threshold, "3" class "STE" by time window
    std::string AlwaysOn;   ///< "1" on, "0" off
    std::string Reserved1;  ///< "0"
    std::string ScanSignal; ///< signal of the last scan; "00" when set by hand
    std::string Hours;
    std::string Minutes;
    std::string Seconds;
    std::string SignalFlag; ///< "1" set, "0" not
    std::string RssiLevel;  ///< threshold, one of the level texts; "000" not set
    std::array<Unit, 5> Units;

    bool operator==(const UnitRecord&) const = default;
};

/// A record of 241 bytes taken apart; what it does not hold is empty.
UnitRecord Unit_Lesen(std::string_view record);
/// The record's 241 bytes. Texts that are too long are cut.
std::string Unit_Satz(const UnitRecord& units);

/// Last entries of the lists that the listening time is chosen from; each begins with 0.
inline constexpr int LastListenHour = 17, LastListenMinute = 59;
/// Entry of such a list by the stored number; the first one for a number that the list does not have.
int Zeit_Eintrag(std::string_view text, int last);
/// The listening time of a record in seconds, 0 to 64799.
int Lauschzeit_Sekunden(const UnitRecord& record);

/// Splits a serial at its points: three groups up to a point or the end each, the rest as the fourth. Groups may be of
/// any length; there is no text that cannot be split.
std::array<std::string, 4> Sn_Teilen(std::string_view serial);
/// The groups joined by points; empty when all four are.
std::string Sn_Verbinden(const std::array<std::string, 4>& groups);

/// Entry of the level list, 0 to 4, for a stored text. Any other text, "000" for a level never chosen included, shows
/// as entry 4.
int Pegel_Eintrag(std::string_view rssiLevel);
/// Stored text of an entry of the level list; "000" outside 0 to 4.
std::string_view Pegel_Text(int entry);

} // namespace qvm
