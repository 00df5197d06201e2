#pragma once

#include "Programmierlauf.h"

#include <cstdint>
#include <span>
#include <string_view>

/// The reply chain: what each reply of a device leads to.
namespace qvm {

/// A row of the reply chain. Rows are tried in order; the first whose code and condition match acts, and no other.
struct ReplyRow {
    std::uint8_t Code;
    std::string_view When;                     ///< the condition in words
    bool (*Condition)(const Programmierlauf&); ///< only reads
    void (*Step)(Programmierlauf&);            ///< sends at most one telegram
};

/// The condition of a row that always matches; no row of the same code may stand behind it.
bool Immer(const Programmierlauf& run);
/// The step of a row at which nothing happens.
void Ohne_Wirkung(Programmierlauf& run);
/// The step of a row at which a telegram goes out and nothing else happens.
template <bool (*Telegram)(Link&)>
void Senden(Programmierlauf& run) {
    Telegram(run.link);
}
/// The step of a row that leads to a window.
template <Hook<void()> WindowHooks::*Window>
void Zum_Fenster(Programmierlauf& run) {
    (run.Fenster.*Window)();
}

/// The reply chain but for refusals (Antwort_Tabelle.cpp).
std::span<const ReplyRow> Antwort_Tabelle();
/// The rows of a refusal, 0x69, by what went before and by the reason the device gave (Ablehnungen.cpp).
std::span<const ReplyRow> Ablehnung_Tabelle();
/// The row of the frame in RxBuffer; nullptr when its code, or its condition, is in none.
const ReplyRow* Antwort_Zeile(const Programmierlauf& run);

/// Whether a reply may act now. A late reply of a run that has ended or was cancelled must not go on with it: behind a
/// cancel only those that close the session act, without a run only what a window has asked for; a refusal, or the
/// result of a code change, that no device owes is noise then.
bool Antwort_Zulaessig(const Programmierlauf& run, std::uint8_t code);
/// Whether the reply chain goes anywhere at the frame in RxBuffer. What only windows ask for leads no run on, nor does
/// a sign of life, or a row that does nothing.
bool Antwort_Fuehrt_Weiter(const Programmierlauf& run);
/// True when the frame in RxBuffer, 0x6F, says that the user window may go on.
bool Leser_Fertig(const Link& link);
/// True when a login was accepted: the status byte lies inside the frame and is 4.
bool Anmeldung_Angenommen(const Link& link);

/// Takes the frame in RxBuffer: the run hears of it, its account, too. Gives the row whose step is to act, which is
/// another one than Antwort_Zeile's behind a cancel and where events would be lost; nullptr when none is.
const ReplyRow* Antwort_Annehmen(Programmierlauf& run);
/// The reply dispatcher: takes the frame in RxBuffer and acts on it. False when a cancel took it, so that nobody else
/// may look at it.
bool Antwort_Verteilen(Programmierlauf& run);

} // namespace qvm
