#include "LockDoor.h"

#include <algorithm>
#include <optional>

namespace qvm {

namespace {

constexpr std::uint8_t CodeEvent = 1, KeyEvent = 2, OpenEvent = 3;

/// Two digits a byte, A for 0, E for none.
std::optional<std::array<std::uint8_t, 5>> Packed(std::string_view digits) {
    std::array<std::uint8_t, 5> code{};
    if (digits.empty() || digits.size() > 2 * code.size()) {
        return std::nullopt;
    }
    for (std::size_t at = 0; at < 2 * code.size(); ++at) {
        unsigned nibble = 0xE;
        if (at < digits.size()) {
            if (digits[at] < '0' || digits[at] > '9') {
                return std::nullopt;
            }
            nibble = digits[at] == '0' ? 0xA : static_cast<unsigned>(digits[at] - '0');
        }
        code[at / 2] = static_cast<std::uint8_t>(code[at / 2] | (at % 2 == 0 ? nibble << 4U : nibble));
    }
    return code;
}

void Note(VirtualLock& lock, const LockUser& user, const LockClock& now, std::uint8_t event) {
    HistoryLine line{now.Day, now.Month, now.Year, now.Hour, now.Minute};
    std::copy(user.Name.begin(), user.Name.end(), line.begin() + 5);
    line.back() = event;
    lock.History.insert(lock.History.begin(), line);
}

/// `fits`: whether it is this user who wants to come in.
template <typename Fits>
DoorTry Try(VirtualLock& lock, const LockClock& now, std::uint8_t event, const Fits& fits) {
    if (!lock.DataComplete) {
        return {.Answer = DoorAnswer::NotProgrammed};
    }
    DoorTry result;
    for (const LockUser& user : lock.Users) {
        if (!fits(user)) {
            continue;
        }
        const LockVerdict verdict = JudgeTimes(lock, user, now);
        if (verdict.Admits) {
            Note(lock, user, now, event);
            Note(lock, user, now, OpenEvent);
            return {.Answer = DoorAnswer::Opens, .Name = user.Name, .Times = verdict};
        }
        if (result.Answer == DoorAnswer::Unknown) {
            result = {.Answer = DoorAnswer::OutsideTimes, .Name = user.Name, .Times = verdict};
        }
    }
    return result;
}

} // namespace

DoorTry Door_Code(VirtualLock& lock, std::string_view digits, const LockClock& now) {
    const auto code = Packed(digits);
    return Try(lock, now, CodeEvent, [&](const LockUser& user) { return code && !user.Finger && user.Code == *code; });
}

DoorTry Door_Key(VirtualLock& lock, std::span<const std::uint8_t> id, const LockClock& now) {
    return Try(lock, now, KeyEvent, [&](const LockUser& user) {
        return user.HasId && !user.Finger && std::equal(id.begin(), id.end(), user.Id.begin(), user.Id.end());
    });
}

} // namespace qvm
