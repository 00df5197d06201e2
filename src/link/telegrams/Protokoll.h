#pragma once

#include "Link.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The protocol trace: frames as text that people can read, and such text back to frames.
namespace qvm {

/// Whether secrets are hidden: codes, keys, identifications, fingerprints, and the payload of network telegrams. Hidden
/// are the bytes themselves, wherever the trace shows them, and the checksum of a frame that holds one, as the sum
/// would give part of it away.
enum class Geheimnis : std::uint8_t { Verbergen, Zeigen };

/// A frame of a trace, unstuffed, from the start byte to the checksum.
struct Mitschnitt {
    TraceFrame::Direction Way = TraceFrame::Direction::Sent;
    std::vector<std::uint8_t> Bytes;
    std::vector<bool> Hidden; ///< bytes that the trace did not show; empty: none
    RxResult Result = RxResult::Frame;
    int Line = 0; ///< where it stands in the text, from 1
};

struct DecodedField {
    std::string Name;
    std::vector<std::uint8_t> Bytes; ///< empty when hidden
    std::string Text;                ///< the value for people; "hidden" when hidden
    bool Constant = false;           ///< a byte that is always the same, and is so here
};

struct DecodedTelegram {
    std::string Name = "unknown"; ///< of the telegram or reply
    std::uint8_t Code = 0;
    std::vector<DecodedField> Fields;
    std::vector<std::string> Remarks; ///< what is wrong with the frame
};

/// Takes a frame apart by the declared layouts. Any bytes are accepted. In a telegram that no layout explains
/// everything behind the header is hidden, as a code could stand anywhere in it.
DecodedTelegram Dekodieren(const Mitschnitt& frame, Geheimnis secrets = Geheimnis::Verbergen);
Mitschnitt Festhalten(const TraceFrame& frame);

/// "Name: field value, field value [remark]", without the constant bytes.
std::string Telegramm_Text(const DecodedTelegram& telegram);

/// One line of a trace file, without a line end: "> 02 0D 05 .. | TelTrennen: ..", "<" for what was received.
std::string Protokoll_Zeile(const TraceFrame& frame, Geheimnis secrets = Geheimnis::Verbergen);
std::string Protokoll_Zeile(const Mitschnitt& frame, Geheimnis secrets = Geheimnis::Verbergen);

struct TraceError {
    int Line; ///< from 1
    std::string Text;
};

struct TraceText {
    std::vector<Mitschnitt> Frames;
    std::vector<TraceError> Errors;
};

/// Reads trace lines and plain hexadecimal text. Blank lines and lines that begin with "#" are passed over, and so is
/// everything from "|" on. Bytes are pairs of hexadecimal digits, together or apart (blank , ; : -), with or without
/// 0x;
/// "**" is a byte that was hidden. A line without ">" or "<" may hold several frames, as they are or stuffed; the
/// direction follows from where the checksum stands. A line that makes no sense gives an error and nothing else.
TraceText Protokoll_Lesen(std::string_view text);

} // namespace qvm
