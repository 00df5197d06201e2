#include "ChannelScan.h"

#include "AntwortLayouts.h"
#include "Laufbedingungen.h"
#include "SeriellesProtokoll.h"
#include "TelegrammeSitzung.h"

#include <algorithm>
#include <cstddef>

namespace qvm {
namespace {

constexpr std::uint8_t UnitListMark = 0xAD, SearchMark = 1;
/// Type of a unit that TelUnitSuche finds, as only keypads answer it.
constexpr std::uint8_t Keypad = 6;
/// Where an accepted login tells signal and type.
constexpr int SignalIndex = RpUnitGefunden::Signal.Offset, TypeIndex = RpUnitGefunden::Address3.Offset;

bool Adapter_Weg(const ChannelScan& scan) {
    return !scan.run.kern.Welt.Port.IsOpen() || scan.Adapter.Stand != scan.Stand;
}

void Marken_Loeschen(ChannelScan& scan) {
    ChainState& chain = Kette(scan.run);
    chain.SuchMarke = chain.SuchLauf = 0;
    chain.KanalIndex = 0;
    chain.LaufZiel.clear();
    scan.run.link.AddressMode = 0;
    scan.run.link.AnswerDue = 0;
}

void Beenden(ChannelScan& scan, ScanEnd how) {
    scan.Uhr.Stop();
    // The last channel of a whole scan has had its time.
    scan.Zweifel = how == ScanEnd::Done ? 0 : scan.Zweifel + (scan.Gefragt ? 1 : 0);
    scan.Ende = scan.run.kern.Welt.Milliseconds();
    scan.Laeuft = scan.Gefragt = false;
    Marken_Loeschen(scan);
    Geheimnisse_Vergessen(scan.run.link);
    if (how != ScanEnd::Done) {
        scan.Funde = {};
    }
    scan.Beendet(how);
}

/// The adapter goes to the channel; the channel is asked when it is there.
void Kanal_Einstellen(ChannelScan& scan) {
    Link& link = scan.run.link;
    scan.Gefragt = false;
    link.TargetAddress = {};
    link.AddressMode = 0;
    link.TargetChannel = static_cast<std::uint8_t>(scan.Kanal());
    if (Adapter_Weg(scan) || !TelAdapterKanal_Senden(link)) {
        Beenden(scan, ScanEnd::Pulled);
        return;
    }
    scan.Uhr.Start(ChannelScan::TuneMs);
}

void Fragen(ChannelScan& scan) {
    Link& link = scan.run.link;
    const bool sent = scan.Weg == ScanWay::Units ? TelUnitSuche_Senden(link) : TelVerbinden_Senden(link);
    if (!sent) {
        Beenden(scan, ScanEnd::Pulled);
        return;
    }
    scan.Gefragt = true;
    scan.Uhr.Start(ChannelScan::AnswerMs);
}

void Naechster_Kanal(ChannelScan& scan) {
    scan.Verworfen = 0;
    scan.Doppelt = false;
    ChainState& chain = Kette(scan.run);
    ++chain.KanalIndex;
    if (chain.KanalIndex >= UnitScan::Channels) {
        Beenden(scan, ScanEnd::Done);
        return;
    }
    scan.Fortschritt();
    Kanal_Einstellen(scan);
}

void Schritt(ChannelScan& scan) {
    scan.Uhr.Stop();
    if (Adapter_Weg(scan)) {
        Beenden(scan, ScanEnd::Pulled);
    } else if (!scan.Gefragt) {
        Fragen(scan);
    } else {
        scan.run.link.AnswerDue = 0;
        ++scan.Zweifel;
        Naechster_Kanal(scan);
    }
}

bool Wie_Kanal_Davor(const ChannelScan& scan, const ScanEntry& found) {
    const ScanEntry& before = scan.Funde.Entries[static_cast<std::size_t>(scan.Kanal() - 1)];
    return before.Status != ScanEntry::Nothing && before.Serial == found.Serial;
}

/// The answer may be one to an earlier question.
bool Zweifelhaft(ChannelScan& scan, const std::optional<ScanEntry>& found) {
    if (scan.Verworfen < scan.Zweifel) {
        return true;
    }
    if (!found || scan.Doppelt || !Wie_Kanal_Davor(scan, *found)) {
        return false;
    }
    // Nobody was waited for who would have said it. So the answer to the question itself is still to come.
    scan.Doppelt = true;
    ++scan.Zweifel;
    return true;
}

/// The channel has answered; nothing: it is empty.
void Antwort(ChannelScan& scan, const std::optional<ScanEntry>& found) {
    if (!scan.Laeuft || !scan.Gefragt) {
        return;
    }
    scan.Uhr.Stop();
    if (Zweifelhaft(scan, found)) {
        ++scan.Verworfen;
        Kanal_Einstellen(scan);
        return;
    }
    if (found) {
        scan.Funde.Entries[static_cast<std::size_t>(scan.Kanal())] = *found;
    }
    Naechster_Kanal(scan);
}

/// Who answered. Nothing when the reply is too short to say it.
std::optional<ScanEntry> Fund(const Link& link) {
    if (link.Rx.RxLength < RpUnitGefunden::Reply.L) {
        return std::nullopt;
    }
    ScanEntry entry{.Status = ScanEntry::Well, .Serial = {}, .Signal = link.RxByte(SignalIndex), .Type = Keypad};
    for (std::size_t n = 0; n < entry.Serial.size(); ++n) {
        entry.Serial[n] = link.RxByte(RpUnitGefunden::Serial.Offset + static_cast<int>(n));
    }
    return entry;
}

void Login_Beantwortet(ChannelScan& scan) {
    const Link& link = scan.run.link;
    auto found = link.RxByte(2) == RpVerbunden::Reply.Code ? Fund(link) : std::nullopt;
    if (found) {
        found->Type = link.RxByte(TypeIndex);
    }
    Antwort(scan, found);
}

/// How many answers may still come to what was asked before the scan. A login that nobody waits for any more is over
/// with that.
int Offene_Fragen(ChannelScan& scan) {
    Link& link = scan.run.link;
    const bool late = scan.run.kern.Welt.Milliseconds() - scan.Ende < ChannelScan::LateMs;
    int open = late ? scan.Zweifel : 0;
    if (link.AnswerWithdrawn == TelVerbinden::Telegram.Code) {
        link.AnswerWithdrawn = 0;
        open = std::max(open, 1);
    }
    return open;
}

} // namespace

ChannelScan::ChannelScan(Programmierlauf& programmierlauf, const AdapterListe& adapters)
    : run(programmierlauf), Adapter(adapters), Uhr(programmierlauf.kern.Welt, TuneMs) {
    Uhr.Ticked = [this] { Schritt(*this); };
    run.Fenster.Unit_Gefunden = [this] { Antwort(*this, Fund(run.link)); };
    run.Fenster.Unit_Kanal_Leer = [this] { Antwort(*this, std::nullopt); };
    run.Fenster.Suchlauf_Schritt = [this] { Login_Beantwortet(*this); };
}

int ChannelScan::Kanal() const {
    return Laeuft ? Kette(run).KanalIndex + 1 : 0;
}

bool Kanaele_Absuchen(ChannelScan& scan, ScanWay way, const RunOrder& order, std::string_view caller) {
    Programmierlauf& run = scan.run;
    if (scan.Laeuft || !run.Gesamtende || Kette(run).Phase != RunPhase::None) {
        return false;
    }
    Lauf_Ruecksetzen(run);
    run.link.Lauf.Order = order;
    run.link.Rx.Ruecksetzen();
    Marken_Loeschen(scan);
    ChainState& chain = Kette(run);
    chain.LaufZiel = caller;
    if (way == ScanWay::Units) {
        chain.SuchMarke = UnitListMark;
    } else {
        chain.SuchLauf = SearchMark;
    }
    scan.Funde = {};
    scan.Weg = way;
    scan.Stand = scan.Adapter.Stand;
    scan.Zweifel = Offene_Fragen(scan);
    scan.Verworfen = 0;
    scan.Doppelt = false;
    scan.Laeuft = true;
    if (!run.kern.Welt.Port.IsOpen() && !Port_Neu(run.link)) {
        Beenden(scan, ScanEnd::NoPort);
        return true;
    }
    scan.Fortschritt();
    Kanal_Einstellen(scan);
    return true;
}

void Absuchen_Abbrechen(ChannelScan& scan) {
    if (scan.Laeuft) {
        Beenden(scan, ScanEnd::Cancelled);
    }
}

void Funde_Vergessen(ChannelScan& scan) {
    scan.Funde = {};
}

} // namespace qvm
