#include "SimulatorLoop.h"

#include "FileText.h"
#include "SimCipher.h"
#include "WorldFile.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <poll.h>
#include <sys/prctl.h>

namespace qvm {

namespace {

constexpr Nanoseconds Millisecond = 1000000;
constexpr Nanoseconds Second = 1000 * Millisecond;
/// A client may close the line for a moment between two sessions.
constexpr Nanoseconds OnceRest = 2 * Second;
constexpr Nanoseconds Forever = 3600 * Second;

} // namespace

SimulatorLoop::SimulatorLoop(SimulatorOptions options, VirtualWorld world)
    : options_(std::move(options)), fromPc_(options_.Pace), toPc_(options_.Pace) {
    world.Faults.insert(world.Faults.end(), options_.Faults.begin(), options_.Faults.end());
    system_ = std::make_unique<VirtualSystem>(std::move(world), Surroundings());
    system_->KeepTelegrams(false);
    ::prctl(PR_SET_TIMERSLACK, 1UL, 0UL, 0UL, 0UL); // the usual 50 microseconds are a tenth of a byte
}

SimulatorLoop::~SimulatorLoop() = default;

Nanoseconds SimulatorLoop::Now() const {
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return Nanoseconds{now.tv_sec} * Second + now.tv_nsec;
}

SimSurroundings SimulatorLoop::Surroundings() {
    // While an event is handled the clock shows when it was due, so that a late wake-up does not move what follows.
    const auto now = [this] { return eventTime_ >= 0 ? eventTime_ : Now(); };
    SimSurroundings world;
    world.Now = [now] { return now() / Millisecond; };
    world.After = [this, now](int ms, std::function<void()> action) {
        planned_.emplace(now() + ms * Millisecond, std::move(action));
    };
    world.Send = [this, now](const std::vector<std::uint8_t>& bytes) { toPc_.Push(bytes, now()); };
    world.Decipher = SimDecipher;
    world.Unplug = [this] { unplugged_ = true; };
    world.SessionClosed = [this] { hadSession_ = stateDue_ = true; };
    if (options_.Trace) {
        world.Trace = [this](bool fromPc, std::span<const std::uint8_t> frame) { TraceFrame(fromPc, frame); };
    }
    return world;
}

bool SimulatorLoop::Start(std::string& fault) {
    return terminal_.Open(fault) && (options_.Link.empty() || link_.Make(options_.Link, terminal_.Name(), fault));
}

bool SimulatorLoop::WriteState(std::string& fault) const {
    return options_.State.empty() || FileText_Replace(options_.State, State_ToJson(*system_), fault);
}

/// Behind the reply: writing a file takes longer than the reply may.
void SimulatorLoop::WriteStateWhenIdle() {
    if (!stateDue_ || !toPc_.Idle() || !unsent_.empty()) {
        return;
    }
    stateDue_ = false;
    if (std::string fault; !WriteState(fault)) {
        std::fprintf(stderr, "%s\n", fault.c_str());
    }
}

void SimulatorLoop::TraceFrame(bool fromPc, std::span<const std::uint8_t> frame) const {
    const Form* form = fromPc ? FindForm(frame).Found : nullptr;
    std::fprintf(stderr, "%s %s%s%s\n", fromPc ? ">" : "<", HexBytes(frame).c_str(), form != nullptr ? "  " : "",
                 form != nullptr ? form->Name : "");
}

Nanoseconds SimulatorLoop::NextEvent(Nanoseconds now) const {
    Nanoseconds next = now + Forever;
    const auto sooner = [&next](std::optional<Nanoseconds> due) { next = std::min(next, due.value_or(next)); };
    sooner(fromPc_.NextDue());
    sooner(toPc_.NextDue());
    if (options_.Once && hadSession_ && !terminal_.HasClient()) {
        sooner(closedSince_ + OnceRest);
    }
    if (!planned_.empty()) {
        sooner(planned_.begin()->first);
    }
    return unsent_.empty() ? next : std::min(next, now + Millisecond);
}

/// False when the end was asked for.
bool SimulatorLoop::Wait(Nanoseconds duration, int stop) {
    const Nanoseconds rest = std::max<Nanoseconds>(duration, 0);
    const timespec limit{.tv_sec = static_cast<time_t>(rest / Second), .tv_nsec = static_cast<long>(rest % Second)};
    std::array lines{pollfd{.fd = stop, .events = POLLIN, .revents = 0},
                     pollfd{.fd = terminal_.WatchHandle(), .events = POLLIN, .revents = 0},
                     pollfd{.fd = terminal_.LineHandle(), .events = POLLIN, .revents = 0},
                     pollfd{.fd = input_.Handle(), .events = POLLIN, .revents = 0}};
    ::ppoll(lines.data(), lines.size(), &limit, nullptr);
    if (lines[3].revents != 0) {
        ReadInput();
    }
    return lines[0].revents == 0;
}

void SimulatorLoop::ReadLine() {
    if (terminal_.UpdateClients()) {
        closedSince_ = Now();
        toPc_.Clear();
        unsent_.clear();
    }
    fromPc_.Push(terminal_.Read(), Now());
}

/// Each line is something that is laid on the desk.
void SimulatorLoop::ReadInput() {
    for (const std::string& line : input_.Read()) {
        Credential credential;
        if (std::string fault; Credential_FromJson(line, credential, fault)) {
            system_->Present(std::move(credential));
        } else if (!line.empty()) {
            std::fprintf(stderr, "standard input: %s\n", fault.c_str());
        }
    }
}

bool SimulatorLoop::Finished() const {
    return unplugged_ || (options_.Once && hadSession_ && !terminal_.HasClient() && Now() - closedSince_ >= OnceRest);
}

void SimulatorLoop::RunDue() {
    while (!unplugged_) {
        const Nanoseconds now = Now();
        if (const auto byte = fromPc_.Pop(now)) {
            eventTime_ = byte->Due;
            system_->Receive(std::span{&byte->Value, 1});
        } else if (!planned_.empty() && planned_.begin()->first <= now) {
            const auto action = std::move(planned_.begin()->second);
            eventTime_ = planned_.begin()->first;
            planned_.erase(planned_.begin());
            action();
        } else {
            break;
        }
        eventTime_ = -1;
        WriteLine();
    }
}

void SimulatorLoop::WriteLine() {
    const auto due = toPc_.PopAll(Now());
    unsent_.insert(unsent_.end(), due.begin(), due.end());
    if (!terminal_.HasClient()) {
        unsent_.clear(); // nobody is there, and the next client must not find it
        return;
    }
    const std::size_t sent = terminal_.Write(unsent_);
    unsent_.erase(unsent_.begin(), unsent_.begin() + static_cast<std::ptrdiff_t>(sent));
}

void SimulatorLoop::Run(int stop) {
    while (!Finished()) {
        const Nanoseconds now = Now();
        if (!Wait(NextEvent(now) - now, stop)) {
            break;
        }
        ReadLine();
        RunDue();
        WriteLine();
        WriteStateWhenIdle();
    }
    link_.Remove();
    terminal_.Close();
}

} // namespace qvm
