#include "SimNetworkForm.h"

#include "SimFrame.h"
#include "SimRanges.h"

#include <algorithm>
#include <array>

namespace qvm {

namespace {

using Bytes = std::span<const std::uint8_t>;

// Indexes count within the first block's bytes, the inner sums taken out.
constexpr std::array FixedParts{
    FormPart{"administrator code", 2, 4, Check::AdminCode},
    FormPart{"code filler", 5, 6, Check::Exactly, 0xEE},
    FormPart{"administrator code again", 7, 9, Check::AdminCode},
    FormPart{"code filler", 10, 11, Check::Exactly, 0xEE},
    FormPart{"channel less 1", 12, 12, Check::Between, 0, 11},
    FormPart{"calendar flag", 14, 14, Check::Between, 0, 1},
    FormPart{"lock timer flag", 15, 15, Check::Between, 0, 1},
    FormPart{"priority", 16, 16, Check::Between, 0, 4},
    FormPart{"level", 17, 17, Check::Exactly, 0xFF},
    FormPart{"signal", 18, 19, Check::ReaderPair},
    FormPart{"first option", 20, 20, Check::Exactly, 0},
    FormPart{"second option", 21, 21, Check::Between, 0, 1},
    FormPart{"erase option", 24, 24, Check::Between, 0, 1},
    FormPart{"rest of the values", 25, 127, Check::Exactly, 0},
    FormPart{"timer table A", 128, 182, Check::TimerRows, 11},
    FormPart{"rest of timer table A", 183, 255, Check::Exactly, 0},
    FormPart{"timer table B", 256, 285, Check::TimerRows, 6},
    FormPart{"rest of timer table B", 286, 383, Check::Exactly, 0},
    FormPart{"single holidays", 384, 503, Check::HolidayRows},
    FormPart{"rest of the single holidays", 504, 511, Check::Exactly, 0},
    FormPart{"permanent holidays", 512, 631, Check::YearlyRows},
    FormPart{"rest of the permanent holidays", 632, 639, Check::Exactly, 0},
};

/// Kinds of a user's record.
namespace UserKind {
constexpr std::uint8_t NoKey = 1, PlainKey = 2, LongKey = 3, Finger = 4;
}

constexpr std::array CodeUserParts{FormPart{"name", 1, 16, Check::Text}, FormPart{"code", 17, 21, Check::UserCode},
                                   FormPart{"timer number", 22, 22, Check::Between, 0, 2},
                                   FormPart{"weighting", 26, 26, Check::Weighting}};
constexpr std::array NoKeyRest{FormPart{"rest", 27, 63, Check::Exactly, 0}};
constexpr std::array PlainKeyRest{FormPart{"rest", 47, 63, Check::Exactly, 0}};
constexpr std::array LongKeyRest{FormPart{"filler", 27, 30, Check::Exactly, 0},
                                 FormPart{"group digit", 31, 31, Check::Between, 0, 9},
                                 FormPart{"rest", 58, 63, Check::Exactly, 0}};
constexpr std::array FingerUserParts{
    FormPart{"name", 1, 16, Check::Text}, FormPart{"timer number", 19, 19, Check::Between, 0, 2},
    FormPart{"weighting", 23, 23, Check::Weighting}, FormPart{"premium flag", 24, 24, Check::Between, 0, 1},
    FormPart{"rest", 54, 63, Check::Exactly, 0}};
constexpr std::size_t SliceAt = 25, SliceBytes = 29, SliceOfTemplate = 70;

std::uint16_t HighFirst(Bytes bytes, std::size_t at) {
    return static_cast<std::uint16_t>((bytes[at] << 8) | bytes[at + 1]);
}

template <std::size_t N>
std::array<std::uint8_t, N> Taken(Bytes bytes, std::size_t at) {
    std::array<std::uint8_t, N> target{};
    std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(at), N, target.begin());
    return target;
}

void JudgeParts(std::span<const FormPart> parts, Bytes bytes, const std::string& whose, Judge& judge) {
    for (const FormPart& part : parts) {
        const auto first = static_cast<std::size_t>(part.First), last = static_cast<std::size_t>(part.Last);
        if (const std::string fault = RangeFault(part, bytes.subspan(first, last + 1 - first)); !fault.empty()) {
            judge.Note(Wrong::Range, NetworkMark, std::string{whose}.append(part.Name).append(": ").append(fault));
        }
    }
}

/// The slice that a fingerprint user's record must carry; what the template does not reach is 0.
std::array<std::uint8_t, SliceBytes> SliceOf(const NetworkTemplate& finger) {
    std::array<std::uint8_t, SliceBytes> slice{};
    for (std::size_t n = 0; n < slice.size() && SliceOfTemplate + n < finger.Bytes.size(); ++n) {
        slice[n] = finger.Bytes[SliceOfTemplate + n];
    }
    return slice;
}

} // namespace

int NetworkDataBlocks(int users) {
    const int further = std::max(users - NetworkFirstUsers, 0);
    return 1 + (further + NetworkNextUsers - 1) / NetworkNextUsers;
}

int NetworkUsersOf(int block, int users) {
    const int before = block == 1 ? 0 : NetworkFirstUsers + NetworkNextUsers * (block - 2);
    return std::clamp(users - before, 0, block == 1 ? NetworkFirstUsers : NetworkNextUsers);
}

std::size_t NetworkDataLength(int block, int count, int users) {
    constexpr std::size_t full = 1258, firstEmpty = 677;
    const bool last = block == 1 ? count == 1 : block == NetworkDataBlocks(users);
    if (!last) {
        return full;
    }
    const auto here = static_cast<std::size_t>(NetworkUsersOf(block, users));
    return (block == 1 ? firstEmpty : std::size_t{32}) + NetworkUserBytes * here + (here + 1) / 2;
}

