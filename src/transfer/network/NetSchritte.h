#pragma once

#include "Network_USB.h"
#include "TelegrammeNetz.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The parts that the telegrams of the network route are made of. Nothing outside the route includes this.
namespace qvm {

/// How far TxBuffer is cleared before a block, and before a short telegram.
inline constexpr int NetzClearBlock = 1360, NetzClearShort = 64;
/// End of the progress bar of a send.
inline constexpr int NetzBarMaximum = 38;

// Header and fields (NetKopf.cpp)
/// Clears TxBuffer 0 to `clear` and fills the header.
void Net_Kopf(Netzlauf& run, int block, int count, int length, std::uint8_t code, int clear);
/// A Byte or Word field; `base` is the frame index of the record that the field's offset counts from.
void Net_Feld(Link& link, const NetzFeld& field, unsigned value, int base = 0);
/// As many bytes as the field takes; what is missing stays as it is.
void Net_Feld(Link& link, const NetzFeld& field, std::span<const std::uint8_t> bytes, int base = 0);
void Net_Feld(Link& link, const NetzFeld& field, std::string_view text, int base = 0);
/// Fields of kind Fixed of a telegram.
void Net_Festes(Link& link, const NetzLayout& layout);

/// Frame index of payload byte `n`, counted without the checksums of the groups.
constexpr int Gruppen_Index(int n) {
    return NetzPayload + n / NetzGroup * NetzGroupStep + n % NetzGroup;
}
/// Writes the checksum behind each group of a payload of `bytes` bytes. Gives the index behind the last checksum.
int Gruppen_Summen(Link& link, int bytes);
/// Puts the frame checksum at index `length`.
void Rahmen_Summe(Link& link, int length);

// Blocks (NetBenutzer.cpp, NetFinger.cpp)
/// A user's record at frame index `base`.
void Net_Benutzer(Link& link, const ProgSlot& slot, int base);
/// Everything that the fingerprint blocks of the row will carry.
void Finger_Sammeln(Netzlauf& run);

// Transmission (NetSenden.cpp)
/// Closes a block with its frame checksum at index `length` and sends it.
bool Net_Block_Senden(Netzlauf& run, int length);
/// Progress of the bar with each telegram.
void Net_Balken(Netzlauf& run);

// Waiting (NetWarten.cpp)
/// Arms the network automaton anew.
void Net_Scharf(Netzlauf& run);
/// Limits the time of the present phase, and tells the limit. A phase that is limited already keeps its end: an adapter
/// that announces the same again and again gets no time by that.
void Net_Frist_Setzen(Netzlauf& run);
/// The time of the present phase is over.
bool Net_Frist_Vorbei(const Netzlauf& run);
/// Waits for what comes unasked, in rounds of 2000 ms, until the time of the phase is over.
void Net_Horchen(Netzlauf& run);
void Tick_Runde(Netzlauf& run);

// Replies (NetAntwort.cpp)
/// A frame of the network automaton has come.
void Net_Eingang(Netzlauf& run);
/// The reply handler.
void Tick_Timer3(Netzlauf& run);

// History (NetHistorie.cpp)
/// Stores the block of a reply 0x0C or, as the last one, 0x0D. One that is too short for a block, that does not follow
/// the one before it, or that ends inside a record sets HistoryLost.
void Historienblock_Ablegen(Netzlauf& run, std::span<const std::uint8_t> frame, bool last);

// The row (Network_USB.cpp)
/// Begins a row: what an earlier one left behind no longer counts.
void Net_Neubeginn(Netzlauf& run);
/// The lock is programmed. Units that the telegrams have no place for are named.
void Net_Zeile_Programmiert(Netzlauf& run);
/// Units of the lock that are present and have no place in the header.
std::vector<std::string> Units_Ohne_Platz(const Dataset& dataset);
/// The row has failed, with a text that no catalogue line says.
void Net_Zeile_Gescheitert(Netzlauf& run, RunOutcome end, const std::string& text);
/// The row is done; `step` is next.
void Net_Zeile_Fertig(Netzlauf& run, std::string_view mark, RunOutcome end, int line,
                      std::string_view step = StepPrgNextDataset);
/// History is there, the same row is to be programmed.
void Net_Zeile_Behalten(Netzlauf& run);
void Net_Stillstand(const Netzlauf& run, NetStandstill reason);

} // namespace qvm
