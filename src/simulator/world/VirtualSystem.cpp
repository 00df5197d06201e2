#include "VirtualSystem.h"

#include "SimAdapter.h"
#include "SimAnswers.h"

#include <algorithm>

namespace qvm {

namespace {

constexpr std::uint8_t LoginCode = 0x04, TuneCode = 0x6B;

template <typename Devices>
auto Find(Devices& devices, const DeviceAddress& serial) {
    return std::find_if(devices.begin(), devices.end(), [&serial](const auto& d) { return d.Serial == serial; });
}

DeviceAddress AddressAt(std::span<const std::uint8_t> frame, std::size_t index) {
    DeviceAddress address{};
    std::copy_n(frame.begin() + static_cast<std::ptrdiff_t>(index), address.size(), address.begin());
    return address;
}

/// A reply that belongs to no telegram: long enough for every field that a reply can have, and with a status, a slot
/// and an event that all mean that the telegram was taken.
std::vector<std::uint8_t> WrongReply(std::uint8_t code, const DeviceAddress& device) {
    constexpr std::uint8_t longestReply = 35;
    std::vector<std::uint8_t> reply = Acknowledge(code, device, longestReply);
    reply[14] = StatusAccepted;
    return reply;
}

} // namespace

VirtualSystem::VirtualSystem(VirtualWorld world, SimSurroundings surroundings)
    : world_(std::move(world)), surroundings_(std::move(surroundings)) {}

VirtualLock* VirtualSystem::FindLock(const DeviceAddress& serial) {
    const auto found = Find(world_.Locks, serial);
    return found == world_.Locks.end() ? nullptr : &*found;
}

VirtualUnit* VirtualSystem::FindUnit(const DeviceAddress& serial) {
    const auto found = Find(world_.Units, serial);
    return found == world_.Units.end() ? nullptr : &*found;
}

std::string VirtualSystem::JudgementLines() const {
    std::string lines;
    for (const Judgement& judgement : judge_.List()) {
        lines += JudgementText(judgement) + "\n";
    }
    if (judge_.Beyond() > 0) {
        lines += "and " + std::to_string(judge_.Beyond()) + " more\n";
    }
    return lines;
}

std::vector<std::uint8_t> VirtualSystem::Codes() const {
    std::vector<std::uint8_t> codes;
    for (const auto& frame : telegrams_) {
        codes.push_back(frame[2]);
    }
    return codes;
}

void VirtualSystem::RestartFaultCount() {
    faultBaseAll_ = counters_.Telegrams;
    faultBaseDevice_ = counters_.DeviceTelegrams;
}

void VirtualSystem::Plug() {
    unplugged_ = false;
    reader_.Reset();
    tunedChannel_ = 0;
    network_.Forget();
    deskWait_.reset();
    ++deskRequest_;
    cards_.Forget();
    world_.Adapter.Probe = {};
}

void VirtualSystem::Receive(std::span<const std::uint8_t> bytes) {
    reader_.HearNetwork(world_.Adapter.Network());
    for (const std::uint8_t byte : bytes) {
        if (unplugged_) {
            return;
        }
        switch (reader_.Take(byte)) {
        case FrameReader::Event::Frame: {
            const auto frame = reader_.Bytes();
            TakeFrame({frame.begin(), frame.end()});
            break;
        }
        case FrameReader::Event::Network:
            TakeNetwork(reader_.Bytes());
            break;
        case FrameReader::Event::BadLength:
            judge_.NextTelegram();
            judge_.Note(Wrong::Length, NetworkMark, "no network telegram is as long as the length word tells");
            break;
        case FrameReader::Event::BadSum:
            ++counters_.BadSums;
            judge_.NextTelegram();
            judge_.Note(Wrong::Checksum, reader_.Bytes()[2], "wrong checksum: " + HexBytes(reader_.Bytes()));
            break;
        case FrameReader::Event::BadStuffing:
            ++counters_.BadStuffings;
            judge_.Note(Wrong::Line, 0, "0x02 inside a frame without its 0x00");
            break;
        case FrameReader::Event::Garbage:
            ++counters_.Garbage;
            judge_.Note(Wrong::Line, 0, "byte " + Hex(byte) + " outside a frame");
            break;
        case FrameReader::Event::None:
            break;
        }
    }
}

void VirtualSystem::TakeFrame(std::vector<std::uint8_t> frame) {
    judge_.NextTelegram();
    if (surroundings_.Trace) {
        surroundings_.Trace(true, frame);
    }
    const Form* form = JudgeForm(frame, judge_);
    const bool raw = form != nullptr && form->Raw;
    const int all = counters_.Telegrams++ - faultBaseAll_;
    const int device = raw ? -1 : counters_.DeviceTelegrams++ - faultBaseDevice_;
    if (keepTelegrams_) {
        telegrams_.push_back(frame);
    }
    if (form == nullptr) {
        return;
    }
    FitSessions();
    const SimFault* fault = FaultAt(world_.Faults, all, device);
    if (fault != nullptr) {
        Disturb();
    }
    if (PulledOut(fault)) {
        return;
    }
    if (fault != nullptr && fault->What == SimFault::Kind::Silent) {
        return;
    }
    DeviceReply reply = Answers(frame, raw, fault);
    if (fault != nullptr && fault->WrongReply()) {
        reply.Bytes = WrongReply(static_cast<std::uint8_t>(fault->Value), AddressAt(frame, 3));
    }
    Reply(reply.Bytes, fault, reply.Garbled);
    if (reply.Closed && surroundings_.SessionClosed) {
        surroundings_.SessionClosed();
    }
}

/// What the adapter, its desk or the devices behind it have to say.
DeviceReply VirtualSystem::Answers(std::span<const std::uint8_t> frame, bool raw, const SimFault* fault) {
    DeviceReply reply;
    if (fault != nullptr && fault->What == SimFault::Kind::Refuse) {
        reply.Bytes = RefusalReply(static_cast<std::uint8_t>(fault->Value));
    } else if (fault != nullptr && fault->What == SimFault::Kind::Instead) {
        // Only the frame below comes.
    } else if (raw) {
        reply.Bytes = AdapterAnswers(frame);
    } else if (AskedCredential(frame[2]) || frame[2] == FreeSlotCode) {
        if (fault == nullptr || !fault->WrongReply()) {
            DeskTurn(frame, fault);
        }
    } else if (IsCard(frame[2])) {
        if (fault == nullptr || !fault->WrongReply()) {
            reply.Bytes = CardTurn(frame);
        }
    } else if (!world_.Adapter.Enrolment()) {
        reply = DeviceAnswers(frame);
    }
    return reply;
}

bool VirtualSystem::PulledOut(const SimFault* fault) {
    if (fault == nullptr || fault->What != SimFault::Kind::Unplug) {
        return false;
    }
    Unplug();
    return true;
}

void VirtualSystem::Unplug() {
    unplugged_ = true;
    if (surroundings_.Unplug) {
        surroundings_.Unplug();
    }
}

/// Tests and world files add devices at any time.
void VirtualSystem::FitSessions() {
    lockSessions_.resize(world_.Locks.size());
    unitSessions_.resize(world_.Units.size());
}

/// What comes out of order after a fault is the fault's doing.
void VirtualSystem::Disturb() {
    for (LockSession& session : lockSessions_) {
        session.Disturbed = true;
    }
    network_.Disturb();
}

std::vector<std::uint8_t> VirtualSystem::AdapterAnswers(std::span<const std::uint8_t> frame) {
    AdapterReply answer = TakeAdapterTelegram(world_.Adapter, frame);
    if (answer.Channel != 0) {
        tunedChannel_ = answer.Channel;
        searchTuned_ = frame[2] == TuneCode && AddressAt(frame, 4) == DeviceAddress{};
    }
    return std::move(answer.Bytes);
}

DeviceReply VirtualSystem::DeviceAnswers(std::span<const std::uint8_t> frame) {
    if (frame[2] == LoginCode && frame[18] >= 1 && frame[18] <= 12) {
        tunedChannel_ = frame[18];
    }
    const DeviceAddress address = AddressAt(frame, 3);
    const bool login = frame[2] == LoginCode;
    if (frame[2] == SearchCode || (login && address == DeviceAddress{})) {
        return SearchTurn(frame);
    }
    searchTuned_ = false;
    DeviceReply reply{.Bytes = RefusalReply(Refusal::NoContact)};
    const auto lock = Find(world_.Locks, address);
    const auto unit = Find(world_.Units, address);
    if (lock != world_.Locks.end() && lock->Channel == tunedChannel_ && !lock->Air.Away) {
        const auto index = static_cast<std::size_t>(lock - world_.Locks.begin());
        reply = InManner(login ? lock->Air.Answers : Answering::Well, [&] { return LockTurn(index, frame); });
    } else if (unit != world_.Units.end() && unit->Channel == tunedChannel_ && !unit->Air.Away) {
        const auto index = static_cast<std::size_t>(unit - world_.Units.begin());
        reply = InManner(login ? unit->Air.Answers : Answering::Well, [&] { return UnitTurn(index, frame); });
    }
    if (reply.NewChannel != 0) {
        tunedChannel_ = reply.NewChannel; // the adapter follows its session
    }
    return reply;
}

void VirtualSystem::JudgeMode(std::span<const std::uint8_t> frame, std::uint8_t want) {
    if (frame[8] != want && frame[8] <= 2) {
        judge_.Note(Wrong::Header, frame[2],
                    "address mode " + std::to_string(frame[8]) + ", this device wants " + std::to_string(want));
    }
}

DeviceReply VirtualSystem::LockTurn(std::size_t index, std::span<const std::uint8_t> frame) {
    VirtualLock& lock = world_.Locks[index];
    JudgeMode(frame, 0);
    if (frame[2] == LoginCode) {
        if (frame[1] != 0x14) {
            judge_.Note(Wrong::Length, frame[2], "a lock is logged into with the long telegram");
        }
        lastLock_ = lock.Serial;
    }
    return LockAnswers(lock, lockSessions_[index], frame, surroundings_.Now(), judge_);
}

DeviceReply VirtualSystem::UnitTurn(std::size_t index, std::span<const std::uint8_t> frame) {
    VirtualUnit& unit = world_.Units[index];
    const bool service = frame[2] == LoginCode ? ServiceLogin(frame) : unitSessions_[index].Service;
    JudgeMode(frame, unit.Type == 2 || service ? 1 : 0);
    const Step step = StepOf(frame);
    if ((step == Step::UnitSetting || step == Step::UnitOpen) && AddressAt(frame, 14) != lastLock_) {
        judge_.Note(Wrong::Range, frame[2],
                    "not the serial of the lock programmed before: " + HexBytes(frame.subspan(14, 4)));
    }
    return UnitAnswers(unit, unitSessions_[index], frame, surroundings_.Decipher, judge_);
}

void VirtualSystem::Reply(const std::vector<std::uint8_t>& reply, const SimFault* fault, bool garbled) {
    if (!reply.empty()) {
        SendFaulty(garbled ? BrokenReply(reply) : ReplyOnWire(reply), BrokenReply(reply), world_.ReplyMs, fault);
    }
}

void VirtualSystem::SendFaulty(std::vector<std::uint8_t> wire, std::vector<std::uint8_t> spoilt, int delay,
                               const SimFault* fault) {
    if (fault != nullptr) {
        switch (fault->What) {
        case SimFault::Kind::BadSum:
            wire = std::move(spoilt);
            break;
        case SimFault::Kind::Half:
            wire.resize(wire.size() / 2);
            break;
        case SimFault::Kind::Garbage:
            wire.insert(wire.begin(), fault->Bytes.begin(), fault->Bytes.end());
            break;
        case SimFault::Kind::Late:
            delay += fault->Value;
            break;
        case SimFault::Kind::Doubled:
            SendIn(delay, wire);
            break;
        default:
            break;
        }
    }
    SendIn(delay, std::move(wire));
}

void VirtualSystem::SendIn(int ms, std::vector<std::uint8_t> wire) {
    if (ms > 0) {
        surroundings_.After(ms, [this, alive = std::weak_ptr<int>{alive_}, wire = std::move(wire)]() mutable {
            if (!alive.expired() && !unplugged_) {
                SendIn(0, std::move(wire));
            }
        });
        return;
    }
    ++counters_.Replies;
    if (surroundings_.Trace) {
        surroundings_.Trace(false, wire);
    }
    surroundings_.Send(std::move(wire));
}

} // namespace qvm
