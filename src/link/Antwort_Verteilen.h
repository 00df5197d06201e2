#pragma once

#include "Link.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace qvm {

/// A row of the reply chain. Rows are tried in order; the first whose code and condition match acts, and no other.
struct ReplyRow {
    std::uint8_t Code;
    std::string_view When;          ///< the condition in words
    bool (*Condition)(const Link&); ///< only reads
    void (*Action)(Link&);          ///< sends at most one telegram, or calls one hook
};

/// The condition of a row that always matches; no row of the same code may stand behind it.
bool Immer(const Link& link);
/// The action of a row at which nothing happens.
void Ohne_Wirkung(Link& link);

/// The whole reply chain.
std::span<const ReplyRow> Antwort_Tabelle();
/// The rows of reply 0x69, by what went before and by the reason the device gave.
std::span<const ReplyRow> Ablehnung_Tabelle();

/// Whether a reply may act now. A late reply of a run that has ended or was cancelled must not go on with it: behind a
/// cancel only those that close the session act, without a run only what a window has asked for; a refusal, or the
/// result of a code change, that no device owes is noise then.
bool Antwort_Zulaessig(const Link& link, std::uint8_t code);
/// The reply, or refusal, that came answers the last telegram: nothing is due any more.
void Antwort_Abhaken(Link& link, std::uint8_t code);
/// Whether the reply chain goes anywhere at the frame in RxBuffer. What only windows ask for leads no run on, nor does
/// a sign of life, or a row that does nothing.
bool Antwort_Fuehrt_Weiter(const Link& link);
/// True when a login was accepted: the status byte lies inside the frame and is 4.
bool Anmeldung_Angenommen(const Link& link);
/// History is read in this run, first or only.
bool Historie_Gewuenscht(const Link& link);
/// Events are wanted and not all there yet, or are lost: nothing may be programmed or erased.
bool Historie_Aussteht(const Link& link);
/// What follows a login: the clock, else the history, else the erase telegram.
void Nach_Verbunden(Link& link);
/// TelTrennen to a device that may not let itself be disconnected: at the 40th time the run gives up.
void Noch_Einmal_Trennen(Link& link);
/// Ends the session as a cancel does: with TelTrennen, in place of whatever would follow.
void Abbruch_Ausfuehren(Link& link);
/// The closing telegram of a cancel alone; nobody is told of it.
void Sitzung_Schliessen(Link& link);
/// TelDatenStart to a lock; starts the polling where the lock wants it.
void Datenstart_Senden(Link& link);
/// The timer tables, or the calendars for a lock without them.
void Zeit_Tabellen_Start(Link& link);

} // namespace qvm
