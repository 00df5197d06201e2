#pragma once

#include "Kern.h"
#include "Link.h"
#include "Network_USB.h"
#include "VirtualPlatform.h"

#include <cstdint>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

namespace qvm::test {

using Bytes = std::vector<std::uint8_t>;

/// "02 0D .." to bytes; "00*17" stands for 17 of them. Blanks and line ends are all the same.
Bytes Hex(std::string_view text);
std::string HexZeile(const Bytes& bytes, std::size_t first = 0, std::size_t count = std::string::npos);
/// `n` and the following bytes of golden.txt under `[name]`; empty when it is not there.
Bytes Golden(const std::string& name);

/// A network route over a virtual port, with an adapter that the test plays: every telegram that the program sends is
/// taken from the line, kept in Sent and handed to Geraet. The cipher leaves everything in the clear, so that the
/// telegrams can be read. The clock stands at 05.03.2026 10:30.
class NetzTest : public ::testing::Test {
protected:
    NetzTest();

    /// A reply as it comes over the line: header, payload from index 32 on, checksum, closing byte.
    static Bytes Antwort(std::uint8_t code, std::uint8_t block = 1, const Bytes& payload = {});
    void Reply(std::uint8_t code, std::uint8_t block = 1, int delayMs = 20) {
        pc.Deliver(Antwort(code, block), delayMs);
    }
    /// The same from an adapter that names the lock in its header.
    void ReplyOf(std::uint8_t code, const Address& lock);
    /// The adapter answers in the order of a good run: blocks, fingerprints, programming, programmed.
    void Gutes_Geraet();
    /// Users 1 to `count` without key: "USER001" with code 123451 and so on.
    void Benutzer(int count);
    /// A user with a fingerprint whose head and template are `total` bytes.
    void Fingerbenutzer(int total);
    /// Codes at index 27 of all telegrams sent so far, in hexadecimal.
    std::string Codes() const;
    /// Entries of Log that are no progress of the bar.
    std::string Ereignisse() const;

    VirtualPlatform pc;
    Kern kern{pc.World};
    Link link{kern};
    Dataset daten;
    Netzlauf run{link, daten};

    std::vector<Bytes> Sent;                  ///< telegrams from the line, unstuffed
    std::vector<Bytes> Lines;                 ///< the same as they came over the line
    std::vector<std::int64_t> SentAt;         ///< virtual milliseconds
    std::function<void(const Bytes&)> Geraet; ///< the adapter's reaction to a telegram
    std::vector<std::string> Log;             ///< what the hooks were told
    std::vector<int> Bars;                    ///< values of the bar
    std::vector<int> Limits;                  ///< minutes that the adapter was given

private:
    void Taken(std::span<const std::uint8_t> bytes);
    void Werte_Setzen();
};

/// The users of the golden telegrams with each kind of record.
std::vector<ProgSlot> Jede_Art();

} // namespace qvm::test
