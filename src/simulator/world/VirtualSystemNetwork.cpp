#include "VirtualSystem.h"

/// The network adapter's telegrams on the line of a virtual system.
namespace qvm {

NetworkPlace VirtualSystem::Place() {
    return {.Adapter = world_.Adapter,
            .Locks = world_.Locks,
            .Units = world_.Units,
            .Decipher = surroundings_.Decipher,
            .Findings = judge_};
}

void VirtualSystem::TakeNetwork(std::span<const std::uint8_t> frame) {
    judge_.NextTelegram();
    if (surroundings_.Trace) {
        surroundings_.Trace(true, frame);
    }
    const int all = counters_.Telegrams++ - faultBaseAll_;
    const int device = counters_.DeviceTelegrams++ - faultBaseDevice_;
    const SimFault* fault = FaultAt(world_.Faults, all, device);
    if (fault != nullptr) {
        Disturb();
    }
    if (keepTelegrams_) {
        telegrams_.push_back(PlainNetwork(frame, surroundings_.Decipher, world_.Adapter.Key).Frame);
    }
    if (PulledOut(fault)) {
        return;
    }
    const auto is = [fault](SimFault::Kind kind) { return fault != nullptr && fault->What == kind; };
    if (is(SimFault::Kind::Drop)) {
        network_.Forget();
        return;
    }
    if (is(SimFault::Kind::Silent)) {
        return;
    }
    const bool lost = is(SimFault::Kind::NotReached) || is(SimFault::Kind::Refuse);
    NetworkTurn turn = network_.Take(frame, Place(), lost);
    if (is(SimFault::Kind::Block) && !turn.Answer.empty()) {
        ++turn.Answer[1];
    }
    SayNetwork(turn, fault);
    if (turn.WorkMs >= 0) {
        PlanWork(turn.WorkMs);
    }
}

void VirtualSystem::PlanWork(int ms) {
    surroundings_.After(ms, [this, alive = std::weak_ptr<int>{alive_}, work = network_.WorkNumber()] {
        if (!alive.expired() && !unplugged_) {
            SayNetwork(network_.Work(work, Place()), nullptr);
        }
    });
}

void VirtualSystem::SayNetwork(const NetworkTurn& turn, const SimFault* fault) {
    if (!turn.Answer.empty()) {
        SendFaulty(NetworkOnWire(turn.Answer), NetworkOnWire(turn.Answer, true), world_.ReplyMs + turn.AfterMs, fault);
    }
    if (turn.Closed && surroundings_.SessionClosed) {
        surroundings_.SessionClosed();
    }
}

} // namespace qvm
