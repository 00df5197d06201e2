#pragma once

#include "Link.h"
#include "SeriellesProtokoll.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

/// Who a slot is for.
namespace SlotKind {
inline constexpr std::uint8_t Code = 0, Finger = 0xB4;
}

/// One user slot of a lock's dataset.
struct ProgSlot {
    int User = 0;                                  ///< number in the user table
    std::string Name;                              ///< OEM code page
    std::string TimerName;                         ///< the timer group's PbId, "-" for none
    std::string Funktion;                          ///< the user's right
    std::string CodeDigits;                        ///< digits, or "EEEEEE" for a fingerprint user
    std::string TransponderA;                      ///< identification text of the key
    std::string TransponderB;                      ///< its sixteen data bytes
    static constexpr std::size_t PieceLength = 32; ///< bytes of a template in one telegram
    std::vector<std::uint8_t> Template; ///< bytes from the first value on, length bytes included; empty: none
    std::uint16_t FingerNumber = 0;
    std::uint8_t PrFlag = 0; ///< 1: premium template
    std::uint8_t Kind = SlotKind::Code;
    std::array<std::uint8_t, 3> TimerBits{}; ///< TimerBits1 to 3: masks of a group's slots 1 to 8, 9 to 16, 17 to 24
};

/// A wireless unit as the run needs it.
struct ProgUnit {
    bool UnitPresent = false;
    char Type = ' '; ///< module class "1" or "2"
    std::string UnitNo;
    std::string Name;
    Address Serial{};
};

/// Everything one lock is to receive. Filled for one lock at a time.
struct Dataset {
    LockValues Values;
    std::vector<ProgSlot> Slots;
    std::array<TimerRow, 11> TimerTableA{};
    std::array<TimerRow, 6> TimerTableB{};
    std::array<HolidayRow, 22> HolidayTableA{};
    std::array<HolidayRow, 22> HolidayTableB{};
    int MaxUser = 16;
    int FingerCount = 0;
    int TemplateBytes = 0;   ///< sum of template length + 3
    int ProgressTotal = 0;   ///< 4000 once the dataset stands
    int ProgressStored = 20; ///< the bar's maximum of the dataset: 20, plus 8 a slot
    bool AnyTransponder = false;
    bool AnyFinger = false; ///< a fingerprint user: the lock's fingerprint memory is not wiped

    std::array<ProgUnit, 5> Units;
    int UnitCount = 0;
    // Reception setting of the lock.
    std::string UnitMode, AlwaysOn, Reserved1, SignalFlag, RssiLevel;
    int ListenSeconds = 0;

    std::vector<std::string> Notes; ///< what the network variant has to say of the limits
};

/// The cells of a lock's row that the assembly looks at, as F13 or F91 show them.
struct LockRow {
    int Number = 0; ///< lock number = record number of all per-lock files
    std::string Name;
    std::string Serial;       ///< "aa.bb.cc.dd"
    std::string PersonTimers; ///< column 4
    std::string Calendars;    ///< column 5
    std::string LockTimer;    ///< column 6
    std::string CalendarFlag; ///< column 7
    std::string SetClock;     ///< column 8
};

/// Which window asks. The network window returns a status by cause and names fingerprint users differently. What is to
/// be said of the limits the direct variant shows in message boxes; the network variant leaves it in Dataset::Notes.
enum class DatasetVariant { Direct, Network };

namespace DatasetStatus {
inline constexpr int Good = 0, Stopped = 13, TooManyUsers = 92, TooManyPremium = 93, NoTemplate = 94, Other = 95;
/// Given by the list for a lock whose files are not to be relied on; Datensatz_Laden does not look.
inline constexpr int BadFiles = 96;
} // namespace DatasetStatus

/// Gathers the dataset of a lock from the data files. Each file is read once. A missing file leaves its tables cleared.
int Datensatz_Laden(const Kern& kern, Dataset& dataset, const LockRow& row, DatasetVariant variant);

/// What Einstellung_AEsn gives for a text that is no serial.
inline constexpr std::string_view SerialError = "FEHLER";

/// The serial text as eight hexadecimal digits, with the four bytes in `address`; SerialError when the text is empty or
/// not four hexadecimal bytes joined by points (`address` is untouched then).
std::string Einstellung_AEsn(std::string_view serialText, Address& address);

/// Length of a template in bytes: its first two values, low byte first. 0 when they are missing.
int Template_Laenge(std::string_view templateText);

/// A key identification, taken apart.
struct KeyForm {
    enum class Form { None, Plain, Long } Kind = Form::None;
    std::uint8_t GroupDigit = 0;           ///< long form: the character 2 as a number
    std::array<std::uint8_t, 11> Values{}; ///< plain: four; long: up to eleven, missing ones 0
};
KeyForm Schluessel_Zerlegen(std::string_view keyId);
/// Up to `count` decimal values separated by ":" (blanks around them allowed); missing or wrong ones are 0.
std::vector<std::uint8_t> Dezimalwerte(std::string_view text, std::size_t count);

/// Timer selector byte: in mode "Timer_A_B" 0, 1 or 2; in "TimerPB_UT" the first group mask; else 0. What the device
/// does with a mask here is not known; the full map follows in TelBenutzerZeitgruppen.
std::uint8_t Timer_Auswahl(const std::string& timerMode, const ProgSlot& slot);

} // namespace qvm
