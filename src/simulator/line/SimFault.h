#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

/// Something that goes wrong on the line, on purpose.
struct SimFault {
    enum class Kind : std::uint8_t {
        Silent,  ///< the device does not hear the telegram
        BadSum,  ///< the reply's checksum is wrong
        Half,    ///< the reply breaks off after half its bytes
        Garbage, ///< `Bytes` come before the reply
        Refuse,  ///< refused with `Value` as the reason; the device does nothing. A network telegram is answered with
                 ///< "lock not reached" at once
        Late,    ///< the reply comes `Value` ms later
        Doubled, ///< the reply comes twice
        Unplug,  ///< the adapter is pulled out when the telegram has come
        Wrong,   ///< the device does as it was told, but the reply that comes carries `Value` as its code
        Instead, ///< the device does nothing, and such a reply comes all the same
        // Of a network adapter, at its own telegrams alone.
        Block,      ///< the answer carries another block number
        NotReached, ///< the lock is not reached: after the wait where there is one, else at once
        Drop,       ///< the adapter forgets the run when the telegram has come, and does not answer
    };
    Kind What = Kind::Silent;
    int Telegram = 0; ///< number of the telegram, from 0
    bool AndAllBehind = false;
    bool CountAll = false; ///< telegrams to the adapter itself count as well; else only those to devices
    int Value = 0;
    std::vector<std::uint8_t> Bytes{0x00, 0xFF, 0x55, 0x13}; ///< no start byte among them

    /// Another reply comes than the right one.
    bool WrongReply() const { return What == Kind::Wrong || What == Kind::Instead; }

    bool operator==(const SimFault&) const = default;
};

/// The first fault that meets the telegram with these numbers; null when none does. `device` is -1 for a telegram to
/// the adapter itself.
const SimFault* FaultAt(const std::vector<SimFault>& faults, int all, int device);

/// A fault as text, the form of the command line and of the world file: KIND@[#]N[+][=VALUE]. "#": telegrams to the
/// adapter count as well; "+": and all behind. VALUE: the reason (default 0x64), milliseconds (default 1000), the
/// reply code (default 0x05), or the garbage in hexadecimal. Empty when the text is none of this.
std::optional<SimFault> FaultFromText(std::string_view text);
std::string FaultText(const SimFault& fault);

} // namespace qvm
