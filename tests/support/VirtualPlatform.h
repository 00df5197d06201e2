#pragma once

#include "MemoryFiles.h"
#include "Platform.h"
#include "VirtualTime.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace qvm::test {

/// A message box that a test expects, in order, with the answer given.
struct ScriptedAnswer {
    std::string Text; ///< whole text, code page 1252; "*": any
    Answer Reply = Answer::Ok;
    int AfterMs = 0; ///< virtual time that the box stays open, events going on meanwhile
};

/// The world in virtual time: the clock jumps to the next planned event. A message that nobody scripted, a script that
/// nobody asked for (checked in the destructor) and a wait that nothing can end are failures of the test; a wait
/// without an end throws StuckWait after recording the failure, so that the test does not hang.
class VirtualPlatform {
public:
    explicit VirtualPlatform(DateTime start = {.Year = 2026, .Month = 3, .Day = 5, .Hour = 10, .Minute = 30});
    ~VirtualPlatform();
    VirtualPlatform(const VirtualPlatform&) = delete;
    VirtualPlatform& operator=(const VirtualPlatform&) = delete;

    struct StuckWait {};

    Platform World; ///< filled with everything below
    MemoryFiles Disk;

    // Messages.
    std::deque<ScriptedAnswer> Answers;
    std::vector<Message> Shown;

    // File dialogs: what each in turn gives (nothing: cancelled), and what was asked. One that nobody scripted is a
    // failure and counts as cancelled.
    std::deque<std::optional<std::string>> DialogAnswers;
    std::vector<FileDialog> Dialogs;
    std::vector<std::string> OpenedInLinkedApp; ///< targets given to OpenWithLinkedApp
    bool OnlyInstance = true;                   ///< what ClaimInstance says

    // The port. Bytes written by the program reach OnWrite at once; bytes for the program are delivered as events.
    bool PortCanOpen = true;
    std::function<bool(int number)> PortThere; ///< which ports can be opened; empty: all
    std::optional<PortFault> PortFaultNow;     ///< why a port cannot be opened; empty: not there
    bool PortOpen = false;
    int PortNumber = 0;
    bool Rts = false;
    int Opens = 0;
    int Closes = 0;
    std::vector<std::uint8_t> Written; ///< all bytes the program sent
    std::function<void(std::span<const std::uint8_t>)> OnWrite;
    std::vector<int> AdapterPortNumbers{1};
    std::function<void(PortChange)> PortChanged; ///< the program's ear for ports that come and go; set by it
    int HourglassDepth = 0;
    int Hourglasses = 0; ///< how often it was turned on
    /// Bytes that reach the program `delayMs` from now, one event a byte. Dropped if the port is closed by then.
    void Deliver(const std::vector<std::uint8_t>& bytes, int delayMs = 0);

    /// Runs `action` `delayMs` from now, as an event.
    void At(int delayMs, std::function<void()> action);
    /// Virtual milliseconds since the start.
    std::int64_t Elapsed() const { return time_.Milliseconds(); }
    /// Handles events until `done` is true. False when no event is left or `limitMs` of virtual time have passed.
    bool RunUntil(const std::function<bool()>& done, std::int64_t limitMs = 600000);
    /// Handles all events of the next `ms` milliseconds.
    void RunFor(std::int64_t ms);

    /// Random fractions, in turn; a fixed linear congruential sequence when empty.
    std::deque<double> RandomValues;

private:
    void FillWorld();
    void FillPort();
    /// Handles the next event that is due at the microsecond `until` or before. False when there is none.
    bool Step(std::int64_t until);
    /// The microsecond that comes after so many milliseconds.
    std::int64_t After(std::int64_t ms) const;
    void Wait();
    Answer Show(const Message& message);
    DateTime ClockTime() const;

    DateTime start_;
    VirtualTime time_;
    std::int64_t handled_ = 0; ///< events
    std::function<void(std::uint8_t)> receiver_;
    std::uint32_t random_ = 12345;
};

} // namespace qvm::test
