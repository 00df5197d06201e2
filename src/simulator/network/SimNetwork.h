#pragma once

#include "SimNetworkBlock.h"
#include "SimNetworkStore.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace qvm {

/// What a network adapter works with.
struct NetworkPlace {
    const VirtualAdapter& Adapter;
    std::vector<VirtualLock>& Locks;
    std::vector<VirtualUnit>& Units;
    const DecipherFunction& Decipher;
    Judge& Findings;
};

/// What a network adapter does at once, and whether it goes on by itself.
struct NetworkTurn {
    std::vector<std::uint8_t> Answer; ///< from the start byte to the last under the checksum; empty: none
    int AfterMs = 0;                  ///< how long the answer takes
    int WorkMs = -1;                  ///< Work is due so many ms from now; -1: it is not
    bool Closed = false;              ///< a lock's run is over
};

/// The network adapter's side of a run: takes the blocks of one lock's dataset, then programs it on its own; or fetches
/// a lock's history. A telegram that is out of order or has a wrong sum gets no answer, as the protocol knows no
/// refusal. One that came before is answered as before, so that a sender may try again.
class NetworkAdapter {
public:
    /// A telegram that was told by its code 0x90. `lost`: the lock is not reached, whatever there is.
    NetworkTurn Take(std::span<const std::uint8_t> frame, const NetworkPlace& place, bool lost = false);
    /// What was announced by WorkMs. `work` is the value that WorkNumber had then; does nothing when other work has
    /// come.
    NetworkTurn Work(unsigned work, const NetworkPlace& place);
    unsigned WorkNumber() const { return work_; }
    /// The run is forgotten, as without power.
    void Forget();
    /// The next telegram meets a fault: what comes out of order in its run is not the sender's doing.
    void Disturb() { disturbed_ = disturbing_ = true; }
    /// The telegram taken last, deciphered.
    const std::vector<std::uint8_t>& Plain() const { return telegram_.Frame; }

private:
    enum class Phase : std::uint8_t { Idle, Data, Fingers, Clock, Programming, Fetching, History };

    NetworkTurn Dispatch(const NetworkPlace& place);
    void BeginRun(const NetworkPlace& place);
    NetworkTurn TakeData(const NetworkPlace& place);
    NetworkTurn TakeFingers(const NetworkPlace& place);
    NetworkTurn TakeClock(const NetworkPlace& place);
    NetworkTurn TakeHistoryStart(const NetworkPlace& place);
    NetworkTurn TakeHistoryNext(const NetworkPlace& place);
    bool BeginDataset(std::span<const std::uint8_t> data, const NetworkPlace& place);
    void AddUsers(std::span<const std::uint8_t> records, const NetworkPlace& place);
    std::size_t UsedBytes() const;
    bool IsNextBlock(Phase phase, const NetworkPlace& place);
    NetworkTurn FinishProgramming(const NetworkPlace& place);
    NetworkTurn SendHistory(std::size_t block, const NetworkPlace& place);
    NetworkTurn Answer(const NetworkPlace& place, std::uint8_t code);
    VirtualLock* Reached(const NetworkPlace& place, const DeviceAddress& serial,
                         std::span<const std::uint8_t> adminCode) const;
    void JudgeSame(const NetworkPlace& place);
    void OutOfOrder(const NetworkPlace& place, const std::string& text);

    Phase phase_ = Phase::Idle;
    NetworkTelegram telegram_;           ///< under way
    std::vector<std::uint8_t> answered_; ///< the telegram that `lastCode_` answered
    std::uint8_t lastCode_ = 0;
    NetworkDataset data_;
    int users_ = 0, dataBlocks_ = 0, blocks_ = 0, nextBlock_ = 0;
    std::uint8_t result_ = 0;                 ///< of the programming; 0 while there is none
    std::vector<std::uint8_t> history_;       ///< the records, one behind the other
    std::array<std::uint8_t, 3> adminCode_{}; ///< that the history was asked for with
    unsigned work_ = 0;
    bool lost_ = false;
    bool disturbed_ = false;  ///< a fault was played in this run
    bool disturbing_ = false; ///< and at the telegram under way
};

} // namespace qvm
