#include "SimLockData.h"

#include <algorithm>
#include <vector>

namespace qvm {

namespace {

using Frame = std::span<const std::uint8_t>;

/// Copies as many bytes as `target` holds, from frame index `from` on, and no more than the frame has.
template <std::size_t N>
void Take(Frame frame, std::size_t from, std::array<std::uint8_t, N>& target) {
    for (std::size_t n = 0; n < N; ++n) {
        target[n] = from + n < frame.size() ? frame[from + n] : std::uint8_t{0};
    }
}

/// Rows of W bytes from frame index `from` up to the length's index, to `table` from row `first` on. A last row that
/// the frame cuts short is filled with 0.
template <std::size_t W, std::size_t N>
void TakeRows(Frame frame, std::size_t from, std::size_t count, std::array<std::array<std::uint8_t, W>, N>& table,
              std::size_t first) {
    const Frame payload = frame.first(std::size_t{frame[1]} + 1);
    for (std::size_t row = 0; row < count && first + row < N; ++row) {
        Take(payload, from + W * row, table[first + row]);
    }
}

std::uint16_t WordAt(Frame frame, std::size_t index) {
    return static_cast<std::uint16_t>((frame[index] << 8) | frame[index + 1]);
}

void StoreTables(VirtualLock& lock, Step step, Frame frame) {
    const auto part = [step](Step first) { return static_cast<std::size_t>(step) - static_cast<std::size_t>(first); };
    switch (step) {
    case Step::A0:
    case Step::A1:
    case Step::A2:
        lock.FormA = TableForm::Parts;
        return TakeRows(frame, 14, 8, lock.TableA, 8 * part(Step::A0));
    case Step::B0:
    case Step::B1:
        lock.FormB = TableForm::Parts;
        return TakeRows(frame, 14, 8, lock.TableB, 8 * part(Step::B0));
    case Step::AShort:
        lock.FormA = TableForm::Short;
        lock.TableA = {};
        return TakeRows(frame, 14, 8, lock.TableA, 0);
    case Step::BShort:
        lock.FormB = TableForm::Short;
        lock.TableB = {};
        return TakeRows(frame, 14, 8, lock.TableB, 0);
    case Step::Single0:
    case Step::Single1:
    case Step::Single2:
        return TakeRows(frame, 15, 7, lock.SingleDays, 7 * part(Step::Single0));
    case Step::Perm0:
    case Step::Perm1:
    case Step::Perm2:
        return TakeRows(frame, 15, 7, lock.PermanentDays, 7 * part(Step::Perm0));
    default:
        return;
    }
}

/// Rows of single holidays must not have gaps across the parts either.
void JudgeGap(const VirtualLock& lock, Step step, std::uint8_t code, Judge& judge) {
    const std::size_t first = step == Step::Single1 ? 7 : step == Step::Single2 ? 14 : 0;
    if (first != 0 && lock.SingleDays[first] != DateLine{} && lock.SingleDays[first - 1] == DateLine{}) {
        judge.Note(Wrong::Range, code, "the part before ended with an empty row, this one goes on");
    }
}

void JudgeSlot(const LockUser& pending, Frame frame, std::size_t index, Judge& judge) {
    if (const std::uint16_t slot = WordAt(frame, index); slot != pending.Slot) {
        judge.Note(Wrong::Range, frame[2],
                   "slot " + std::to_string(slot) + ", but " + std::to_string(pending.Slot) + " was given out");
    }
}

/// The user that the later telegrams of this slot belong to.
LockUser* Stored(VirtualLock& lock, const LockUser& pending) {
    return lock.Users.empty() || lock.Users.back().Slot != pending.Slot ? nullptr : &lock.Users.back();
}

void StoreCodeUser(VirtualLock& lock, LockUser& pending, Frame frame) {
    Take(frame, 16, pending.Code);
    pending.TimerSelector = frame[21];
    pending.Weighting = frame[22];
    pending.HasId = frame[1] == 0x2B;
    if (pending.HasId) {
        Take(frame, 24, pending.Id);
        Take(frame, 28, pending.IdData);
    }
    lock.Users.push_back(pending);
}

void StoreFingerUser(VirtualLock& lock, LockUser& pending, Frame frame) {
    pending.Finger = true;
    pending.FingerNumber = WordAt(frame, 14);
    Take(frame, 16, pending.Name);
    Take(frame, 32, pending.Slice);
    pending.Weighting = frame[60];
    lock.Users.push_back(pending);
    lock.Fingers[pending.FingerNumber] = pending.Slice;
}

void StoreName2(LockUser& pending, Frame frame, Judge& judge) {
    JudgeSlot(pending, frame, 14, judge);
    if (!std::equal(pending.Name.begin(), pending.Name.end(), frame.begin() + 16)) {
        judge.Note(Wrong::Range, frame[2], "another name than in the first name telegram");
    }
    Take(frame, 16, pending.Name);
}

/// The timer selector is 0, 1 or 2 with short tables, a mask with tables in parts, and 0 without tables.
void JudgeSelector(const VirtualLock& lock, Frame frame, Judge& judge) {
    if (lock.FormA == TableForm::Short && frame[21] > 2) {
        judge.Note(Wrong::Range, frame[2], "timer selector " + Hex(frame[21]) + " with short timer tables");
    } else if (lock.FormA == TableForm::None && frame[21] != 0) {
        judge.Note(Wrong::Range, frame[2], "timer selector " + Hex(frame[21]) + " without timer tables");
    }
}

void StoreUser(VirtualLock& lock, LockUser& pending, Step step, Frame frame, Judge& judge) {
    LockUser* stored = Stored(lock, pending);
    switch (step) {
    case Step::Name1:
        return Take(frame, 14, pending.Name);
    case Step::Name2:
        return StoreName2(pending, frame, judge);
    case Step::UserData:
        JudgeSlot(pending, frame, 14, judge);
        JudgeSelector(lock, frame, judge);
        return StoreCodeUser(lock, pending, frame);
    case Step::Finger:
        return StoreFingerUser(lock, pending, frame);
    case Step::Id1:
        if (stored != nullptr) {
            stored->HasLongId = true;
            stored->GroupDigit = frame[16];
            Take(frame, 17, stored->LongIdData);
        }
        return;
    case Step::Id2:
        JudgeSlot(pending, frame, 17, judge);
        if (stored != nullptr) {
            if (stored->GroupDigit != frame[16]) {
                judge.Note(Wrong::Range, frame[2], "another group digit than in the first part");
            }
            Take(frame, 19, stored->LongId);
        }
        return;
    case Step::Groups:
        JudgeSlot(pending, frame, 14, judge);
        if (stored != nullptr) {
            stored->HasGroups = true;
            stored->Groups = {frame[18], frame[17], frame[16]};
            if (!stored->Finger && stored->TimerSelector != stored->Groups[0]) {
                judge.Note(Wrong::Range, frame[2], "the first mask is not the timer selector of the user's data");
            }
        }
        return;
    default:
        return;
    }
}

} // namespace

std::uint16_t FreeSlot(const VirtualLock& lock) {
    if (lock.Users.size() >= LastSlot) {
        return 0;
    }
    std::vector<bool> taken(lock.Users.size() + 2, false);
    for (const LockUser& user : lock.Users) {
        if (user.Slot < taken.size()) {
            taken[user.Slot] = true;
        }
    }
    const auto free = std::find(taken.begin() + 1, taken.end(), false);
    return static_cast<std::uint16_t>(free - taken.begin());
}

void StoreLockData(VirtualLock& lock, LockUser& pending, Step step, std::span<const std::uint8_t> frame, Judge& judge) {
    switch (step) {
    case Step::Date: {
        const LockClock old = lock.Clock.value_or(LockClock{});
        lock.Clock = LockClock{frame[14], frame[15], frame[16], old.Hour, old.Minute, old.Second};
        return;
    }
    case Step::Time: {
        const LockClock old = lock.Clock.value_or(LockClock{});
        lock.Clock = LockClock{old.Day, old.Month, old.Year, frame[14], frame[15], frame[16]};
        return;
    }
    case Step::Priority:
        lock.Priority = frame[14];
        return;
    case Step::Calendar:
        lock.CalendarFlag = frame[14];
        return;
    case Step::LockTimer:
        lock.LockTimerFlag = frame[14];
        return;
    case Step::LockMode:
        lock.LockMode = frame[14];
        return;
    case Step::Listen:
        lock.Listen = ListenTime{frame[14], frame[15], frame[16], frame[17]};
        return;
    case Step::Reader:
        lock.Reader = ReaderSetting{frame[15], frame[16], frame[17]};
        return;
    case Step::DataEnd:
        lock.DataComplete = true;
        return;
    default:
        break;
    }
    StoreTables(lock, step, frame);
    JudgeGap(lock, step, frame[2], judge);
    StoreUser(lock, pending, step, frame, judge);
}

} // namespace qvm
