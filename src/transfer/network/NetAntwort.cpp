#include "Historie.h"
#include "ListMark.h"
#include "NetSchritte.h"
#include "Text.h"
#include "Words.h"

#include <algorithm>

namespace qvm {
namespace {

using Frame = std::span<const std::uint8_t>;

constexpr std::uint8_t HistoryAndProgram = 0xFF;

/// Replies that come at once are handled in their order; more than these are a flood.
constexpr std::size_t MostReplies = 8;

std::uint8_t Byte(Frame frame, const NetzFeld& field) {
    return field.Offset < frame.size() ? frame[field.Offset] : std::uint8_t{0};
}

enum class Whose { Unknown, Ours, Foreign };

/// Whose row a reply is of, by the serial in its header. A reply of a row that was given up may come at any time; one
/// without a serial is taken as it was before adapters named it.
Whose Wessen(const Netzlauf& run, Frame frame) {
    Address serial{};
    std::copy_n(frame.begin() + NetzKopf::Serial.Offset, serial.size(), serial.begin());
    return serial == Address{}                         ? Whose::Unknown
           : serial == run.link.Lauf.Order.LockAddress ? Whose::Ours
                                                       : Whose::Foreign;
}

/// Whether a reply means anything at this point of the row. One that does not leaves everything as it was.
bool Gilt(const Netzlauf& run, Frame frame) {
    if (frame.size() < static_cast<std::size_t>(NetzKopf::Code.End()) || Wessen(run, frame) == Whose::Foreign) {
        return false;
    }
    switch (Byte(frame, NetzKopf::Code)) {
    case NetzCode::HistoryFetching:
        return run.Phase == NetPhase::History;
    case NetzCode::HistoryBlock:
    case NetzCode::HistoryLast:
        return run.Phase == NetPhase::History &&
               !std::equal(frame.begin(), frame.end(), run.LastBlock.begin(), run.LastBlock.end());
    case NetzCode::Data:
        return run.Phase == NetPhase::Data && Byte(frame, NetzKopf::Block) == run.BlockNumber;
    case NetzCode::DataTaken:
        // Not before all of them went out.
        return run.Phase == NetPhase::Data && run.BlockNumber == run.DataBlocks;
    case NetzCode::Finger:
    case NetzCode::FingerTaken:
        return run.Phase == NetPhase::Fingers;
    case NetzCode::Programming:
        return run.Phase == NetPhase::Clock;
    case NetzCode::Programmed:
        return run.Phase == NetPhase::Clock || run.Phase == NetPhase::Result;
    case NetzCode::NotReached:
        return run.Phase != NetPhase::None;
    default:
        return false;
    }
}

void Status(const Netzlauf& run, int line) {
    run.Ansicht.Status(line, Line::PleaseWait);
    run.Ansicht.Blinken(true);
}

/// The row's records are in their file, or the row has failed.
void Historie_Fertig(Netzlauf& run) {
    run.Carry.clear();
    const RunState& lauf = run.link.Lauf;
    Historie_Sichern(run.link);
    if (lauf.Chain.HistoryLost != HistoryLoss::None) {
        // Programming can erase the events of the lock.
        if (lauf.Chain.HistoryLost == HistoryLoss::Unwritten) {
            Net_Zeile_Fertig(run, ListMark::Failed, RunOutcome::GivenUp, Line::HistoryNotSaved);
        } else {
            Net_Zeile_Gescheitert(run, RunOutcome::GivenUp, Historie_Verlust_Text(run.kern, lauf.Chain.HistoryLost));
        }
    } else if (lauf.List.NetMode == HistoryAndProgram) {
        Net_Zeile_Behalten(run);
    } else {
        Net_Zeile_Fertig(run, ListMark::HistoryRead, RunOutcome::Done, Line::HistoryRead, StepNexHstRead);
    }
}

/// The next block, or the end of a reading that has become useless.
void Nach_Historienblock(Netzlauf& run) {
    const HistoryLoss lost = run.link.Lauf.Chain.HistoryLost;
    if (lost == HistoryLoss::Broken || lost == HistoryLoss::Endless) {
        Historie_Fertig(run);
    } else if (Net_Frist_Vorbei(run)) {
        Net_Stillstand(run, NetStandstill::TooLong);
    } else {
        Net_Historie_Anfordern(run, NetzCode::HistoryBlock);
    }
}

/// The adapter says that the lock is programmed. That proves it only when the adapter has taken everything, and has
/// said that it begins or names the lock: without either it may be the end of the row before.
void Programmierung_Fertig(Netzlauf& run, Frame frame) {
    const bool ours = run.Started || Wessen(run, frame) == Whose::Ours;
    if (ours && run.BlocksTaken == run.BlockCount) {
        Net_Zeile_Programmiert(run);
    } else {
        const int taken = run.BlocksTaken + (run.Started ? 1 : 0); // the clock starts the programming
        Net_Zeile_Gescheitert(run, RunOutcome::Incomplete,
                              Wort(run.kern, Word::NetMissing, {Ziffern(taken), Ziffern(run.BlockCount + 1)}));
    }
}

void Programmierung_Beginnt(Netzlauf& run) {
    run.Phase = NetPhase::Result;
    run.Started = true;
    run.BarValue = 0;
    run.Ansicht.Balken(NetzBarMaximum, 0, true);
    Status(run, Line::ProgrammingLock);
    Net_Horchen(run);
}

/// The next fingerprint block, or the clock behind the last.
void Nach_Daten(Netzlauf& run) {
    if (run.TemplateBytes > 0) {
        Net_Fingerprint_Senden(run);
    } else {
        Net_Uhrzeit_Senden(run);
    }
}

void Block_Genommen(Netzlauf& run) {
    run.BlocksTaken = run.BlockNumber;
    if (run.BlockNumber < run.DataBlocks) {
        Net_Daten_Senden(run, 1, static_cast<int>(run.Daten.Slots.size()));
    } else {
        Net_Horchen(run);
    }
}

void Behandeln(Netzlauf& run, Frame frame) {
    switch (Byte(frame, NetzKopf::Code)) {
    case NetzCode::HistoryFetching:
        Status(run, Line::ReadingHistory);
        Net_Horchen(run);
        break;
    case NetzCode::HistoryBlock:
        Historienblock_Ablegen(run, frame, false);
        Nach_Historienblock(run);
        break;
    case NetzCode::HistoryLast:
        Historienblock_Ablegen(run, frame, true);
        Historie_Fertig(run);
        break;
    case NetzCode::Data:
        Block_Genommen(run);
        break;
    case NetzCode::DataTaken:
    case NetzCode::Finger:
        run.BlocksTaken = run.BlockNumber;
        Nach_Daten(run);
        break;
    case NetzCode::FingerTaken:
        run.BlocksTaken = run.BlockNumber;
        Net_Uhrzeit_Senden(run);
        break;
    case NetzCode::Programming:
        Programmierung_Beginnt(run);
        break;
    case NetzCode::Programmed:
        Programmierung_Fertig(run, frame);
        break;
    default:
        Net_Zeile_Fertig(run, ListMark::Failed, Net_Fehlschlag(run), Line::ConnectionFailed);
        break;
    }
}

} // namespace

void Net_Eingang(Netzlauf& run) {
    if (run.Phase == NetPhase::None) {
        return;
    }
    // More may follow unasked, before the handler's turn.
    run.link.UsbArmed = UsbArmedMark;
    const Frame frame = run.link.RxFrame();
    if (Gilt(run, frame) && run.Antworten.size() < MostReplies) {
        run.LastTraffic = run.kern.Welt.Milliseconds();
        run.Antworten.emplace_back(frame.begin(), frame.end());
        run.Timer3.Start(10);
    } else if (run.Antworten.empty()) {
        run.link.UsbDone = 0;
    }
}

void Tick_Timer3(Netzlauf& run) {
    run.Timer3.Stop();
    // A telegram that was sent starts the timer again for its own reply.
    while (!run.Sending && !run.Timer3.Running() && !run.Antworten.empty()) {
        const std::vector<std::uint8_t> frame = std::move(run.Antworten.front());
        run.Antworten.pop_front();
        run.link.UsbDone = 0;
        if (Gilt(run, frame)) {
            run.Ansicht.Weiter();
            Behandeln(run, frame);
        }
    }
}

} // namespace qvm
