#pragma once

#include "SimCard.h"
#include "SimDesk.h"
#include "SimFault.h"
#include "SimFrame.h"
#include "SimJudge.h"
#include "SimLock.h"
#include "SimNetwork.h"
#include "SimUnit.h"
#include "VirtualCredentials.h"
#include "VirtualDevices.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace qvm {

/// Everything there is: one adapter and what it reaches by radio.
struct VirtualWorld {
    VirtualAdapter Adapter;
    std::vector<VirtualLock> Locks;
    std::vector<VirtualUnit> Units;
    VirtualDesk Desk;
    std::vector<SimFault> Faults;
    int ReplyMs = 0; ///< from the last byte of a telegram to the first of its reply
};

/// How the virtual system reaches its surroundings. Now, After and Send must be filled, the rest may be empty.
struct SimSurroundings {
    std::function<std::int64_t()> Now; ///< milliseconds of a clock that never goes back
    /// Runs `action` `ms` from now, and never inside this call.
    std::function<void(int ms, std::function<void()> action)> After;
    std::function<void(std::vector<std::uint8_t> bytes)> Send; ///< bytes for the PC
    DecipherFunction Decipher;                                 ///< blocks for units of type 2; empty: they come plain
    std::function<void()> Unplug;                              ///< the adapter is pulled out
    std::function<void()> SessionClosed; ///< a device's session, or the reading of a credential, has ended
    /// Each whole frame: from the PC as it came, to the PC as it goes over the wire.
    std::function<void(bool fromPc, std::span<const std::uint8_t> frame)> Trace;
};

/// What came over the line, counted.
struct LineCounters {
    int Telegrams = 0;       ///< frames with a good checksum
    int DeviceTelegrams = 0; ///< those of them that are not for the adapter itself
    int BadSums = 0;
    int BadStuffings = 0;
    int Garbage = 0; ///< bytes outside every frame
    int Replies = 0;
};

/// A virtual lock system behind one serial line: bytes in, bytes out. No clock, no port, no thread inside, so that it
/// runs in virtual time within a test and behind a pseudo-terminal alike. Every telegram is judged.
class VirtualSystem {
public:
    VirtualSystem(VirtualWorld world, SimSurroundings surroundings);
    VirtualSystem(const VirtualSystem&) = delete;
    VirtualSystem& operator=(const VirtualSystem&) = delete;

    /// Bytes from the PC, in any portions. Replies go out through Send, from within this call or from After.
    void Receive(std::span<const std::uint8_t> bytes);

    VirtualWorld& World() { return world_; }
    const VirtualWorld& World() const { return world_; }
    /// The lock or unit with this serial; null when there is none.
    VirtualLock* FindLock(const DeviceAddress& serial);
    VirtualUnit* FindUnit(const DeviceAddress& serial);

    const std::vector<Judgement>& Judgements() const { return judge_.List(); }
    /// One line a finding; empty when all is well.
    std::string JudgementLines() const;
    void ClearJudgements() { judge_.Clear(); }

    const LineCounters& Counters() const { return counters_; }
    /// Faults count telegrams from here on: the next one is number 0.
    void RestartFaultCount();
    /// Every good frame since the start, unstuffed, from the start byte to the checksum; those for a network adapter
    /// deciphered.
    const std::vector<std::vector<std::uint8_t>>& Telegrams() const { return telegrams_; }
    /// Their codes.
    std::vector<std::uint8_t> Codes() const;
    /// A program that runs for days turns this off.
    void KeepTelegrams(bool keep) { keepTelegrams_ = keep; }

    /// Lays something on the desk: a reader that waits for the like tells of it, else it is there for the next request.
    void Present(Credential credential);

    /// The adapter is pulled out: from here on nothing is heard, and nothing more is said.
    void Unplug();
    bool Unplugged() const { return unplugged_; }
    /// The adapter is put back after Unplug: a half frame, the radio channel, the probe and a network run are
    /// forgotten, the devices are not.
    void Plug();

private:
    void TakeFrame(std::vector<std::uint8_t> frame);
    DeviceReply Answers(std::span<const std::uint8_t> frame, bool raw, const SimFault* fault);
    void TakeNetwork(std::span<const std::uint8_t> frame);
    void PlanWork(int ms);
    void SayNetwork(const NetworkTurn& turn, const SimFault* fault);
    NetworkPlace Place();
    bool PulledOut(const SimFault* fault);
    std::vector<std::uint8_t> AdapterAnswers(std::span<const std::uint8_t> frame);
    DeviceReply DeviceAnswers(std::span<const std::uint8_t> frame);
    void JudgeSearch(std::span<const std::uint8_t> frame);
    DeviceReply SearchTurn(std::span<const std::uint8_t> frame);
    DeviceReply LockTurn(std::size_t index, std::span<const std::uint8_t> frame);
    DeviceReply UnitTurn(std::size_t index, std::span<const std::uint8_t> frame);
    void JudgeMode(std::span<const std::uint8_t> frame, std::uint8_t want);
    void Disturb();
    void Reply(const std::vector<std::uint8_t>& reply, const SimFault* fault, bool garbled = false);
    void DeskTurn(std::span<const std::uint8_t> frame, const SimFault* fault);
    std::vector<std::uint8_t> CardTurn(std::span<const std::uint8_t> frame);
    void FreeSlot(std::uint8_t slot);
    bool ServeDesk();
    void SayDesk(std::vector<DeskFrame> frames, std::optional<SimFault> fault);
    void SayDeskIn(int ms, int request, std::function<void()> action);
    void SendFaulty(std::vector<std::uint8_t> wire, std::vector<std::uint8_t> spoilt, int delay, const SimFault* fault);
    void SendIn(int ms, std::vector<std::uint8_t> wire);
    void FitSessions();

    VirtualWorld world_;
    SimSurroundings surroundings_;
    FrameReader reader_;
    Judge judge_;
    LineCounters counters_;
    std::vector<LockSession> lockSessions_;
    std::vector<UnitSession> unitSessions_;
    NetworkAdapter network_;
    /// What a reader was asked for and has not got yet, and the fault that its first frame is to suffer.
    struct DeskWait {
        Credential::Kind Wanted;
        std::optional<SimFault> Fault;
    };
    std::optional<DeskWait> deskWait_;
    int deskRequest_ = 0;       ///< how many there were: a new one ends what the one before still has to say
    std::uint8_t usedSlot_ = 0; ///< that a reader reported last; 0: none
    CardWriter cards_;
    std::vector<std::vector<std::uint8_t>> telegrams_;
    bool keepTelegrams_ = true;
    int tunedChannel_ = 0;     ///< radio channel of the adapter, 0 before the first login
    bool searchTuned_ = false; ///< it was sent there for a search, and nothing went to a device since
    DeviceAddress lastLock_{};
    int faultBaseAll_ = 0;
    int faultBaseDevice_ = 0;
    bool unplugged_ = false;
    std::shared_ptr<int> alive_ = std::make_shared<int>(0); ///< planned actions die with the system
};

} // namespace qvm
