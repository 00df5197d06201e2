// What a network adapter does on its own is waited for, but not for ever.

#include "NetSchritte.h"

namespace qvm {
namespace {

constexpr int RoundMs = 2000;
constexpr std::int64_t Minute = 60000;

} // namespace

void Net_Scharf(Netzlauf& run) {
    run.link.Rx.Ruecksetzen();
    run.link.UsbDone = 0;
    run.link.UsbArmed = UsbArmedMark;
}

void Net_Frist_Setzen(Netzlauf& run) {
    if (run.FristPhase == run.Phase) {
        return;
    }
    run.FristPhase = run.Phase;
    run.FristMinuten = run.Phase == NetPhase::Result ? NetResultMinutes : NetOtherMinutes;
    run.FristEnde = run.kern.Welt.Milliseconds() + run.FristMinuten * Minute;
    run.Ansicht.Frist(run.FristMinuten);
}

bool Net_Frist_Vorbei(const Netzlauf& run) {
    return run.FristPhase == run.Phase && run.kern.Welt.Milliseconds() >= run.FristEnde;
}

void Net_Horchen(Netzlauf& run) {
    Net_Frist_Setzen(run);
    run.RoundIndex = 0;
    // An armed automaton may stand in the middle of the next frame.
    if (run.link.UsbArmed != UsbArmedMark) {
        Net_Scharf(run);
    }
    if (!run.Runde.Running()) { // the rounds go on below replies that come faster than they do
        run.Runde.Start(RoundMs);
    }
}

void Tick_Runde(Netzlauf& run) {
    const bool open = run.kern.Welt.Port.IsOpen();
    if (!open || Net_Frist_Vorbei(run)) {
        run.Runde.Stop();
        Net_Stillstand(run, open ? NetStandstill::TooLong : NetStandstill::PortLost);
        return;
    }
    // A frame with a bad checksum has ended the armed state; half a frame would swallow the next one.
    const int index = run.link.Rx.RxIndex;
    const bool stuck = index > 0 && index == run.RoundIndex;
    run.RoundIndex = index;
    if (run.Antworten.empty() && (stuck || run.link.UsbArmed != UsbArmedMark)) {
        Net_Scharf(run);
    }
}

std::int64_t Net_Stille(const Netzlauf& run) {
    return run.kern.Welt.Milliseconds() - run.LastTraffic;
}

} // namespace qvm
