#pragma once

#include "ListenFixture.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace qvm::test {

/// A list of three locks with history first that is cut off somewhere: "Tor" with three events, "Keller" with two
/// through the network adapter, "Dach" with one.
struct CutList : ListenFixture {
    using Pieces = std::vector<std::string>; ///< of a history file: what each record adds

    static inline const Row Programmed{">>", "L266"}, NotKept{"#", "L277"}, NotReached{"#", "L66"}, NoPort{"#", "L276"};

    /// Telegrams that asked a lock, or the network adapter, for events; by lock number.
    std::map<int, int> Asked;
    /// Sees each telegram before it arrives.
    std::function<void()> OnTelegram;
    /// The network adapter does not hear its telegram of this number, from 0, as it is pulled `PullAfterMs` later.
    int PullNetAt = -1;
    int PullAfterMs = 0;

    CutList();
    /// Out of a test's own frame, as an object.
    void TestBody() override {}

    /// A program on the disk and the devices as they stand, and its list run.
    void StartList(Answer delayed = Answer::No);
    /// The list to its end; a row that stands still is given up, as the console does it.
    void EndList();
    /// The next list in the same program: every lock is programmed, every event is in its file.
    void ExpectNextListWorks();
    /// Puts both adapters back.
    void PlugIn();

    static Pieces Complete(int lock);
    static std::string Beginning(const Pieces& pieces, int count);
    /// How many records of a lock the program has asked for and had before it asked for another one.
    int Kept(int lock) const;
    /// The newest history file of a lock on `disk`; empty when there is none.
    static std::string HistoryOf(int lock, const std::map<std::string, std::string>& disk);
    /// All files of the data directory.
    static std::map<std::string, std::string> DataOf(const std::map<std::string, std::string>& disk);

private:
    void Watch();
    void PlayNetAdapter(const Bytes& frame);
    void Mark();
};

} // namespace qvm::test
