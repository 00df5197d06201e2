#include "SimForms.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace qvm {

namespace {

using enum Check;

constexpr std::array<FormPart, 0> NoPart{};

// Sessions.
constexpr std::array Login{FormPart{"administrator code", 14, 16, AdminCode},
                           FormPart{"code filler", 17, 17, Exactly, 0xEE}, FormPart{"channel", 18, 18, Between, 1, 12},
                           FormPart{"mark", 19, 19, Exactly, 0xAA}, FormPart{"mark", 20, 20, Exactly, 0x55}};
constexpr std::array UnitLogin{FormPart{"administrator code", 14, 16, AdminCode},
                               FormPart{"code filler", 17, 17, Exactly, 0xEE},
                               FormPart{"channel", 18, 18, Between, 1, 12}};
constexpr std::array UnitConnect{FormPart{"administrator code", 14, 16, AdminCode},
                                 FormPart{"code filler", 17, 18, Exactly, 0xEE},
                                 FormPart{"mark", 19, 19, Exactly, 0xAA}, FormPart{"mark", 20, 20, Exactly, 0x55}};
constexpr std::array CodeChange{FormPart{"mark", 14, 15, Exactly, 0x33}, FormPart{"old code", 16, 18, AdminCode},
                                FormPart{"old code filler", 19, 20, Exactly, 0xEE},
                                FormPart{"new code", 21, 23, AdminCode},
                                FormPart{"new code filler", 24, 25, Exactly, 0xEE}};
constexpr std::array Channel{FormPart{"channel less 1", 14, 14, Between, 0, 11}};

// Clock, history, flags.
constexpr std::array DateParts{FormPart{"date", 14, 16, Date}};
constexpr std::array TimeParts{FormPart{"time", 14, 16, Time}};
constexpr std::array HistoryFirst{FormPart{"which record", 14, 14, Exactly, 0}};
constexpr std::array HistoryNext{FormPart{"which record", 14, 14, Exactly, 2}};
constexpr std::array Flag{FormPart{"flag", 14, 14, Between, 0, 1}};
constexpr std::array Erase{FormPart{"erase option", 14, 14, Between, 0, 1}};
constexpr std::array Priority{FormPart{"priority", 14, 14, Between, 0, 4}};
constexpr std::array Mode{FormPart{"lock mode", 14, 14, LockMode}};
constexpr std::array Listen{FormPart{"first option", 14, 14, Between, 0, 1},
                            FormPart{"second option", 15, 15, Between, 0, 1}, FormPart{"seconds", 16, 17},
                            FormPart{"filler", 18, 18, Exactly, 0}};
constexpr std::array Reader{FormPart{"mark", 14, 14, Exactly, 1}, FormPart{"level", 15, 15, Level},
                            FormPart{"signal", 16, 17, ReaderPair}};

// Tables. Rows in use from the front; what a part cannot hold of the table is zero.
constexpr std::array A0{FormPart{"rows", 14, 53, TimerRows, 8}, FormPart{"part", 54, 54, Exactly, 0}};
constexpr std::array A1{FormPart{"rows", 14, 53, TimerRows, 2}, FormPart{"part", 54, 54, Exactly, 1}};
constexpr std::array A2{FormPart{"rows", 14, 53, TimerRows, 0}, FormPart{"part", 54, 54, Exactly, 2}};
constexpr std::array AShort{FormPart{"rows", 14, 53, TimerRows, 8}};
constexpr std::array B0{FormPart{"rows", 14, 53, TimerRows, 6}, FormPart{"part", 54, 54, Exactly, 0}};
constexpr std::array B1{FormPart{"rows", 14, 53, TimerRows, 0}, FormPart{"part", 54, 54, Exactly, 1}};
constexpr std::array BShort{FormPart{"rows", 14, 53, TimerRows, 6}};
constexpr std::array Single0{FormPart{"part", 14, 14, Exactly, 0}, FormPart{"rows", 15, 56, HolidayRows}};
constexpr std::array Single1{FormPart{"part", 14, 14, Exactly, 1}, FormPart{"rows", 15, 56, HolidayRows}};
constexpr std::array Single2{FormPart{"part", 14, 14, Exactly, 2}, FormPart{"rows", 15, 56, HolidayRows}};
constexpr std::array Perm0{FormPart{"part", 14, 14, Exactly, 0}, FormPart{"rows", 15, 55, YearlyRows}};
constexpr std::array Perm1{FormPart{"part", 14, 14, Exactly, 1}, FormPart{"rows", 15, 55, YearlyRows}};
constexpr std::array Perm2{FormPart{"part", 14, 14, Exactly, 2}, FormPart{"rows", 15, 55, YearlyRows}};

// Users.
constexpr std::array Name1{FormPart{"name", 14, 29, Text}};
constexpr std::array Name2{FormPart{"slot", 14, 15}, FormPart{"name", 16, 31, Text}};
constexpr std::array UserShort{FormPart{"slot", 14, 15}, FormPart{"code", 16, 20, UserCode},
                               FormPart{"timer selector", 21, 21}, FormPart{"weighting", 22, 22, Weighting},
                               FormPart{"identification mark", 23, 23, Exactly, 0}};
constexpr std::array UserLong{FormPart{"slot", 14, 15},
                              FormPart{"code", 16, 20, UserCode},
                              FormPart{"timer selector", 21, 21},
                              FormPart{"weighting", 22, 22, Weighting},
                              FormPart{"identification mark", 23, 23, Exactly, 1},
                              FormPart{"identification", 24, 27},
                              FormPart{"identification data", 28, 43}};
constexpr std::array Groups{FormPart{"slot", 14, 15}, FormPart{"group masks", 16, 18}};
constexpr std::array Finger{FormPart{"finger number", 14, 15}, FormPart{"name", 16, 31, Text},
                            FormPart{"template slice", 32, 59}, FormPart{"weighting", 60, 60, Weighting}};
constexpr std::array Id1{FormPart{"mark", 14, 14, Exactly, 1}, FormPart{"part", 15, 15, Exactly, 1},
                         FormPart{"group digit", 16, 16, Between, 0, 9}, FormPart{"identification data", 17, 32}};
constexpr std::array Id2{FormPart{"mark", 14, 14, Exactly, 1}, FormPart{"part", 15, 15, Exactly, 2},
                         FormPart{"group digit", 16, 16, Between, 0, 9}, FormPart{"slot", 17, 18},
                         FormPart{"identification", 19, 29}};

// Units.
constexpr std::array LockSerial{FormPart{"lock serial", 14, 17}};
constexpr std::array UnitKey{FormPart{"key", 14, 29, NotZero}};
constexpr std::array UnitBlock{FormPart{"mark", 14, 14, Exactly, 1},
                               FormPart{"rows", 15, 16},
                               FormPart{"row number", 17, 18},
                               FormPart{"piece number", 19, 19},
                               FormPart{"row type", 20, 20, Between, 0, 1},
                               FormPart{"row address", 21, 22},
                               FormPart{"data", 23, 54},
                               FormPart{"inner sum", 55, 55}};

// The readers of the desk.
constexpr std::array KeyRead{FormPart{"channel", 14, 14, Between, 1, 12}, FormPart{"wish", 15, 15, KeyWish}};
constexpr std::array KeyReadOld{FormPart{"channel", 14, 14, Between, 1, 12}};
constexpr std::array FreeSlot{FormPart{"slot", 14, 14, Between, 128, 255}};

// Guest cards. The first telegram is always as long; a following one has rows of four bytes and one byte more.
constexpr std::array CardHead{FormPart{"telegrams", 14, 14, Between, 1, 3}, FormPart{"part", 15, 15, Exactly, 0},
                              FormPart{"entries", 16, 16, Between, 4, 27},  FormPart{"slots", 17, 18},
                              FormPart{"mark", 19, 19, Exactly, 1},         FormPart{"check-in date", 20, 22, Date},
                              FormPart{"check-in time", 23, 24, Time},      FormPart{"check-out date", 25, 27, Date},
                              FormPart{"check-out time", 28, 29, Time},     FormPart{"rows", 30, 59},
                              FormPart{"mode", 60, 60, Between, 128, 129}};
template <int Rows>
constexpr std::array CardSecond{FormPart{"telegrams", 14, 14, Between, 2, 3}, FormPart{"part", 15, 15, Exactly, 1},
                                FormPart{"rows", 16, 16 + 4 * Rows}};
template <int Rows>
constexpr std::array CardThird{FormPart{"telegrams", 14, 14, Exactly, 0}, FormPart{"part", 15, 15, Exactly, 3},
                               FormPart{"rows", 16, 16 + 4 * Rows}};
constexpr std::array CardBattery{FormPart{"mark", 14, 14, Exactly, 1}, FormPart{"mark", 15, 15, Exactly, 0xAA},
                                 FormPart{"mark", 16, 16, Exactly, 0x55}, FormPart{"mark", 17, 17, Exactly, 0xAA},
                                 FormPart{"mark", 18, 18, Exactly, 0x55}};
constexpr std::array CardRead{FormPart{"block", 14, 14, Between, 0, 2}, FormPart{"mark", 15, 15, Exactly, 0xAA},
                              FormPart{"mark", 16, 16, Exactly, 0x55}, FormPart{"mark", 17, 17, Exactly, 0xAA},
                              FormPart{"mark", 18, 18, Exactly, 0x55}};

// The adapter itself.
constexpr std::array Identify{FormPart{"probe", 3, 7}, FormPart{"filler", 8, 14, Exactly, 0}};
constexpr std::array Tune{FormPart{"channel", 3, 3, Between, 1, 12}, FormPart{"address", 4, 7},
                          FormPart{"filler", 8, 14, Exactly, 0}};
constexpr std::array Data{FormPart{"probe", 3, 7, Probe}, FormPart{"filler", 8, 14, Exactly, 0}};
constexpr std::array NewName{FormPart{"name", 3, 22, Text}, FormPart{"filler", 23, 24, Exactly, 0}};
constexpr std::array Target{FormPart{"channel", 3, 3, Between, 1, 12}, FormPart{"address mode", 4, 4, Between, 0, 2},
                            FormPart{"address", 5, 8}, FormPart{"filler", 9, 14, Exactly, 0}};

constexpr std::array Fixed{
    Form{"unit disconnect", 0x03, 0x0D, false, NoPart},
    Form{"login", 0x04, 0x14, false, Login},
    Form{"unit login", 0x04, 0x12, false, UnitLogin},
    Form{"disconnect", 0x05, 0x0D, false, NoPart},
    Form{"date", 0x07, 0x10, false, DateParts},
    Form{"sign of life", 0x08, 0x0D, false, NoPart},
    Form{"time", 0x09, 0x10, false, TimeParts},
    Form{"user begin", 0x0A, 0x0D, false, NoPart},
    Form{"user name 1", 0x0B, 0x1D, false, Name1},
    Form{"user name 2", 0x0D, 0x1F, false, Name2},
    Form{"user data", 0x0E, 0x17, false, UserShort},
    Form{"user data with identification", 0x0E, 0x2B, false, UserLong},
    Form{"code change", 0x12, 0x19, false, CodeChange},
    Form{"data end", 0x15, 0x0D, false, NoPart},
    Form{"history, first record", 0x17, 0x0E, false, HistoryFirst},
    Form{"history, next record", 0x17, 0x0E, false, HistoryNext},
    Form{"timer table A, part 0", 0x19, 0x36, false, A0},
    Form{"timer table A, part 1", 0x19, 0x36, false, A1},
    Form{"timer table A, part 2", 0x19, 0x36, false, A2},
    Form{"timer table A, short", 0x19, 0x35, false, AShort},
    Form{"timer table B, part 0", 0x1B, 0x36, false, B0},
    Form{"timer table B, part 1", 0x1B, 0x36, false, B1},
    Form{"timer table B, short", 0x1B, 0x35, false, BShort},
    Form{"single holidays, part 0", 0x1F, 0x38, false, Single0},
    Form{"single holidays, part 1", 0x1F, 0x38, false, Single1},
    Form{"single holidays, part 2", 0x1F, 0x38, false, Single2},
    Form{"permanent holidays, part 0", 0x21, 0x37, false, Perm0},
    Form{"permanent holidays, part 1", 0x21, 0x37, false, Perm1},
    Form{"permanent holidays, part 2", 0x21, 0x37, false, Perm2},
    Form{"lock timer flag", 0x23, 0x0E, false, Flag},
    Form{"calendar flag", 0x25, 0x0E, false, Flag},
    Form{"data start", 0x27, 0x0E, false, Erase},
    Form{"channel read", 0x28, 0x0E, false, Channel},
    Form{"channel set", 0x29, 0x0E, false, Channel},
    Form{"priority", 0x2F, 0x0E, false, Priority},
    Form{"lock mode", 0x32, 0x0E, false, Mode},
    Form{"listen time", 0x33, 0x12, false, Listen},
    Form{"user time groups", 0x37, 0x12, false, Groups},
    Form{"reader setting", 0x3B, 0x11, false, Reader},
    Form{"unit setting", 0x3D, 0x11, false, LockSerial},
    Form{"fingerprint user", 0x40, 0x3C, false, Finger},
    Form{"identification, part 1", 0x43, 0x20, false, Id1},
    Form{"identification, part 2", 0x43, 0x1D, false, Id2},
    Form{"unit key", 0x48, 0x1D, false, UnitKey},
    Form{"unit open", 0x49, 0x11, false, LockSerial},
    Form{"unit block", 0x4A, 0x37, false, UnitBlock},
    Form{"unit search", SearchCode, 0x0D, false, NoPart},
    Form{"channel action", 0x66, 0x0E, false, Channel},
    Form{"unit connect", 0xFE, 0x14, false, UnitConnect},
    Form{"key reading", 0x67, 0x0F, false, KeyRead},
    Form{"key reading, old adapter", 0x67, 0x0E, false, KeyReadOld},
    Form{"slot to be freed", 0x70, 0x0E, false, FreeSlot},
    Form{"finger enrolment", 0xA1, 0x0D, false, NoPart},
    Form{"transponder reading", 0xA3, 0x0D, false, NoPart},
    Form{"adapter identification", 0x68, 0x0E, true, Identify},
    Form{"adapter channel", 0x6B, 0x0E, true, Tune},
    Form{"adapter data", 0x6C, 0x0E, true, Data},
    Form{"adapter name", 0x6D, 0x18, true, NewName},
    Form{"adapter target", 0x6F, 0x0E, true, Target},
    Form{"card", 0x6F, 0x3C, false, CardHead},
    Form{"card battery", 0x72, 0x12, false, CardBattery},
    Form{"card reading", 0x73, 0x12, false, CardRead},
};

/// The following telegrams of a card come with one to eleven rows.
template <int... Less1>
constexpr auto With_Card_Rows(std::integer_sequence<int, Less1...> /*rows*/) {
    constexpr std::array cards{
        Form{"card, second part", 0x6F, 0x14 + 4 * Less1, false, CardSecond<Less1 + 1>}...,
        Form{"card, third part", 0x6F, 0x14 + 4 * Less1, false, CardThird<Less1 + 1>}...,
    };
    std::array<Form, Fixed.size() + cards.size()> all{};
    std::copy(cards.begin(), cards.end(), std::copy(Fixed.begin(), Fixed.end(), all.begin()));
    return all;
}
constexpr std::array All = With_Card_Rows(std::make_integer_sequence<int, 11>{});

/// Forms of one code and length differ in a byte that holds one value in each of them; this finds the right one.
bool PartNumberFits(const Form& form, std::span<const std::uint8_t> frame) {
    for (const FormPart& part : form.Parts) {
        const bool tells = part.How == Exactly && part.First == part.Last &&
                           (std::string_view{part.Name} == "part" || std::string_view{part.Name} == "which record");
        if (tells && frame[static_cast<std::size_t>(part.First)] != part.A) {
            return false;
        }
    }
    return true;
}

} // namespace

std::span<const Form> Forms() {
    return All;
}

FormChoice FindForm(std::span<const std::uint8_t> frame) {
    FormChoice choice;
    if (frame.size() < 4 || frame.size() != std::size_t{frame[1]} + 2) {
        return choice;
    }
    for (const Form& form : All) {
        if (form.Code != frame[2]) {
            continue;
        }
        choice.CodeKnown = true;
        if (form.Length != frame[1]) {
            continue;
        }
        choice.LengthKnown = true;
        if (PartNumberFits(form, frame)) {
            choice.Found = &form;
            break;
        }
    }
    return choice;
}

} // namespace qvm
