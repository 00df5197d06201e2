#pragma once

#include "Frame.h"
#include "Kern.h"
#include "LinkHooks.h"
#include "RunState.h"
#include "Timer.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace qvm {

/// Value of Link::UsbArmed that selects the network automaton.
inline constexpr std::uint8_t UsbArmedMark = 0xA5;
/// Value of Link::UsbDone once a network frame stands in RxBuffer.
inline constexpr std::uint8_t UsbDoneMark = 0x5A;

/// One frame as the protocol trace sees it: unstuffed, from the start byte to the checksum.
struct TraceFrame {
    enum class Direction { Sent, SentRaw, Received, Dropped } Way;
    std::span<const std::uint8_t> Bytes;
    RxResult Result = RxResult::Frame; ///< why a frame was dropped
};

/// The device that answered a login.
struct AnsweringDevice {
    Address DeviceAddress{};
    Address Serial{};
    std::uint8_t Status = 0; ///< 4: fully registered
};

/// A reply to a telegram to the adapter: its code, or one of two, and the lengths that it may have.
struct AdapterAntwort {
    std::uint8_t Code;
    std::uint8_t OtherCode;
    int Shortest;
    int Longest = 0xFF;
};

/// The serial link: buffers, addresses, run flags. One of it exists, made by the program and passed by reference.
struct Link {
    /// Takes the port's received bytes for itself.
    explicit Link(Kern& kernel);
    ~Link();
    Link(const Link&) = delete;
    Link& operator=(const Link&) = delete;

    Kern& kern;
    Empfaenger Rx;
    std::array<std::uint16_t, BufferSize> TxBuffer{}; ///< one byte value a word; index n is byte n of the frame
    std::uint8_t UsbArmed = 0;                        ///< 0xA5 selects the network automaton
    std::uint8_t UsbDone = 0;                         ///< 0x5A when the network automaton holds a frame
    std::uint8_t ReplySeen = 0;                       ///< a reply of the adapter came that a wait looks at
    std::optional<AdapterAntwort> ReplyWanted;        ///< the only reply that sets it; none: each of them does
    /// Code of the last addressed telegram, until its reply, a refusal, a telegram to the adapter itself or the end of
    /// a run; 0: no device owes an answer.
    std::uint8_t AnswerDue = 0;
    /// Code of a telegram to a reader of the desk, or of a login, whose answer nobody waits for any more, though it may
    /// still come; 0: none.
    std::uint8_t AnswerWithdrawn = 0;
    /// The frame that set ReplySeen, as RxFrame gave it then. Bytes behind it in the same event do not touch it.
    std::vector<std::uint8_t> Reply;
    Address TargetAddress{};
    std::uint8_t TargetChannel = 1; ///< 1 to 12
    std::uint8_t DeviceClassByte = 0x11;
    std::uint8_t AddressMode = 0;
    std::uint8_t TelegrammParam1 = 0;
    std::uint8_t TelegrammParam2 = 0;
    int PortNummer = 0; ///< the port the link works on

    std::vector<std::uint8_t> TxWire; ///< the last telegram as it went over the line
    int Dispatching = 0;              ///< frames that are being acted on
    bool ForgetFrame = false;         ///< the frame is to be overwritten when the last of them returns

    RunState Lauf;
    AnsweringDevice Device;
    LinkHooks Hooks;
    /// Sees every frame sent and received. May be empty.
    std::function<void(const TraceFrame&)> Protokoll;
    /// A frame of the network automaton is complete (UsbDone 0x5A). May be empty.
    std::function<void()> Netzwerk_Antwort;

    Timer Timer10; ///< tick source of Warte_Ticks
    int TickSum = 0;

    /// The last good frame, without its checksum.
    std::span<const std::uint8_t> RxFrame() const;
    /// Byte `index` of the received frame, or 0 when the frame is shorter.
    std::uint8_t RxByte(int index) const;
    /// The same of Reply.
    std::uint8_t ReplyByte(int index) const;
};

/// Runs the armed automaton for one received byte; a good serial frame is acted on inside this call, with the automaton
/// already back in state 0, as who acts may wait and let further bytes in.
void Empfang_Byte(Link& link, std::uint8_t byte);

/// Closes the port if it is open and opens `number`. False when that fails.
bool Port_Oeffnen(Link& link, int number);
/// Closes and opens the present port.
bool Port_Neu(Link& link);

/// Addressed transmit of TxBuffer: port, request-to-send, progress, header 3 to 10, checksum, bytes. Sends nothing, and
/// says nothing, when the port cannot be opened; returns false then.
bool Telegramm_Senden(Link& link);
/// Raw transmit: only the checksum is written.
bool Telegramm_Roh_Senden(Link& link);

/// Indexes 0, 1, 2 and the header words 1 to 3..6, 2 to 7..10, 1 to 11, 0 to 12; index 13 stays as it was.
void Telegramm_Kopf(Link& link, std::uint8_t length, std::uint8_t code);
/// Indexes 0, 1, 2, then 1, 0, 0 to 11..13, both parameter words to 14 and 15; transmits at once. With a length of 14
/// the checksum takes the place of the second parameter, with 13 neither goes out.
bool Telegramm_Kopf2(Link& link, std::uint8_t length, std::uint8_t code);

/// Checksum over TxBuffer indexes 0 to TxBuffer[1].
std::uint8_t Frame_Pruefsumme_Tx(const Link& link);
/// Checksum over RxBuffer indexes 0 to `count`.
std::uint8_t Frame_Pruefsumme_Rx(const Link& link, int count);
/// The same over indexes start to start + count, both included. Indexes beyond the buffer count as nothing.
std::uint8_t Bereich_Pruefsumme_Tx(const Link& link, int count, int start);
std::uint8_t Bereich_Pruefsumme_Rx(const Link& link, int count, int start);

/// Lets events go on until the tick sum exceeds `limit` milliseconds, in ticks of `interval`: (1000, 5000) takes 6000
/// ms. `interval` 1 to 30000; the sum goes up to 30000, a larger limit is held at the last tick before that. A wait
/// begun inside another one counts for both.
void Warte_Ticks(Link& link, int interval, int limit);
/// Lets events go on for more than `seconds`, or until ReplySeen is set. Midnight makes no difference.
void Warte_Antwort(Link& link, double seconds);

/// Overwrites the administrator code, the session key, and the telegrams sent and received last. The next run brings
/// its own. A frame that is being received is not touched.
void Geheimnisse_Vergessen(Link& link);
/// Overwrites the frame received last; while one is acted on, which may still be read, once that is over.
void Empfang_Vergessen(Link& link);

/// Acts on the frame in RxBuffer when its code is one of the adapter's own (0x68, 0x6A, 0x6C, 0x6D): a wait for it
/// ends. An identification counts only while a search waits for one, and only the first.
void Adapter_Antwort(Link& link, std::uint8_t code);

} // namespace qvm
