#pragma once

#include "VirtualLocks.h"

#include <map>
#include <string>
#include <vector>

namespace qvm::test {

/// A list run with history on the binary, which is cut off somewhere. Its telegrams to devices, from 0: login, date and
/// time of lock 1; from 3 on its history, one for each of three events and one behind them; 7 the priority, 8 the
/// erase, then the dataset.
struct CutRun {
    VirtualLocks Locks;

    /// The history file of lock 1 with its first `events` events, of three; empty without any.
    static std::string Events(int events);
    /// Words of the command line.
    static std::vector<std::string> List(const std::vector<std::string>& locks,
                                         const std::vector<std::string>& more = {});
    /// Telegrams of this code, two hexadecimal digits, that the adapter has had so far; with `way` '<' those that it
    /// has sent. The virtual system runs with --trace.
    int Heard(const std::string& code, char way = '>') const;
    bool WaitForTelegram(const std::string& code, int count) const;
    /// All files of a directory below the program's, hidden ones too.
    std::map<std::string, std::string> Files(const std::string& directory) const;
    /// The only history file; empty when there is none.
    std::string OnlyHistory() const;
    /// A list run without faults: lock 1 is programmed, its events are in the newest file, those of earlier runs still
    /// in theirs. Ends the virtual system.
    void ExpectNextListWorks();
};

} // namespace qvm::test
