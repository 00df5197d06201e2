#pragma once

#include "Frame.h"
#include "TelegrammLayout.h"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

/// Telegrams of the network path, code 0x90. Their length is a word, so that their fields have offsets of two bytes.
/// The builders and the generated document take their indexes from these tables.
namespace qvm {

struct NetzFeld {
    std::string_view Name;
    std::uint16_t Offset; ///< frame index of the first byte; in a record the offset in it
    std::uint16_t Width = 1;
    Kind Is = Kind::Byte;
    std::uint8_t Detail = 0; ///< Rows: bytes a row; Fixed: the value

    constexpr int End() const { return Offset + Width; }
};

struct NetzLayout {
    std::string_view Name;
    int Code;  ///< index 27; -1 for the header and for records
    int First; ///< index of the first field
    int End;   ///< index behind the last field
    std::span<const NetzFeld> Fields;
    std::string_view Note = {};
};

/// Index of the first field that does not begin where the one before it ends, or has an impossible shape; the number of
/// fields when they do not end at End. -1 when all is well.
constexpr int NetzLayoutError(const NetzLayout& layout) {
    int at = layout.First;
    int index = 0;
    for (const NetzFeld& field : layout.Fields) {
        const bool shaped = field.Width > 0 && (field.Is != Kind::Word || field.Width == 2) &&
                            (field.Is != Kind::Rows || (field.Detail > 0 && field.Width % field.Detail == 0));
        if (field.Offset != at || !shaped) {
            return index;
        }
        at = field.End();
        ++index;
    }
    return at == layout.End ? -1 : index;
}

/// The payload begins here. It is cut into groups: a checksum stands behind every 128 bytes, and behind what is left.
inline constexpr int NetzPayload = 32, NetzGroup = 128, NetzGroupStep = NetzGroup + 1;
inline constexpr int NetzRecord = 64; ///< a user's record; two make a group
/// Users of the first data block and of a following one. A full block of either kind ends at the same index.
inline constexpr int NetzFirstUsers = 9, NetzUsers = 19, NetzFullLength = 1258;
/// Payload of the first data block before the users: five groups.
inline constexpr int NetzUserIndex = NetzPayload + 5 * NetzGroupStep;
/// A fingerprint block is full with this index; the checksum of its last, short group stands there.
inline constexpr int NetzFingerFull = 1304;
/// Data bytes of a full fingerprint block: nine groups and 111 bytes.
inline constexpr int NetzFingerBytes = 9 * NetzGroup + (NetzFingerFull - NetzPayload - 9 * NetzGroupStep);

namespace NetzCode {
inline constexpr std::uint8_t HistoryStart = 0x0A, HistoryFetching = 0x0B, HistoryBlock = 0x0C, HistoryLast = 0x0D,
                              Data = 0x14, DataTaken = 0x15, Finger = 0x16, FingerTaken = 0x17, Clock = 0x1E,
                              Programming = 0x1F, Programmed = 0x20, NotReached = 0xFF;
} // namespace NetzCode

/// Header of every telegram and of every reply; the program reads 1 and 27 of a reply.
namespace NetzKopf {
inline constexpr NetzFeld Start{"start", 0, 1, Kind::Fixed, StartByte}, Block{"block number", 1},
    Mark{"mark", 2, 1, Kind::Fixed, NetworkCode}, Count{"block count", 3}, Length{"length word", 4, 2, Kind::Word},
    Serial{"serial of the lock", 6, 4, Kind::Bytes}, Units{"addresses of units", 10, 16, Kind::Rows, 4},
    Sent{"1 once it is sent", 26}, Code{"code", 27}, Filler{"filler", 28, 2, Kind::Fixed, 0xFF},
    Unused{"unused", 30, 2, Kind::Fixed, 0};
inline constexpr std::array Fields{Start, Block, Mark, Count, Length, Serial, Units, Sent, Code, Filler, Unused};
inline constexpr NetzLayout Layout{"NetzKopf",
                                   -1,
                                   0,
                                   NetzPayload,
                                   Fields,
                                   "Units of type 2 take the addresses 0 and 1, units of type 1 the addresses 2 and 3. "
                                   "What the lock does with index 26 is not known."};
static_assert(NetzLayoutError(Layout) == -1);
} // namespace NetzKopf

/// First data block. Behind it up to nine user records.
namespace NetzDaten {
inline constexpr NetzFeld Users{"users of the dataset", 32, 2, Kind::Word},
    Code1{"administrator code", 34, 3, Kind::AdminCode}, Filler1{"filler", 37, 2, Kind::Fixed, 0xEE},
    Code2{"administrator code", 39, 3, Kind::AdminCode}, Filler2{"filler", 42, 2, Kind::Fixed, 0xEE},
    Channel{"radio channel less 1", 44}, Mode{"lock mode", 45}, CalendarFlag{"calendar flag", 46},
    TimerFlag{"lock timer flag", 47}, Priority{"priority", 48}, Level{"level", 49, 1, Kind::Fixed, 0xFF},
    Pair1{"flag pair 1", 50}, Pair2{"flag pair 2", 51}, Unused1{"unused", 52, 1, Kind::Fixed, 0},
    AlwaysOn{"always on", 53}, Seconds{"listen time in seconds", 54, 2, Kind::Word}, Erase{"erase option", 56},
    Unused2{"unused", 57, 103, Kind::Fixed, 0}, Sum1{"checksum of 32..159", 160},
    TimerA{"rows of timer A", 161, 55, Kind::Rows, 5}, Unused3{"unused", 216, 73, Kind::Fixed, 0},
    Sum2{"checksum of 161..288", 289}, TimerB{"rows of timer B", 290, 30, Kind::Rows, 5},
    Unused4{"unused", 320, 98, Kind::Fixed, 0}, Sum3{"checksum of 290..417", 418},
    HolidayA{"single holidays", 419, 120, Kind::Rows, 6}, Unused5{"unused", 539, 8, Kind::Fixed, 0},
    Sum4{"checksum of 419..546", 547}, HolidayB{"permanent holidays", 548, 120, Kind::Rows, 6},
    Unused6{"unused", 668, 8, Kind::Fixed, 0}, Sum5{"checksum of 548..675", 676};
inline constexpr std::array Fields{Users,     Code1,    Filler1, Code2,  Filler2,  Channel, Mode,     CalendarFlag,
                                   TimerFlag, Priority, Level,   Pair1,  Pair2,    Unused1, AlwaysOn, Seconds,
                                   Erase,     Unused2,  Sum1,    TimerA, Unused3,  Sum2,    TimerB,   Unused4,
                                   Sum3,      HolidayA, Unused5, Sum4,   HolidayB, Unused6, Sum5};
inline constexpr NetzLayout Layout{
    "NetzDaten",
    NetzCode::Data,
    NetzPayload,
    NetzUserIndex,
    Fields,
    "First data block; up to 9 user records follow. 50, 51 are 3, 1 with the flag set and 0, "
    "0 without it; 53 to 55 are 0 unless the unit mode is \"3\". A following block has the "
    "header and up to 19 user records from 32 on."};
static_assert(NetzLayoutError(Layout) == -1);
} // namespace NetzDaten

/// Record of a user with a code. What follows the function depends on the kind: 1 nothing.
namespace NetzCodeBenutzer {
inline constexpr NetzFeld Art{"kind: 1, 2 plain key, 3 long key", 0}, UserName{"user name", 1, 16, Kind::Text},
    Code{"user code", 17, 5, Kind::UserCode}, Timer{"timer selector", 22}, TimerBits3{"mask of slots 17 to 24", 23},
    TimerBits2{"mask of slots 9 to 16", 24}, TimerBits1{"mask of slots 1 to 8", 25}, Function{"weighting", 26};
inline constexpr NetzFeld PlainId{"identification", 27, 4, Kind::Secret},
    PlainData{"identification data", 31, 16, Kind::Secret}, PlainRest{"unused", 47, 17, Kind::Fixed, 0};
inline constexpr std::array Plain{Art,        UserName, Code,    Timer,     TimerBits3, TimerBits2,
                                  TimerBits1, Function, PlainId, PlainData, PlainRest};
inline constexpr NetzLayout PlainLayout{"NetzCodeBenutzer", -1,    0,
                                        NetzRecord,         Plain, "Kinds 1 and 2; 27..46 are 0 with kind 1."};
static_assert(NetzLayoutError(PlainLayout) == -1);

inline constexpr NetzFeld LongGap{"unused", 27, 4, Kind::Fixed, 0}, LongGroup{"group digit", 31},
    LongId{"identification", 32, 10, Kind::Secret}, LongData{"identification data", 42, 16, Kind::Secret},
    LongRest{"unused", 58, 6, Kind::Fixed, 0};
inline constexpr std::array Long{Art,      UserName, Code,      Timer,  TimerBits3, TimerBits2, TimerBits1,
                                 Function, LongGap,  LongGroup, LongId, LongData,   LongRest};
inline constexpr NetzLayout LongLayout{"NetzCodeBenutzerLang",
                                       -1,
                                       0,
                                       NetzRecord,
                                       Long,
                                       "Kind 3. The eleventh byte of the identification does not go out."};
static_assert(NetzLayoutError(LongLayout) == -1);
} // namespace NetzCodeBenutzer

/// Record of a user with a fingerprint template.
namespace NetzFingerBenutzer {
inline constexpr NetzFeld Art{"kind", 0, 1, Kind::Fixed, 4}, UserName{"user name", 1, 16, Kind::Text},
    Number{"finger number", 17, 2, Kind::Word}, Timer{"timer selector", 19}, TimerBits3{"mask of slots 17 to 24", 20},
    TimerBits2{"mask of slots 9 to 16", 21}, TimerBits1{"mask of slots 1 to 8", 22}, Function{"weighting", 23},
    Premium{"premium flag", 24}, Template{"template bytes 70 to 98", 25, 29, Kind::Secret},
    Unused{"unused", 54, 10, Kind::Fixed, 0};
inline constexpr std::array Fields{Art,        UserName, Number,  Timer,    TimerBits3, TimerBits2,
                                   TimerBits1, Function, Premium, Template, Unused};
inline constexpr NetzLayout Layout{"NetzFingerBenutzer", -1, 0, NetzRecord, Fields};
static_assert(NetzLayoutError(Layout) == -1);
inline constexpr int FirstTemplateByte = 70;
} // namespace NetzFingerBenutzer

/// What stands before each template in the fingerprint blocks, which run on from one block to the next.
namespace NetzVorlage {
inline constexpr NetzFeld Number{"finger number", 0, 2, Kind::Word}, Premium{"premium flag", 2};
inline constexpr std::array Fields{Number, Premium};
inline constexpr NetzLayout Layout{
    "NetzVorlage", -1, 0, 3, Fields, "Stands before each template of the blocks with code 0x16."};
static_assert(NetzLayoutError(Layout) == -1);
} // namespace NetzVorlage

/// The date and time of the PC. The checksum's place, 0 until then, lies inside its own sum.
namespace NetzUhr {
inline constexpr NetzFeld Day{"day", 32}, Month{"month", 33}, Year{"year", 34}, Hour{"hour", 35}, Minute{"minute", 36},
    Second{"second", 37}, Sum{"checksum of 32..38", 38};
inline constexpr std::array Fields{Day, Month, Year, Hour, Minute, Second, Sum};
inline constexpr NetzLayout Layout{"NetzUhr", NetzCode::Clock, NetzPayload,
                                   39,        Fields,          "Length word 37, although the last byte stands at 38."};
static_assert(NetzLayoutError(Layout) == -1);
inline constexpr int LengthWord = 0x25;
} // namespace NetzUhr

/// The checksum's place, 0 until then, lies inside its own sum.
namespace NetzHistorie {
inline constexpr NetzFeld AdminCode{"administrator code", 32, 3, Kind::AdminCode},
    Filler{"filler", 35, 2, Kind::Fixed, 0xEE}, Sum{"checksum of 32..37", 37};
inline constexpr std::array Fields{AdminCode, Filler, Sum};
inline constexpr NetzLayout Next{
    "NetzHistorie", NetzCode::HistoryBlock, NetzPayload, 38, Fields, "Length word 37; goes out in the clear."};
inline constexpr NetzLayout Start{"NetzHistorieStart",
                                  NetzCode::HistoryStart,
                                  NetzPayload,
                                  38,
                                  Fields,
                                  "Length word 48: 38..48 are 0, and 32..47 are enciphered as one block."};
static_assert(NetzLayoutError(Next) == -1 && NetzLayoutError(Start) == -1);
inline constexpr int LengthWord = 0x25, StartLengthWord = 48;
} // namespace NetzHistorie

/// What stands at index 27, and what it says.
struct NetzName {
    std::uint8_t Code;
    std::string_view Name, Meaning;
};
inline constexpr std::array NetzTelegramme{
    NetzName{NetzCode::HistoryStart, NetzHistorie::Start.Name, "start of a history reading"},
    NetzName{NetzCode::HistoryBlock, NetzHistorie::Next.Name, "next history block"},
    NetzName{NetzCode::Data, NetzDaten::Layout.Name, "data block"},
    NetzName{NetzCode::Finger, "NetzFinger", "fingerprint block"},
    NetzName{NetzCode::Clock, NetzUhr::Layout.Name, "clock"}};
inline constexpr std::array NetzAntworten{
    NetzName{NetzCode::HistoryFetching, "RpNetzHistorieHolt", "history is being fetched"},
    NetzName{NetzCode::HistoryBlock, "RpNetzHistorie", "history block"},
    NetzName{NetzCode::HistoryLast, "RpNetzHistorieEnde", "last history block"},
    NetzName{NetzCode::Data, "RpNetzDaten", "data block taken, index 1 its number"},
    NetzName{NetzCode::DataTaken, "RpNetzDatenEnde", "all data taken"},
    NetzName{NetzCode::Finger, "RpNetzFinger", "fingerprint block taken"},
    NetzName{NetzCode::FingerTaken, "RpNetzFingerEnde", "fingerprints taken"},
    NetzName{NetzCode::Programming, "RpNetzBeginnt", "programming begins"},
    NetzName{NetzCode::Programmed, "RpNetzFertig", "lock programmed"},
    NetzName{NetzCode::NotReached, "RpNetzNichtErreicht", "lock not reached"}};

} // namespace qvm
