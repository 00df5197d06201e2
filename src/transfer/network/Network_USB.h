#pragma once

#include "Dataset.h"
#include "Link.h"
#include "Timer.h"

#include <array>
#include <cstdint>
#include <deque>
#include <functional>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The network route of a list run: the adapter takes a lock's whole dataset in a few enciphered blocks of code 0x90
/// and programs the lock by radio on its own, or fetches the lock's history. Layouts stand in TelegrammeNetz.h.
namespace qvm {

/// Values of Netzlauf::NetAdapter: which route a row takes.
inline constexpr std::uint8_t NetAdapterMark = 0xAD, DirectAdapterMark = 0xDD;

/// Step keys of the list run.
inline constexpr std::string_view StepPrgNextDataset = "PrgNextDataset", StepNexHstRead = "NexHstRead";

/// Which replies a row waits for.
enum class NetPhase : std::uint8_t {
    None,    ///< no row is worked at; replies are left alone
    Data,    ///< data blocks
    Fingers, ///< fingerprint blocks
    Clock,   ///< the clock went out
    Result,  ///< the adapter programs the lock
    History, ///< history was asked for, or is being fetched
};

/// Why a row stands still. The list run waits for the operator when nobody answers, and goes on in the other cases.
enum class NetStandstill : std::uint8_t {
    NoPort,   ///< the port could not be opened; nothing was sent
    PortLost, ///< the port went away behind the first telegram; what the adapter has carried out is not known
    NoReply,  ///< every try passed without a usable reply
    TooLong,  ///< the adapter answers, but has not come to its end in the time that was told
};

/// Minutes that an adapter has for what it does on its own, from the first reply that announces it: 1800 rounds of 2000
/// ms for programming a lock; for all else, as for the whole history of a lock, this.
inline constexpr int NetResultMinutes = 60, NetOtherMinutes = 30;

/// Where the network route shows itself. Filled once, with designated initialisers; the run list stands behind it.
struct NetView {
    /// Status label: catalogue line `line`, followed by ". " and line `second` when that is not 0.
    Hook<void(int line, int second)> Status;
    Hook<void(bool on)> Blinken; ///< the status label blinks, 800 ms
    Hook<void(int maximum, int value, bool visible)> Balken;
    /// Mark and status text (catalogue line) of the present row, which is done with it (Programmed, HistoryRead,
    /// Failed).
    Hook<void(std::string_view mark, int line)> Zeile_Markieren;
    /// The same with a text of its own, code page 1252.
    Hook<void(std::string_view mark, const std::string& text)> Zeile_Melden;
    /// The row is done: raise RunRow and plan `step` in 3000 ms, or show `Line::ListCompleted` behind the last row.
    Hook<void(std::string_view step)> Naechste_Zeile;
    /// History and programming were wished and the history is there: ProgQvmUnits for the same row in 100 ms.
    Hook<void()> Programmieren_Planen;
    /// Nothing goes on by itself any more. A late reply still counts; a list that goes on all the same calls
    /// Net_Abbrechen first.
    Hook<void(NetStandstill reason)> Stillstand;
    /// A usable reply came: the row goes on, if it stood still.
    Hook<void()> Weiter;
    /// The adapter has so many minutes from now on; behind them the row stands still for NetStandstill::TooLong.
    Hook<void(int minutes)> Frist;
};

/// A row's way through a network adapter: one record for the whole list. The port must be open (or openable by
/// link.PortNummer); link.Lauf and the dataset hold what Datensatz_Laden has put there.
struct Netzlauf {
    /// Takes Link::Netzwerk_Antwort for itself.
    Netzlauf(Link& serialLink, const Dataset& dataset);
    ~Netzlauf();
    Netzlauf(const Netzlauf&) = delete;
    Netzlauf& operator=(const Netzlauf&) = delete;

    Link& link;
    Kern& kern;
    const Dataset& Daten;
    NetView Ansicht;

    // Set before a row begins.
    std::uint8_t NetAdapter = DirectAdapterMark;
    Secret<16> TransferKey; ///< of the row's adapter. Never shown, logged or traced
    std::string LockName;   ///< for the history file
    std::string SerialText; ///< for the history file, as the list shows it

