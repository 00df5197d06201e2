#include "SimLock.h"

#include "SimAnswers.h"
#include "SimFrame.h"
#include "SimLockData.h"

#include <algorithm>

namespace qvm {

namespace {

/// So many signs of life a program sends at most before it goes on without an answer.
constexpr int SignsOfLife = 10;

struct Turn {
    VirtualLock& Lock;
    LockSession& Session;
    std::span<const std::uint8_t> Frame;
    std::int64_t Now;
    Judge& Findings;

    std::uint8_t Code() const { return Frame[2]; }
    DeviceReply Plain() const { return {.Bytes = Acknowledge(Code(), Lock.Serial)}; }
    DeviceReply WithStatus(std::uint8_t status) const { return StatusReply(Code(), Lock.Serial, status); }
};

DeviceReply TakeLogin(Turn& turn) {
    LockSession& session = turn.Session;
    // A code change ends without a farewell.
    const bool rest = session.Last == Step::Login || session.Last == Step::CodeChange;
    if (session.Open && !session.Disturbed && !rest) {
        turn.Findings.Note(Wrong::Order, turn.Code(),
                           std::string{"login inside a session, behind "} + StepName(session.Last));
    }
    const std::uint8_t status = LoginStatus(turn.Lock.LoginStatus, turn.Lock.AdminCode, turn.Frame);
    const std::int64_t busyUntil = session.BusyUntil;
    session = LockSession{};
    session.BusyUntil = busyUntil;
    session.Open = status == StatusAccepted;
    session.RefusedLogin = session.Open ? 0 : status;
    return turn.WithStatus(status);
}

DeviceReply TakeClose(Turn& turn) {
    LockSession& session = turn.Session;
    if (session.Open && !MayCloseBehind(session.Last)) {
        turn.Findings.Note(Wrong::Unfinished, turn.Code(), std::string{"closed behind "} + StepName(session.Last));
    }
    DeviceReply reply = turn.Plain();
    reply.Closed = session.Open;
    turn.Lock.Sessions += session.Open ? 1 : 0;
    session.Open = false;
    return reply;
}

DeviceReply TakeErase(Turn& turn) {
    constexpr std::uint32_t answersAtOnce = 0x2000000;
    VirtualLock& lock = turn.Lock;
    lock.EraseOption = turn.Frame[14];
    lock.Users.clear();
    if (turn.Frame[14] == 1) {
        lock.Fingers.clear();
    }
    ++lock.Erases;
    lock.DataComplete = false;
    turn.Session.AliveWhileBusy = 0;
    const std::uint32_t serial = SerialNumber(lock.Serial);
    if (!ErasesInBackground(serial) || serial == answersAtOnce) {
        return turn.Plain();
    }
    turn.Session.BusyUntil = turn.Now + lock.EraseBusyMs;
    return lock.EchoErase ? turn.Plain() : DeviceReply{};
}

DeviceReply TakeHistory(Turn& turn, bool first) {
    LockSession& session = turn.Session;
    if (first) {
        session.HistoryAt = 0;
    } else if (session.HistoryEnded) {
        turn.Findings.Note(Wrong::Order, turn.Code(), "the next record behind the end of the history");
    }
    DeviceReply reply{.Bytes = Acknowledge(turn.Code(), turn.Lock.Serial, 35)};
    session.HistoryEnded = session.HistoryAt >= turn.Lock.History.size();
    if (session.HistoryEnded) {
        reply.Bytes[35] = 0xFF;
        return reply;
    }
    const HistoryLine& line = turn.Lock.History[session.HistoryAt++];
    session.HistoryEnded = line.back() == 0xFF;
    std::copy(line.begin(), line.end(), reply.Bytes.begin() + 14);
    return reply;
}

DeviceReply TakeCodeChange(Turn& turn) {
    const LockSession& session = turn.Session;
    VirtualLock& lock = turn.Lock;
    return turn.WithStatus(
        ChangeCode(session.RefusedLogin != 0 ? session.RefusedLogin : lock.CodeStatus, lock.AdminCode, turn.Frame));
}

DeviceReply TakeChannel(Turn& turn, Step step) {
    LockSession& session = turn.Session;
    if (step == Step::ChannelRead) {
        session.ChannelAsked = turn.Frame[14];
        return turn.Plain();
    }
    return ChannelReply(step, turn.Frame, turn.Lock.Serial, session.ChannelAsked, turn.Lock.Channel, turn.Findings);
}

DeviceReply TakeUserBegin(Turn& turn) {
    LockUser& user = turn.Session.Pending = LockUser{};
    user.Slot = turn.Lock.ForcedSlot.value_or(FreeSlot(turn.Lock));
    DeviceReply reply{.Bytes = Acknowledge(turn.Code(), turn.Lock.Serial, 15)};
    reply.Bytes[14] = static_cast<std::uint8_t>(user.Slot >> 8);
    reply.Bytes[15] = static_cast<std::uint8_t>(user.Slot & 0xFF);
    return reply;
}

DeviceReply Act(Turn& turn, Step step) {
    switch (step) {
    case Step::Login:
        return TakeLogin(turn);
    case Step::Close:
        return TakeClose(turn);
    case Step::Erase:
        return TakeErase(turn);
    case Step::HistoryFirst:
    case Step::HistoryNext:
        return TakeHistory(turn, step == Step::HistoryFirst);
    case Step::CodeChange:
        return TakeCodeChange(turn);
    case Step::ChannelRead:
    case Step::ChannelAct:
    case Step::ChannelSet:
        return TakeChannel(turn, step);
    case Step::UserBegin:
        return TakeUserBegin(turn);
    case Step::Alive:
        return {.Bytes = Acknowledge(turn.Lock.AliveReply, turn.Lock.Serial)};
    default:
        StoreLockData(turn.Lock, turn.Session.Pending, step, turn.Frame, turn.Findings);
        return turn.Plain();
    }
}

/// True when the lock is erasing and hears nothing.
bool Deaf(Turn& turn, Step step) {
    LockSession& session = turn.Session;
    if (turn.Now >= session.BusyUntil) {
        return false;
    }
    if (step == Step::Alive) {
        ++session.AliveWhileBusy;
    } else if (step != Step::Close && step != Step::Login && session.AliveWhileBusy < SignsOfLife) {
        turn.Findings.Note(Wrong::Order, turn.Code(), std::string{StepName(step)} + " while the lock erases");
    }
    return true;
}

} // namespace

std::vector<std::uint8_t> RefusalReply(std::uint8_t reason) {
    std::vector<std::uint8_t> reply = NewReply(0x69, 13);
    reply[3] = reason;
    return reply;
}

std::vector<std::uint8_t> Acknowledge(std::uint8_t code, const DeviceAddress& device, std::uint8_t length) {
    std::vector<std::uint8_t> reply = NewReply(code, length);
    std::copy(device.begin(), device.end(), reply.begin() + 3);
    std::copy(device.begin(), device.end(), reply.begin() + 7);
    return reply;
}

DeviceReply LockAnswers(VirtualLock& lock, LockSession& session, std::span<const std::uint8_t> frame, std::int64_t now,
                        Judge& judge) {
    Turn turn{.Lock = lock, .Session = session, .Frame = frame, .Now = now, .Findings = judge};
    const Step step = StepOf(frame);
    if (Deaf(turn, step)) {
        return {};
    }
    const bool refusedChange = step == Step::CodeChange && session.RefusedLogin != 0 && session.Last == Step::Login;
    if (!session.Open && step != Step::Login && step != Step::Close && !refusedChange) {
        judge.Note(Wrong::Order, frame[2], std::string{StepName(step)} + " without a session");
        return {.Bytes = RefusalReply(Refusal::NotAccepted)};
    }
    if (const std::string fault = LockOrderFault(session, step, SerialNumber(lock.Serial)); !fault.empty()) {
        judge.Note(Wrong::Order, frame[2], fault);
    }
    DeviceReply reply = Act(turn, step);
    session.Last = step;
    if (step == Step::A0 || step == Step::AShort) {
        session.Tables = step == Step::A0 ? TimerTables::Parts : TimerTables::Short;
    }
    return reply;
}

} // namespace qvm
