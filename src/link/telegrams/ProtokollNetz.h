#pragma once

#include "Link.h"
#include "TelegrammeNetz.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

/// Telegrams of the network path in the trace. Their header is told field by field; the payload is enciphered but for
/// its ends, which may hold a code, and is hidden.
namespace qvm {

/// True for a frame of the network path, whole or not.
bool Net_Rahmen(std::span<const std::uint8_t> frame);

/// The name of a telegram to the adapter, or of its reply, by the code at 27. "unknown" for a code that is none.
std::string_view Net_Name(std::span<const std::uint8_t> frame, bool sent);

/// First index of what the trace hides: the payload and all behind it. The size of the frame when it has none.
std::size_t Net_Geheim_Ab(std::span<const std::uint8_t> frame, TraceFrame::Direction way);

/// Bytes of a frame with this length word: 0 to N, and one more for the clock. 0 when the header is not whole.
std::size_t Net_Groesse(std::span<const std::uint8_t> frame, bool sent);

/// What is wrong with the size or with a reply's checksum, empty when nothing is. The sums of what the PC sends are
/// taken before the payload is enciphered and cannot be looked at.
std::string Net_Fehler(std::span<const std::uint8_t> frame, bool sent, bool anyHidden);

/// True when the frame can be of this direction: its size, a code of that side, a reply's checksum, and the constant
/// bytes of a telegram's header.
bool Net_Passt(std::span<const std::uint8_t> frame, bool sent);

} // namespace qvm
