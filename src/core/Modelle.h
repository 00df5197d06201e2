#pragma once

#include <array>
#include <cstdint>
#include <string_view>

/// What a device's serial number says of it. Locks, wireless units and network adapters show their family by ranges of
/// the number. What differs between families is asked for by name and stands on this page only; `docs/models.md` is
/// made from it. The virtual system knows the families by tables of its own.
namespace qvm {

/// The serials from First to Last, both included; none as long as nothing is set.
struct SerialRange {
    std::uint32_t First = 1, Last = 0;

    /// `serial` is a number of 32 bits. -1, for a text that is no serial, lies in no range.
    constexpr bool Contains(std::int64_t serial) const { return serial >= First && serial <= Last; }
};

/// The serials for which one thing holds. It is asked like a routine: BereichN(serial).
struct SerialRule {
    std::string_view Name;
    std::array<SerialRange, 2> Ranges;
    std::string_view Meaning; ///< what holds for them, as `docs/models.md` tells it

    constexpr bool operator()(std::int64_t serial) const {
        return Ranges[0].Contains(serial) || Ranges[1].Contains(serial);
    }
};

inline constexpr SerialRule BereichN{"BereichN",
                                     {{{0x1500C06, 0x1600000}, {0x1C000AE, 0x1D00000}}},
                                     "The lock takes `TelReaderEinstellung` in front of its timer tables, and a long "
                                     "transponder in two telegrams more."};

inline constexpr SerialRule BereichZ{
    "BereichZ",
    {{{0x1000001, 0x2000000}}},
    "The lock erases in the background: behind `TelDatenStart` it is polled until it answers."};

// Why the last serial of range Z differs, and whether a polled lock acknowledges TelDatenStart at all, is not known.
inline constexpr SerialRule Datenstart_Antwort_Wartet{
    "Datenstart_Antwort_Wartet",
    {{{0x1000001, 0x1FFFFFF}}},
    "The lock's reply to `TelDatenStart` starts nothing: the polling leads on. All others go on at that reply."};

inline constexpr SerialRule BereichZweiDurchgaenge{
    "BereichZweiDurchgaenge",
    {{{0xE6E9001, 0xFDFF59B}}},
    "The lock is programmed in two passes, each with a login of its own, when a user has a transponder."};

inline constexpr SerialRule Volle_Zeittabellen{"Volle_Zeittabellen",
                                               {{{0x1000001, 0x1600000}, {0x1C00001, 0x2000000}}},
                                               "The lock takes all ten timers of persons and the five of locks."};

inline constexpr SerialRule Timer_A_Und_B{
    "Timer_A_Und_B",
    {{{0, 0xB49FFFF}}},
    "The lock is given the timers A and B when it does not take the full tables, and when it has no timer. Above, a "
    "lock that does not take them is given none."};

inline constexpr SerialRule Eine_Feiertagstabelle{
    "Eine_Feiertagstabelle",
    {{{0xA000001, 0xD912D63}}},
    "The lock has no table for permanent holidays: they go behind the single ones, with the current year."};

inline constexpr SerialRule Ohne_Emi{
    "Ohne_Emi",
    {{{0xB4A0000, 0xDFFB9EE}}},
    "The lock has no EMI setting: its cell shows not applicable, and no lock mode is sent."};

inline constexpr SerialRule Unit_Klasse_1{
    "Unit_Klasse_1", {{{0x1600001, 0x1640000}}}, "A wireless unit of module class 1."};

inline constexpr SerialRule Unit_Klasse_2{
    "Unit_Klasse_2",
    {{{1, 0x500000}}},
    "A wireless unit of module class 2. A serial outside of both classes is refused as that of a unit."};

// As its second byte must not be 0 either, a unit below 00.01.00.00 is never programmed.
inline constexpr SerialRule Unit_Mit_Kleiner_Nummer{
    "Unit_Mit_Kleiner_Nummer",
    {{{0x2CCD, 0x500000}}},
    "A unit whose serial begins with 00 is programmed with its lock if its second pair is not 00, too."};

inline constexpr SerialRule Netzadapter{
    "Netzadapter",
    {{{0x3E00001, 0x3F00000}}},
    "The address of a network adapter, which takes a lock's data in one piece. All others program the lock directly."};

/// All of them, in the order of the document.
inline constexpr std::array SerialRules{
    &BereichN,           &BereichZ,      &Datenstart_Antwort_Wartet, &BereichZweiDurchgaenge,
    &Volle_Zeittabellen, &Timer_A_Und_B, &Eine_Feiertagstabelle,     &Ohne_Emi,
    &Unit_Klasse_1,      &Unit_Klasse_2, &Unit_Mit_Kleiner_Nummer,   &Netzadapter};

/// How many users a lock of these serials takes at most.
struct UserLimit {
    SerialRange Serials;
    int Users;
};

inline constexpr std::array UserLimits{
    UserLimit{{0x1000001, 0x1004579}, 299},
    UserLimit{{0x1005902, 0x1500000}, 47},
    UserLimit{{0x1500001, 0x1500424}, 1999},
    UserLimit{{0x150080D, 0x1600000}, 1999},
};
inline constexpr int UserLimitElse = 299; ///< of a lock outside of them

/// Maximum of users of a lock.
constexpr int MaxUserAnz(std::uint32_t serial) {
    for (const UserLimit& limit : UserLimits) {
        if (limit.Serials.Contains(serial)) {
            return limit.Users;
        }
    }
    return UserLimitElse;
}

/// Module class of a wireless unit: '1', '2', or '0' for a serial that is none of a unit. -1 stands for no serial.
constexpr char Sn_Klasse(std::int64_t serial) {
    if (Unit_Klasse_1(serial)) {
        return '1';
    }
    return Unit_Klasse_2(serial) ? '2' : '0';
}

} // namespace qvm
