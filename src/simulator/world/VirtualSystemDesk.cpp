// The readers of the desk: what they are asked, and when they say what.

#include "VirtualSystem.h"

#include <algorithm>
#include <utility>

namespace qvm {

void VirtualSystem::DeskTurn(std::span<const std::uint8_t> frame, const SimFault* fault) {
    const auto wanted = AskedCredential(frame[2]);
    const bool forEnrolment = !wanted || *wanted != Credential::Kind::Key;
    if (forEnrolment != world_.Adapter.Enrolment()) {
        Reply(RefusalReply(Refusal::NotAccepted), fault); // it has no such reader
        return;
    }
    if (!wanted) {
        FreeSlot(frame[14]);
        return;
    }
    ++deskRequest_;
    deskWait_ = DeskWait{.Wanted = *wanted, .Fault = fault != nullptr ? std::optional(*fault) : std::nullopt};
    if (ServeDesk() || world_.Desk.PatienceMs == 0) {
        return;
    }
    SayDeskIn(world_.Desk.PatienceMs, deskRequest_, [this] {
        if (deskWait_) {
            const DeskWait wait = *std::exchange(deskWait_, std::nullopt);
            Reply(NothingPresented(wait.Wanted), wait.Fault ? &*wait.Fault : nullptr);
        }
    });
}

void VirtualSystem::FreeSlot(std::uint8_t slot) {
    if (slot != usedSlot_) {
        judge_.Note(Wrong::Range, FreeSlotCode, "slot " + std::to_string(slot) + " was not reported as being in use");
    }
    usedSlot_ = 0;
    world_.Desk.Freed.push_back(slot);
}

/// Adapters of either kind write cards.
std::vector<std::uint8_t> VirtualSystem::CardTurn(std::span<const std::uint8_t> frame) {
    std::vector<std::uint8_t> reply = cards_.Take(world_.Desk.Writer, frame, judge_);
    if (surroundings_.SessionClosed) {
        surroundings_.SessionClosed(); // the state shows the card
    }
    return reply;
}

void VirtualSystem::Present(Credential credential) {
    world_.Desk.Presented.push_back(std::move(credential));
    ServeDesk();
}

/// False when no reader waits, or nothing of the kind lies there.
bool VirtualSystem::ServeDesk() {
    std::vector<Credential>& presented = world_.Desk.Presented;
    const auto found = std::find_if(presented.begin(), presented.end(), [this](const Credential& credential) {
        return deskWait_ && credential.What == deskWait_->Wanted;
    });
    if (found == presented.end()) {
        return false;
    }
    const Credential credential = std::move(*found);
    presented.erase(found);
    if (credential.What == Credential::Kind::Transponder) {
        usedSlot_ = credential.Slot >= FirstUsedSlot ? credential.Slot : std::uint8_t{0};
    }
    const DeskWait wait = *std::exchange(deskWait_, std::nullopt);
    SayDesk(CredentialFrames(credential), wait.Fault);
    return true;
}

/// The first frame suffers the fault of the request.
void VirtualSystem::SayDesk(std::vector<DeskFrame> frames, std::optional<SimFault> fault) {
    if (frames.empty()) {
        if (surroundings_.SessionClosed) {
            surroundings_.SessionClosed();
        }
        return;
    }
    const int ms = frames.front().AfterMs;
    SayDeskIn(ms, deskRequest_, [this, frames = std::move(frames), fault]() mutable {
        Reply(frames.front().Bytes, fault ? &*fault : nullptr);
        frames.erase(frames.begin());
        SayDesk(std::move(frames), std::nullopt);
    });
}

void VirtualSystem::SayDeskIn(int ms, int request, std::function<void()> action) {
    surroundings_.After(ms, [this, request, alive = std::weak_ptr<int>{alive_}, action = std::move(action)] {
        if (!alive.expired() && !unplugged_ && request == deskRequest_) {
            action();
        }
    });
}

} // namespace qvm
