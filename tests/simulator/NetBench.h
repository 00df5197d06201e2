#pragma once

#include "SimBench.h"

#include <optional>
#include <string>
#include <vector>

namespace qvm::test {

/// What came back from a network adapter.
struct NetReply {
    std::uint8_t Block = 0;
    std::uint8_t Code = 0;
    Bytes Body; ///< from index 32 up to the checksum

    bool operator==(const NetReply&) const = default;
};
void PrintTo(const NetReply& reply, std::ostream* out);

/// A virtual system behind a network adapter, and a PC that puts its telegrams together on its own. The world has one
/// lock, 00.0A.10.01 with the administrator code 1A 42 12 on channel 5. The adapter answers after 10 ms, has a history
/// after 3000 ms and a lock programmed after 5000 ms.
class NetBench : public SimBench {
public:
    NetBench();
    explicit NetBench(VirtualWorld world);

    /// The values of the first block, without its users, as the adapter wants them: 640 bytes.
    static Bytes Fixed(int users);
    /// A user without a key: "USERnnn", code of four digits.
    static Bytes User(int n);
    /// A fingerprint user with a number and the slice of the template.
    static Bytes FingerUser(int number, const Bytes& slice);

    /// A data or fingerprint block in the clear: header, groups with their sums, zeros up to `word`, the frame's sum.
    Bytes Block(int number, int count, std::size_t word, std::uint8_t code, const Bytes& data) const;
    /// The only block of a lock with so few users.
    Bytes Only(const Bytes& fixed, const std::vector<Bytes>& users = {}) const;
    Bytes Clock(const Bytes& time = {5, 3, 26, 10, 30, 0}) const;
    Bytes HistoryStart(const Bytes& code = {0x1A, 0x42, 0x12}) const;
    Bytes HistoryNext(int number) const;

    /// Sends a frame as it stands: enciphered where it must be, with the mark at 26 and stuffed.
    void Send(const Bytes& frame);
    /// The same, then 10 ms; all replies that came.
    std::vector<NetReply> Take(const Bytes& frame);
    /// The code of the one reply, -1 when there is none or more.
    int Code(const Bytes& frame);
    /// The replies that came while time went on.
    std::vector<NetReply> After(int ms);
    /// All replies since the last Send.
    std::vector<NetReply> Replies() const;
    /// Findings without the word "telegram" and its number before them.
    std::vector<std::string> Findings() const;
    VirtualLock& Lock() { return System.World().Locks.at(0); }

    Bytes Units = Fill(16);

private:
    Bytes Header(int number, int count, std::size_t word, std::uint8_t code) const;
};

/// The world of a NetBench.
VirtualWorld NetworkWorld();
/// How a telegram goes over the wire: 1 at index 26, deciphered bytes xored with the key, stuffed.
Bytes NetworkWire(Bytes frame, const std::array<std::uint8_t, 16>& key);

} // namespace qvm::test
