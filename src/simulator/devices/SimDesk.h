#pragma once

#include "VirtualCredentials.h"

#include <cstdint>
#include <optional>
#include <vector>

/// What the readers of the desk say: the E-Key reader of a programming adapter, the transponder and fingerprint readers
/// of an adapter for enrolment.
namespace qvm {

/// Code of the telegram that frees a slot of the enrolment unit. It is not answered.
inline constexpr std::uint8_t FreeSlotCode = 0x70;
/// Slots from here on are reported as being in use.
inline constexpr std::uint8_t FirstUsedSlot = 128;

/// What a telegram of this code asks for; nothing when it asks no reader.
std::optional<Credential::Kind> AskedCredential(std::uint8_t code);

struct DeskFrame {
    int AfterMs;                     ///< from the frame before it, or from the beginning
    std::vector<std::uint8_t> Bytes; ///< bytes 0 to L + 1
};
/// All frames by which a reader tells of what was presented, in order.
std::vector<DeskFrame> CredentialFrames(const Credential& credential);
/// What a reader says when nothing was presented; empty when it says nothing.
std::vector<std::uint8_t> NothingPresented(Credential::Kind wanted);

} // namespace qvm