void JudgeNetworkFixed(Bytes fixed, const DeviceAddress& serial, Judge& judge) {
    constexpr std::uint32_t modeAbove = 0xB49FFFF, modeBelow = 0xDFFB9EF;
    constexpr std::uint8_t none = 0xFF;
    JudgeParts(FixedParts, fixed, "", judge);
    if (!std::equal(fixed.begin() + NetValue::AdminCode, fixed.begin() + NetValue::AdminCode + 3,
                    fixed.begin() + NetValue::AdminCodeAgain)) {
        judge.Note(Wrong::Range, NetworkMark, "the administrator code is not the same twice");
    }
    const std::uint8_t mode = fixed[NetValue::Mode];
    const std::uint32_t number = SerialNumber(serial);
    const bool mustBeNone = number > modeAbove && number < modeBelow;
    if (mode != none && (mustBeNone || (mode != 0x0A && mode != 0x14))) {
        judge.Note(Wrong::Range, NetworkMark, "lock mode: " + Hex(mode));
    }
}

void JudgeNetworkUser(Bytes record, int number, Judge& judge) {
    const std::string whose = "user " + std::to_string(number) + ", ";
    switch (record[0]) {
    case UserKind::NoKey:
        JudgeParts(CodeUserParts, record, whose, judge);
        return JudgeParts(NoKeyRest, record, whose, judge);
    case UserKind::PlainKey:
        JudgeParts(CodeUserParts, record, whose, judge);
        return JudgeParts(PlainKeyRest, record, whose, judge);
    case UserKind::LongKey:
        JudgeParts(CodeUserParts, record, whose, judge);
        return JudgeParts(LongKeyRest, record, whose, judge);
    case UserKind::Finger:
        return JudgeParts(FingerUserParts, record, whose, judge);
    default:
        judge.Note(Wrong::Range, NetworkMark, whose + "kind: " + Hex(record[0]));
    }
}

LockUser NetworkUser(Bytes record, std::uint16_t slot) {
    LockUser user;
    user.Slot = slot;
    user.Name = Taken<16>(record, 1);
    user.HasGroups = true;
    if (record[0] == UserKind::Finger) {
        user.Finger = true;
        user.FingerNumber = HighFirst(record, 17);
        user.TimerSelector = record[19];
        user.Groups = {record[22], record[21], record[20]};
        user.Weighting = record[23];
        user.Slice = Taken<28>(record, SliceAt); // the lock keeps one byte less than came
        return user;
    }
    user.Code = Taken<5>(record, 17);
    user.TimerSelector = record[22];
    user.Groups = {record[25], record[24], record[23]};
    user.Weighting = record[26];
    if (record[0] == UserKind::PlainKey) {
        user.HasId = true;
        user.Id = Taken<4>(record, 27);
        user.IdData = Taken<16>(record, 31);
    } else if (record[0] == UserKind::LongKey) {
        user.HasLongId = true;
        user.GroupDigit = record[31];
        std::copy_n(record.begin() + 32, 10, user.LongId.begin());
        user.LongIdData = Taken<16>(record, 42);
    }
    return user;
}

std::vector<NetworkTemplate> NetworkTemplates(Bytes stream, Judge& judge) {
    constexpr std::size_t head = 3, lengthBytes = 2;
    std::vector<NetworkTemplate> all;
    while (!stream.empty()) {
        const bool whole = stream.size() >= head + lengthBytes;
        const std::size_t length = whole ? stream[head] + std::size_t{stream[head + 1]} * 256 : 0;
        if (length < lengthBytes || length > stream.size() - head) {
            judge.Note(Wrong::Range, NetworkMark,
                       "fingerprint " + std::to_string(all.size() + 1) + " is " + std::to_string(length) +
                           " bytes long, and " + std::to_string(stream.size()) + " are left");
            break;
        }
        if (stream[2] > 1) {
            judge.Note(Wrong::Range, NetworkMark,
                       "fingerprint " + std::to_string(all.size() + 1) + ", premium flag: " + Hex(stream[2]));
        }
        const Bytes bytes = stream.subspan(head, length);
        all.push_back({.Number = HighFirst(stream, 0), .Premium = stream[2], .Bytes = {bytes.begin(), bytes.end()}});
        stream = stream.subspan(head + length);
    }
    return all;
}

void JudgeNetworkTemplates(std::span<const NetworkTemplate> templates, Bytes users, Judge& judge) {
    std::size_t taken = 0;
    for (std::size_t at = 0; at + NetworkUserBytes <= users.size(); at += NetworkUserBytes) {
        const Bytes record = users.subspan(at, NetworkUserBytes);
        if (record[0] != UserKind::Finger) {
            continue;
        }
        const std::string whose = "user " + std::to_string(at / NetworkUserBytes + 1);
        if (taken == templates.size()) {
            judge.Note(Wrong::Range, NetworkMark, whose + " has no fingerprint");
            continue;
        }
        const NetworkTemplate& finger = templates[taken++];
        const auto slice = SliceOf(finger);
        if (finger.Number != HighFirst(record, 17) || finger.Premium != record[24] ||
            !std::equal(slice.begin(), slice.end(), record.begin() + SliceAt)) {
            judge.Note(Wrong::Range, NetworkMark, whose + " and fingerprint " + std::to_string(taken) + " differ");
        }
    }
    if (taken < templates.size()) {
        judge.Note(Wrong::Range, NetworkMark,
                   std::to_string(templates.size()) + " fingerprints for " + std::to_string(taken) + " users");
    }
}

} // namespace qvm
