#pragma once

#include "AdapterListe.h"
#include "Programmierlauf.h"
#include "Timer.h"
#include "UnitScan.h"

#include <cstdint>
#include <optional>
#include <string_view>

/// The scans of the radio channels, without a run: who listens on which of them.
namespace qvm {

/// What is asked on each channel.
enum class ScanWay : std::uint8_t {
    Units,  ///< TelUnitSuche, which wireless units answer
    Logins, ///< a login that names no device, which locks answer, too
};

enum class ScanEnd : std::uint8_t {
    Done,      ///< all channels were asked
    Cancelled, ///< by the operator
    NoPort,    ///< the port could not be opened; nothing was sent
    Pulled,    ///< the adapter is gone, or the ports were determined anew
};

/// A scan: the adapter is sent to a channel, half a second later the channel is asked, and the answer, or a while
/// without one, leads to the next. All of that by a timer and the reply chain; nothing in here waits.
struct ChannelScan {
    /// Takes the run's hooks of searches for itself.
    ChannelScan(Programmierlauf& programmierlauf, const AdapterListe& adapters);

    /// How long the adapter may take to go to a channel: its own wait, then one tick. Milliseconds.
    static constexpr int TuneMs = 400 + 100;
    /// How long a channel may be silent before it counts as empty.
    static constexpr int AnswerMs = 3000;
    /// Behind a scan that was broken off, what it has asked may be answered for so long.
    static constexpr int LateMs = 36000;

    Programmierlauf& run;
    const AdapterListe& Adapter;
    UnitScan Funde; ///< what has answered so far, and stays there behind ScanEnd::Done

    Hook<void()> Fortschritt;        ///< a channel begins; see Kanal
    Hook<void(ScanEnd how)> Beendet; ///< the scan is over, and nothing of it is left in the link

    /// The channel that is asked, 1 to 12; 0: there is no scan.
    int Kanal() const;

    Timer Uhr; ///< of the present step
    bool Laeuft = false;
    bool Gefragt = false;  ///< the channel was asked; else the adapter is still on its way to it
    int Zweifel = 0;       ///< so many answers to earlier questions may still come, and count for no other channel
    int Verworfen = 0;     ///< answers to the present channel that counted nothing for that reason
    bool Doppelt = false;  ///< one of them, as it gave the serial number of the channel before
    std::int64_t Ende = 0; ///< of the last scan, Platform::Milliseconds
    int Stand = 0;         ///< of the list of adapters, when the scan began
    ScanWay Weg = ScanWay::Units;
};

/// Begins a scan from channel 1 on the port that is open. What an earlier scan has found is gone. Does nothing while a
/// run, or another scan, is on; false then.
/// @param order the administrator code of a scan by logins; who is scanned for, for windows that tell it
/// @param caller the mark of the window that wants it, ChainState::LaufZiel; may be empty
bool Kanaele_Absuchen(ChannelScan& scan, ScanWay way, const RunOrder& order, std::string_view caller);
/// The operator's cancel: takes effect at once, and what was found is gone. Does nothing without a scan.
void Absuchen_Abbrechen(ChannelScan& scan);
/// What the last scan has found is not wanted any more.
void Funde_Vergessen(ChannelScan& scan);

} // namespace qvm
