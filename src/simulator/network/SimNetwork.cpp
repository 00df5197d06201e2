#include "SimNetwork.h"

#include "SimFrame.h"
#include "SimRanges.h"

#include <algorithm>

namespace qvm {

namespace {

constexpr std::size_t ClockBytes = 6;

std::string BlockText(int number) {
    return "block " + std::to_string(number);
}

} // namespace

void NetworkAdapter::Forget() {
    phase_ = Phase::Idle;
    answered_.clear();
    result_ = 0;
    ++work_;
}

NetworkTurn NetworkAdapter::Answer(const NetworkPlace& place, std::uint8_t code) {
    answered_ = telegram_.Frame;
    lastCode_ = code;
    return {.Answer = NetworkAnswer(telegram_, telegram_.Number(), code), .AfterMs = place.Adapter.Waits.AnswerMs};
}

void NetworkAdapter::OutOfOrder(const NetworkPlace& place, const std::string& text) {
    if (!disturbed_) {
        place.Findings.Note(Wrong::Order, NetworkMark, text);
    }
}

VirtualLock* NetworkAdapter::Reached(const NetworkPlace& place, const DeviceAddress& serial,
                                     std::span<const std::uint8_t> adminCode) const {
    const auto lock = std::find_if(place.Locks.begin(), place.Locks.end(),
                                   [&serial](const VirtualLock& l) { return l.Serial == serial; });
    const bool reached = !lost_ && lock != place.Locks.end() && !lock->Air.Away && NetworkReaches(*lock, adminCode);
    return reached ? &*lock : nullptr;
}

/// The run before is over. One that is in its middle then was cut short, unless its first telegram is said again.
void NetworkAdapter::BeginRun(const NetworkPlace& place) {
    const bool middle = phase_ == Phase::Data || phase_ == Phase::Fingers || phase_ == Phase::Clock;
    const bool again = answered_ == telegram_.Frame;
    if (middle && !disturbed_ && !again) {
        place.Findings.Note(Wrong::Unfinished, NetworkMark, "a new run behind " + BlockText(nextBlock_ - 1));
    }
    disturbed_ = disturbing_ || (again && disturbed_);
    Forget();
}

/// All telegrams of a run name the same lock, and the blocks the same count and units.
void NetworkAdapter::JudgeSame(const NetworkPlace& place) {
    const bool blocks = phase_ == Phase::Data || phase_ == Phase::Fingers;
    if (telegram_.Serial() != data_.Serial) {
        place.Findings.Note(Wrong::Header, NetworkMark, "another lock than in block 1");
    }
    if (blocks && telegram_.Count() != blocks_) {
        place.Findings.Note(Wrong::Header, NetworkMark, "the count of blocks has changed");
    }
    if (blocks && telegram_.Units() != data_.Units) {
        place.Findings.Note(Wrong::Header, NetworkMark, "the units have changed");
    }
}

bool NetworkAdapter::IsNextBlock(Phase phase, const NetworkPlace& place) {
    if (phase_ == phase && telegram_.Number() == nextBlock_) {
        return true;
    }
    OutOfOrder(place, BlockText(telegram_.Number()) + " is not due");
    return false;
}

NetworkTurn NetworkAdapter::Take(std::span<const std::uint8_t> frame, const NetworkPlace& place, bool lost) {
    telegram_ = PlainNetwork(frame, place.Decipher, place.Adapter.Key);
    JudgeNetworkHeader(telegram_, place.Findings);
    const std::uint8_t code = telegram_.Code();
    const bool later = code == Net::Clock || code == Net::HistoryStart;
    if (lost && !later) {
        Forget();
        disturbing_ = false;
        NetworkTurn turn = Answer(place, Net::NotReached);
        turn.Closed = true;
        return turn;
    }
    lost_ = lost;
    NetworkTurn turn = Dispatch(place);
    disturbing_ = false;
    return turn;
}

NetworkTurn NetworkAdapter::Dispatch(const NetworkPlace& place) {
    switch (telegram_.Code()) {
    case Net::Data:
        return TakeData(place);
    case Net::Fingers:
        return TakeFingers(place);
    case Net::Clock:
        return TakeClock(place);
    case Net::HistoryStart:
        return TakeHistoryStart(place);
    case Net::HistoryMore:
        return TakeHistoryNext(place);
    default:
        place.Findings.Note(Wrong::Code, NetworkMark, "no network telegram has the code " + Hex(telegram_.Code()));
        return {};
    }
}

bool NetworkAdapter::BeginDataset(std::span<const std::uint8_t> data, const NetworkPlace& place) {
    const int users = data.size() < NetworkFixedBytes ? -1 : data[0] * 256 + data[1];
    if (users < 0 || users > NetworkMostUsers) {
        place.Findings.Note(Wrong::Range, NetworkMark, "a first block for " + std::to_string(users) + " users");
        return false;
    }
    BeginRun(place);
    data_ = NetworkDataset{};
    data_.Serial = telegram_.Serial();
    data_.Units = telegram_.Units();
    users_ = users;
    dataBlocks_ = NetworkDataBlocks(users);
    blocks_ = telegram_.Count();
    phase_ = Phase::Data;
    nextBlock_ = 1;
    if (blocks_ < dataBlocks_) {
        place.Findings.Note(Wrong::Header, NetworkMark,
                            std::to_string(blocks_) + " blocks for " + std::to_string(users) + " users");
    }
    data_.Fixed.assign(data.begin(), data.begin() + NetworkFixedBytes);
    JudgeNetworkFixed(data_.Fixed, data_.Serial, place.Findings);
    return true;
}

void NetworkAdapter::AddUsers(std::span<const std::uint8_t> records, const NetworkPlace& place) {
    const auto count = static_cast<std::size_t>(NetworkUsersOf(nextBlock_, users_));
    for (std::size_t at = 0; at + NetworkUserBytes <= records.size(); at += NetworkUserBytes) {
        const auto record = records.subspan(at, NetworkUserBytes);
        data_.Users.insert(data_.Users.end(), record.begin(), record.end());
        JudgeNetworkUser(record, static_cast<int>(data_.Users.size() / NetworkUserBytes), place.Findings);
    }
    if (records.size() != count * NetworkUserBytes) {
        place.Findings.Note(Wrong::Length, NetworkMark,
                            std::to_string(records.size()) + " bytes for " + std::to_string(count) + " users in " +
                                BlockText(nextBlock_));
    }
}

/// A first block that others follow is filled up with zeros, which are no groups.
std::size_t NetworkAdapter::UsedBytes() const {
    const auto body = telegram_.Body();
    return telegram_.Number() == 1 ? NetworkDataLength(1, 1, body[0] * 256 + body[1]) - Net::Payload : body.size();
}

NetworkTurn NetworkAdapter::TakeData(const NetworkPlace& place) {
    const auto data = OpenNetworkBlock(telegram_, UsedBytes(), place.Findings);
    if (!data) {
        return {};
    }
    std::span<const std::uint8_t> records = *data;
    if (telegram_.Number() == 1) {
        if (!BeginDataset(records, place)) {
            return {};
        }
        records = records.subspan(NetworkFixedBytes);
    } else if (telegram_.Frame == answered_) {
        return Answer(place, lastCode_);
    } else if (!IsNextBlock(Phase::Data, place)) {
        return {};
    }
    JudgeSame(place);
    if (const std::size_t due = NetworkDataLength(nextBlock_, blocks_, users_); telegram_.Length() != due) {
        place.Findings.Note(Wrong::Length, NetworkMark,
                            BlockText(nextBlock_) + " has the length word " + std::to_string(telegram_.Length()) +
                                ", not " + std::to_string(due));
    }
    AddUsers(records, place);
    if (nextBlock_++ < dataBlocks_) {
        return Answer(place, Net::Data);
    }
    phase_ = blocks_ > dataBlocks_ ? Phase::Fingers : Phase::Clock;
    if (phase_ == Phase::Clock) {
        JudgeNetworkTemplates({}, data_.Users, place.Findings);
    }
    return Answer(place, Net::DataDone);
}

NetworkTurn NetworkAdapter::TakeFingers(const NetworkPlace& place) {
    const auto data = OpenNetworkBlock(telegram_, telegram_.Body().size(), place.Findings);
    if (!data) {
        return {};
    }
    if (telegram_.Frame == answered_) {
        return Answer(place, lastCode_);
    }
    if (!IsNextBlock(Phase::Fingers, place)) {
        return {};
    }
    JudgeSame(place);
    const bool last = nextBlock_ == blocks_;
    if (!last && telegram_.Length() != LongestNetworkLength) {
        place.Findings.Note(Wrong::Length, NetworkMark,
                            BlockText(nextBlock_) +
                                " of the fingerprints is not full: " + std::to_string(telegram_.Length()));
    }
    data_.FingerBytes.insert(data_.FingerBytes.end(), data->begin(), data->end());
    ++nextBlock_;
    if (!last) {
        return Answer(place, Net::Fingers);
    }
    data_.Fingers = NetworkTemplates(data_.FingerBytes, place.Findings);
    JudgeNetworkTemplates(data_.Fingers, data_.Users, place.Findings);
    phase_ = Phase::Clock;
    return Answer(place, Net::FingersDone);
}

NetworkTurn NetworkAdapter::TakeClock(const NetworkPlace& place) {
    if (!ShortNetworkSumFits(telegram_, ClockBytes, place.Findings)) {
        return {};
    }
    if (telegram_.Frame == answered_) {
        NetworkTurn again = Answer(place, Net::Programming);
        again.WorkMs = phase_ == Phase::Idle ? place.Adapter.Waits.ProgramMs : -1; // the result may have been lost, too
        return again;
    }
    if (phase_ != Phase::Clock) {
        OutOfOrder(place, "the clock is not due");
        return {};
    }
    JudgeSame(place);
    if (telegram_.Length() != ShortestNetworkLength) {
        place.Findings.Note(Wrong::Length, NetworkMark,
                            "the clock's length word is " + std::to_string(telegram_.Length()) + ", not 37");
    }
    const auto clock = std::span<const std::uint8_t>{telegram_.Frame}.subspan(Net::Payload, ClockBytes);
    const auto range = [&](const char* name, Check how, std::size_t at) {
        const FormPart part{.Name = name, .First = 0, .Last = 2, .How = how};
        if (const std::string fault = RangeFault(part, clock.subspan(at, 3)); !fault.empty()) {
            place.Findings.Note(Wrong::Range, NetworkMark, std::string{name} + ": " + fault);
        }
    };
    range("date", Check::Date, 0);
    range("time", Check::Time, 3);
    data_.Clock = LockClock{clock[0], clock[1], clock[2], clock[3], clock[4], clock[5]};
    phase_ = Phase::Programming;
    ++work_;
    NetworkTurn turn = Answer(place, Net::Programming);
    turn.WorkMs = place.Adapter.Waits.ProgramMs;
    return turn;
}

NetworkTurn NetworkAdapter::FinishProgramming(const NetworkPlace& place) {
    if (result_ == 0) {
        VirtualLock* lock = Reached(place, data_.Serial, std::span{data_.Fixed}.subspan(NetValue::AdminCode, 3));
        result_ = lock != nullptr ? Net::Programmed : Net::NotReached;
        if (lock != nullptr) {
            StoreNetworkDataset(data_, *lock, place.Units, place.Findings);
        }
    }
    phase_ = Phase::Idle;
    return {.Answer = NetworkAnswer(telegram_, 1, result_), .Closed = true};
}

NetworkTurn NetworkAdapter::Work(unsigned work, const NetworkPlace& place) {
    if (work != work_) {
        return {};
    }
    if (phase_ == Phase::Fetching) {
        return SendHistory(1, place);
    }
    return phase_ == Phase::Programming || result_ != 0 ? FinishProgramming(place) : NetworkTurn{};
}

} // namespace qvm