    // State of the row.
    NetPhase Phase = NetPhase::None;
    int BlockNumber = 0;                 ///< of the block sent last, from 1
    int BlockCount = 0;                  ///< data and fingerprint blocks of the row
    int DataBlocks = 0;                  ///< data blocks among them
    int BlocksTaken = 0;                 ///< blocks of both kinds that the adapter has acknowledged
    bool Started = false;                ///< the adapter has said that it programs the lock
    RunOutcome End = RunOutcome::Open;   ///< what became of the row; set before its mark
    std::vector<std::uint8_t> Finger;    ///< numbers, flags and templates of all fingerprints, one behind the other
    int TemplateBytes = 0;               ///< bytes of `Finger` that are still to be sent
    std::uint8_t HistoryBlock = 1;       ///< number that history requests carry
    int HistoryCounter = 1;              ///< 1: the next history block opens a new file
    std::vector<std::uint8_t> Carry;     ///< beginning of a record that the next history block ends
    std::vector<std::uint8_t> LastBlock; ///< reply with the history block stored last, to know a double one
    int HistoryBlocks = 0;               ///< blocks stored of the reading
    int BarValue = 0;
    NetPhase FristPhase = NetPhase::None; ///< which phase the time is limited for
    int FristMinuten = 0;                 ///< the limit
    std::int64_t FristEnde = 0;           ///< when it is over, by Platform::Milliseconds
    std::int64_t LastTraffic = 0;         ///< when the last telegram went out or the last usable reply came
    int RoundIndex = 0;                   ///< write position of the automaton at the round before
    bool Sending = false;                 ///< a transmit step is on the stack
    bool Begun = false;                   ///< something of the row went out
    unsigned Number = 0;                  ///< which row this is: a wait of an earlier one may still be on the stack
    /// Replies that wait for the handler, as further bytes go into RxBuffer meanwhile.
    std::deque<std::vector<std::uint8_t>> Antworten;

    Timer Timer3; ///< one shot, 10 ms: the reply handler
    Timer Runde;  ///< waiting for what comes unasked
};

// ---- what the run list calls

/// Which route a row takes, into run.NetAdapter: the first of `texts` that begins with four decimal bytes joined by "/"
/// (a leading "/" is skipped) decides. Without any the route is the direct one.
void Adapter_Test(Netzlauf& run, std::initializer_list<std::string_view> texts);
/// The four bytes as one number 0xaabbccdd; nothing when the text has not that form.
std::optional<std::uint32_t> Adapter_Nummer(std::string_view text);

/// Step "TxDNetzwDaten": label, bar, first data block with all users of the dataset.
void Net_Programmieren_Beginnen(Netzlauf& run);
/// Step "RxDNetHistory": label, bar, first history request. Resets the history counters, carry and file of the row.
void Net_Historie_Beginnen(Netzlauf& run);
/// The operator's cancel, and the end of the window: stops the timers and all that would follow. A block under way is
/// not recalled.
void Net_Abbrechen(Netzlauf& run);
/// What has become of a row that fails now for want of an answer: events that are lost count more.
RunOutcome Net_Fehlschlag(const Netzlauf& run);

/// Milliseconds since the row's last telegram or usable reply, or since its beginning.
std::int64_t Net_Stille(const Netzlauf& run);

/// Catalogue line of a row's status text after Datensatz_Laden in the network variant: 259 for a good dataset.
int Datensatz_Statuszeile(int status);

// ---- telegrams; all go through TxBuffer. False when the port could not be opened or nothing could be built.

/// Mode 0: the first data block for `users` users (held to the dataset's slots), which begins the row. Mode 1: the next
/// one, with the same count. False, too, when there is no next one, or with more than 255 blocks.
bool Net_Daten_Senden(Netzlauf& run, int mode, int users);
/// The next fingerprint block; false when none is left.
bool Net_Fingerprint_Senden(Netzlauf& run);
bool Net_Uhrzeit_Senden(Netzlauf& run);
/// `code` 0x0A: start of the reading, 0x0C: next block.
bool Net_Historie_Anfordern(Netzlauf& run, std::uint8_t code);

/// Sends TxBuffer 0 to `length`: enciphers it, writes it up to `tries` times (at least once), each time waiting for a
/// reply for `timeoutMs` (at least 4000) when `wait` is set. Keeps a log in HIST while it runs, and deletes it. The
/// reply handler follows 10 ms after a reply. False when the port could not be opened.
bool Net_Telegramm_Senden(Netzlauf& run, int length, bool wait, int timeoutMs, int tries);
/// Removes the record of a telegram, with an administrator code in it, that a killed program left behind.
void Sendelog_Entfernen(const Kern& kern);

/// Decodes a history block, the bytes of a reply from index 32 on: the checksum behind each 128 is left out, the carry
/// of the block before comes first. `counter` 1 opens a new file with the first record, and becomes 2. A record that
/// cannot be written sets HistoryLost, and so does one more than any lock can hold, with which the decoding ends.
void Net_Historie_Block(Netzlauf& run, std::span<const std::uint8_t> block, int& counter);

} // namespace qvm
