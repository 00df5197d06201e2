#include "Antwort_Verteilen.h"

#include "Historienkette.h"
#include "Laufbedingungen.h"
#include "Laufschritte.h"
#include "Modelle.h"
#include "Telegramme.h"

#include <algorithm>

namespace qvm {
namespace {

constexpr std::uint8_t CodeChange = TelCodeAendern::Telegram.Code, Refusal = RpAblehnung::Reply.Code;
constexpr std::uint8_t Login = TelVerbinden::Telegram.Code;
constexpr std::uint8_t UnitFound = 0x4B, EraseStart = TelDatenStart::Telegram.Code;
constexpr std::uint8_t LoginAccepted = 4;
constexpr std::uint8_t FingerEnrolled = 0x0A, UserWindowMayGoOn = 0xDC;
/// From here on replies belong to windows, and to the adapter itself.
constexpr std::uint8_t FirstOfWindows = 0x60;

/// What leads elsewhere than the tables say.
constexpr ReplyRow CancelWished{0, "a cancel was wished", Immer, Abbruch_Ausfuehren};
constexpr ReplyRow EventsInDanger{0, "events are wanted and not all there", Immer, Historie_Gebrochen};

/// A window without a run waits for this reply of the chain.
bool Fenster_Wartet(const Programmierlauf& run, std::uint8_t code) {
    const ChainState& chain = Kette(run);
    const std::uint8_t owed = run.link.AnswerDue;
    // A scan of the channels, too, must be led nowhere by what it has not asked for.
    if (Kanalwechsel(run) || chain.SuchLauf != 0 || chain.SuchMarke != 0) {
        return owed != 0 && (code == owed || code == Refusal);
    }
    return chain.CodeChangePending != 0 && (code == Login || code == Refusal);
}

/// A lock that has just acknowledged its erasing hears nothing: a cancel waits until it answers the polling.
bool Taub(const Programmierlauf& run, std::uint8_t code) {
    return code == EraseStart && run.link.TxBuffer[2] == code && !Blocktransfer(run) &&
           Datenstart_Antwort_Wartet(run.link.Lauf.Order.SerialValue);
}

/// The device that the run is with is not silent: the frame leads on, or is what the last telegram asked for. What a
/// polled lock says leads on only with the next tick.
bool Bricht_Stille(const Programmierlauf& run, std::uint8_t code) {
    const Link& link = run.link;
    const bool polled =
        link.TxBuffer[2] == TelLebenszeichen::Telegram.Code && (code == 0x06 || code == 0x08 || code == EraseStart);
    return polled || (link.AnswerDue != 0 && code == link.AnswerDue) || Antwort_Fuehrt_Weiter(run);
}

/// The reply, or refusal, that came answers the last telegram: nothing is due any more. A refusal without a meaning
/// answers nothing.
void Antwort_Abhaken(Link& link, std::uint8_t code, const ReplyRow& row) {
    const std::uint8_t due = link.AnswerDue;
    const bool key = due == TelEKeyLesen::Telegram.Code && code == RpEKey::Reply.Code;
    const bool transponder =
        due == TelFingerAbfrage::Telegram.Code && code == RpKarte::Reply.Code && Leser_Fertig(link);
    // An enrolment has many answers.
    const bool swipe = code == RpFingerStatus::Reply.Code && link.RxByte(RpFingerStatus::Step.Offset) != FingerEnrolled;
    const bool refused = code == Refusal && row.Step != Ohne_Wirkung;
    if ((code == due && !swipe) || refused || key || transponder) {
        link.AnswerDue = 0;
    }
}

/// The account looks at each frame before the chain acts on it.
void Konto_Fuehren(Programmierlauf& run) {
    if (run.Gesamtende || run.Cancelled) {
        return;
    }
    constexpr std::uint8_t login = 0x04, block = 0x4A;
    const Link& link = run.link;
    const std::uint8_t code = link.RxByte(2);
    Konto_Antwort(run.Konto, {.Code = code,
                              .Leads = Antwort_Fuehrt_Weiter(run),
                              .Accepted = code == login ? Anmeldung_Angenommen(link)
                                                        : code != block || Block_Angenommen(link.RxByte(StatusIndex)),
                              .Slot = link.RxByte(StatusIndex) * 256 + link.RxByte(StatusIndex + 1)});
}

} // namespace

bool Immer(const Programmierlauf& /*run*/) {
    return true;
}

void Ohne_Wirkung(Programmierlauf& /*run*/) {}

const ReplyRow* Antwort_Zeile(const Programmierlauf& run) {
    const std::uint8_t code = run.link.Rx.RxBuffer[2];
    const std::span<const ReplyRow> rows = code == Refusal ? Ablehnung_Tabelle() : Antwort_Tabelle();
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const ReplyRow& candidate) {
        return candidate.Code == code && candidate.Condition(run);
    });
    return row != rows.end() ? &*row : nullptr;
}

bool Antwort_Zulaessig(const Programmierlauf& run, std::uint8_t code) {
    const RunPhase phase = Kette(run).Phase;
    // In a run each of them counts, be it only as the wrong answer.
    if (phase == RunPhase::Open || (code >= FirstOfWindows && code != Refusal)) {
        return true;
    }
    if (phase == RunPhase::Closing) {
        return code == 0x03 || code == 0x05 || code == Refusal;
    }
    const std::uint8_t owed = run.link.AnswerDue;
    const bool due = code == Refusal ? owed != 0 : code == CodeChange && owed == CodeChange;
    return due || Fenster_Wartet(run, code);
}

bool Antwort_Fuehrt_Weiter(const Programmierlauf& run) {
    const std::uint8_t code = run.link.Rx.RxBuffer[2];
    if (code != Refusal && (code >= FirstOfWindows || code == CodeChange || code == UnitFound)) {
        return false;
    }
    const ReplyRow* row = Antwort_Zeile(run);
    return row != nullptr && row->Step != Ohne_Wirkung && row->Step != Schritt_Puffer_Leeren &&
           row->Step != Schritt_Lebenszeichen;
}

bool Leser_Fertig(const Link& link) {
    return link.RxByte(RpKarte::SubCode.Offset) == UserWindowMayGoOn;
}

bool Anmeldung_Angenommen(const Link& link) {
    return link.Rx.RxLength + 1 >= StatusIndex && link.RxByte(StatusIndex) == LoginAccepted;
}

const ReplyRow* Antwort_Annehmen(Programmierlauf& run) {
    ChainState& chain = Kette(run);
    const std::int64_t now = run.kern.Welt.Milliseconds();
    const std::uint8_t code = run.link.Rx.RxBuffer[2];
    if (chain.AbbruchWunsch != 0 && !Taub(run, code)) {
        chain.LastAnswer = now;
        return &CancelWished;
    }
    if (!Antwort_Zulaessig(run, code)) {
        return nullptr;
    }
    if (Bricht_Stille(run, code)) {
        chain.LastAnswer = now;
    }
    Konto_Fuehren(run);
    if (Gefaehrdet_Ereignisse(run, code)) {
        return &EventsInDanger;
    }
    const ReplyRow* row = Antwort_Zeile(run);
    if (row != nullptr) {
        Antwort_Abhaken(run.link, code, *row);
    }
    return row;
}

bool Antwort_Verteilen(Programmierlauf& run) {
    const ReplyRow* row = Antwort_Annehmen(run);
    if (row != nullptr) {
        row->Step(run);
    }
    return row != &CancelWished;
}

} // namespace qvm
