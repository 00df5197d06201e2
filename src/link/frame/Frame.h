#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/// The frame layer: checksum, byte stuffing, and the two automata that turn received bytes into frames.
/// The automata take one byte and return: no port, no clock, no message inside.
namespace qvm {

inline constexpr int BufferSize = 1401;
inline constexpr std::uint8_t StartByte = 0x02;
/// Bytes of a network frame before its length is known.
inline constexpr int NetworkHeader = 6;
/// Index 2 of every frame of the network path.
inline constexpr std::uint8_t NetworkCode = 0x90;

/// Frame checksum: doubling with end-around carry modulo 255. 255 stays 255 and is never folded to 0.
constexpr std::uint8_t Pruefsumme(std::span<const std::uint8_t> bytes) {
    unsigned c = 0;
    for (const std::uint8_t b : bytes) {
        c *= 2;
        if (c > 255) {
            c -= 255;
        }
        c += b;
        if (c > 255) {
            c -= 255;
        }
    }
    return static_cast<std::uint8_t>(c);
}

/// What one received byte did.
enum class RxResult : std::uint8_t {
    Pending,     ///< the frame goes on, or still no frame has begun
    Frame,       ///< a frame with a good checksum (or one that needs none) stands in RxBuffer
    BadChecksum, ///< a whole frame came and was dropped
    BadStuffing, ///< 0x02 without its 0x00: the frame is lost
    TooLong,     ///< a length beyond the buffer: the frame is lost
};

/// State of both automata, and the frame being received. Byte 0 of a frame is the start byte.
struct Empfaenger {
    std::array<std::uint8_t, BufferSize> RxBuffer{};
    std::int16_t RxState = 0; ///< 0 wait for start, 1 read header, 2 read body
    std::int16_t RxIndex = 0; ///< next write position
    int RxLength = 0;         ///< serial: index of the last summed byte; network: N
    std::uint8_t RxLastByte = 0;
    int FrameSize = 0;      ///< bytes of the last good frame: serial 0 to L + 1, network 0 to N
    std::uint8_t RxSum = 0; ///< checksum that the last finished frame came with; its place in RxBuffer is cleared

    void Ruecksetzen() { RxState = RxIndex = 0; }
};

/// The stuffing rule for byte `current` after byte `previous`, called when the write position `RxIndex` has been taken.
/// Lowers RxIndex for a stuffed 0x00; sets RxIndex and RxState to 0 for a broken stuffing and returns 0.
std::uint8_t Rx_Entstopfen(Empfaenger& rx, std::uint8_t previous, std::uint8_t current);

/// One step of the serial automaton. On Frame, RxState and RxIndex are 0 again and the frame is RxBuffer[0..RxLength],
/// with RxBuffer[RxLength + 1] outside the checksum; what the device puts there is not known. A frame of length 2 that
/// comes without a 0x00 behind the length byte is lost; no reply is known to be that short.
RxResult Empfang_Seriell(Empfaenger& rx, std::uint8_t byte);

/// One step of the network automaton. A reply 0x90 with code 0x0C, 0x0D or 0xFF at index 27 is taken without a checksum
/// test. On Frame the bytes are RxBuffer[0..RxLength]. Length words above the buffer's last index give TooLong, those
/// that leave no room for a checksum behind the header give BadChecksum with the frame's closing byte.
RxResult Empfang_Netzwerk(Empfaenger& rx, std::uint8_t byte);

/// Appends the frame `bytes` (checksum included) to `wire` as it goes over the line: indexes 2 and up stuffed.
void Stopfen(std::span<const std::uint8_t> bytes, std::vector<std::uint8_t>& wire);

} // namespace qvm
