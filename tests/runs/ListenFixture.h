#pragma once

#include "RunFixture.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace qvm::test {

/// A list run over the virtual lock system. Port 1 leads to it, port 2 to a network adapter that the test plays.
struct ListenFixture : RunFixture {
    using Bytes = std::vector<std::uint8_t>;
    using Row = std::pair<std::string, std::string>; ///< mark and text

    /// What the network adapter does with a telegram; its serial, block number and code stand in the header.
    std::function<void(const Bytes& frame)> NetAdapter;
    std::vector<Bytes> NetFrames; ///< unstuffed

    /// What Anna did at 09:15 of a day in March 2026.
    static HistoryLine Event(int day, std::uint8_t event);

    /// Begin, with both adapters known. Locks of `network` go through the network adapter, the others directly.
    void BeginList(const std::vector<int>& network = {});
    /// Marks the locks and presses "Prog.", answering both questions; then the code.
    void Prog(const std::vector<int>& locks, Answer history = Answer::No, Answer delayed = Answer::No,
              std::string_view code = "123456");
    void SaveHistory(const std::vector<int>& locks);
    bool FinishList(std::int64_t limitMs = 3600000);
    Row RowAt(int row) const;
    std::vector<Row> AllRows() const;
    /// Expects the box behind the last row that is not worked off.
    void ExpectNothingLeft();

    void NetReply(std::uint8_t code, std::uint8_t block = 1, const Bytes& payload = {}, int delayMs = 20);
    /// Every block is taken, the clock starts the programming, which goes well.
    void GoodNetAdapter();
    /// A write of the program to the adapter that the test plays.
    void NetTaken(std::span<const std::uint8_t> bytes);

private:
    Bytes netLine_;
};

} // namespace qvm::test
