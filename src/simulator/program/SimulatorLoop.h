#pragma once

#include "InputLines.h"
#include "LineClock.h"
#include "PseudoTerminal.h"
#include "VirtualSystem.h"

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace qvm {

struct SimulatorOptions {
    std::string World;   ///< file to read; empty: an adapter and nothing that it reaches
    std::string State;   ///< file to write; empty: none
    std::string Adapter; ///< the adapter's name, UTF-8; empty: that of the world
    std::string Link;
    std::vector<SimFault> Faults; ///< besides those of the world
    bool Pace = false;
    bool Trace = false;
    bool Once = false; ///< ends when the line stays closed for two seconds after a session
};

/// The virtual system behind a pseudo-terminal, in real time, until a signal or its end.
class SimulatorLoop {
public:
    SimulatorLoop(SimulatorOptions options, VirtualWorld world);
    ~SimulatorLoop();
    SimulatorLoop(const SimulatorLoop&) = delete;
    SimulatorLoop& operator=(const SimulatorLoop&) = delete;

    /// Makes the line and the link. False with a sentence in `fault`.
    bool Start(std::string& fault);
    const std::string& DeviceName() const { return terminal_.Name(); }
    /// Runs until the handle `stop` can be read from, or the end named in the options.
    void Run(int stop);
    /// Writes the state file, if one is wanted.
    bool WriteState(std::string& fault) const;
    const VirtualSystem& System() const { return *system_; }

private:
    SimSurroundings Surroundings();
    Nanoseconds Now() const;
    Nanoseconds NextEvent(Nanoseconds now) const;
    bool Wait(Nanoseconds duration, int stop);
    void ReadLine();
    void ReadInput();
    bool Finished() const;
    void RunDue();
    void WriteLine();
    void WriteStateWhenIdle();
    void TraceFrame(bool fromPc, std::span<const std::uint8_t> frame) const;

    SimulatorOptions options_;
    InputLines input_;
    PseudoTerminal terminal_;
    DeviceLink link_;
    LineClock fromPc_;
    LineClock toPc_;
    std::unique_ptr<VirtualSystem> system_;
    std::multimap<Nanoseconds, std::function<void()>> planned_;
    Nanoseconds eventTime_ = -1; ///< the due time of the event being handled; -1 between events
    Nanoseconds closedSince_ = 0;
    bool unplugged_ = false;
    bool hadSession_ = false;
    bool stateDue_ = false;
    std::vector<std::uint8_t> unsent_;
};

} // namespace qvm
