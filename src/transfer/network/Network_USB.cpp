#include "Network_USB.h"

#include "ListMark.h"
#include "Modelle.h"
#include "NetSchritte.h"
#include "Text.h"
#include "Words.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace qvm {
namespace {

/// A decimal byte that ends at "/" or at the end of the text; nothing when it is none.
std::optional<std::uint8_t> Adapterbyte(std::string_view& text) {
    const std::string_view piece = Trim(text.substr(0, text.find('/')));
    text.remove_prefix(std::min(text.find('/'), text.size()));
    std::uint8_t value = 0;
    const char* const end = piece.data() + piece.size();
    const auto [at, error] = std::from_chars(piece.data(), end, value);
    return error == std::errc() && at == end ? std::optional(value) : std::nullopt;
}

void Anzeige_Beginnen(Netzlauf& run) {
    run.BarValue = 0;
    run.Ansicht.Blinken(false);
    run.Ansicht.Status(Line::PleaseWait, 0);
    run.Ansicht.Balken(NetzBarMaximum, 0, true);
}

/// Nothing of the row is awaited any more.
void Ruhe(Netzlauf& run) {
    run.Phase = NetPhase::None;
    run.Timer3.Stop();
    run.Runde.Stop();
    run.Antworten.clear();
    run.link.UsbArmed = 0;
    run.link.UsbDone = 0;
    run.link.Rx.Ruecksetzen();
}

void Anzeige_Beenden(const Netzlauf& run) {
    run.Ansicht.Blinken(false);
    run.Ansicht.Balken(NetzBarMaximum, 0, false);
}

} // namespace

Netzlauf::Netzlauf(Link& serialLink, const Dataset& dataset)
    : link(serialLink), kern(serialLink.kern), Daten(dataset), Timer3(kern.Welt, 10), Runde(kern.Welt, 2000) {
    link.Netzwerk_Antwort = [this] { Net_Eingang(*this); };
    Timer3.Ticked = [this] { Tick_Timer3(*this); };
    Runde.Ticked = [this] { Tick_Runde(*this); };
}

Netzlauf::~Netzlauf() {
    link.Netzwerk_Antwort = nullptr;
}

std::optional<std::uint32_t> Adapter_Nummer(std::string_view text) {
    text = Trim(text);
    text.remove_prefix(text.starts_with('/') ? 1 : 0);
    std::uint32_t number = 0;
    for (int n = 0; n < 4; ++n) {
        if (n > 0 && text.empty()) {
            return std::nullopt;
        }
        text.remove_prefix(n > 0 ? 1 : 0);
        const auto byte = Adapterbyte(text);
        if (!byte) {
            return std::nullopt;
        }
        number = number << 8U | *byte;
    }
    return number;
}

void Adapter_Test(Netzlauf& run, std::initializer_list<std::string_view> texts) {
    // A row without such a text must not take the route of the row before.
    run.NetAdapter = DirectAdapterMark;
    for (const std::string_view text : texts) {
        if (const auto number = Adapter_Nummer(text)) {
            run.NetAdapter = Netzadapter(*number) ? NetAdapterMark : DirectAdapterMark;
            return;
        }
    }
}

void Net_Neubeginn(Netzlauf& run) {
    ++run.Number;
    run.Sending = run.Begun = false;
    run.FristPhase = NetPhase::None;
    run.LastTraffic = run.kern.Welt.Milliseconds();
    Ruhe(run);
}

void Net_Programmieren_Beginnen(Netzlauf& run) {
    Net_Neubeginn(run);
    run.BlocksTaken = 0;
    run.Started = false;
    Anzeige_Beginnen(run);
    const unsigned number = run.Number;
    if (!Net_Daten_Senden(run, 0, static_cast<int>(run.Daten.Slots.size())) && run.Number == number &&
        run.Phase == NetPhase::None) {
        Net_Zeile_Fertig(run, ListMark::PassedOver, RunOutcome::PassedOver, Line::RowUnknownError);
    }
}

void Net_Historie_Beginnen(Netzlauf& run) {
    Net_Neubeginn(run);
    RunState& lauf = run.link.Lauf;
    lauf.Chain.HistoryFileOpen = lauf.Chain.HistoryStop = 0;
    lauf.Chain.HistoryFileName.clear();
    lauf.Chain.HistoryLost = HistoryLoss::None;
    lauf.Chain.HistoryRecords = 0;
    run.HistoryBlocks = 0;
    run.HistoryBlock = 1;
    run.HistoryCounter = 1;
    run.Carry.clear();
    run.LastBlock.clear();
    Anzeige_Beginnen(run);
    Net_Historie_Anfordern(run, NetzCode::HistoryStart);
}

void Net_Abbrechen(Netzlauf& run) {
    Net_Neubeginn(run);
    Anzeige_Beenden(run);
}

void Net_Zeile_Fertig(Netzlauf& run, std::string_view mark, RunOutcome end, int line, std::string_view step) {
    run.End = end;
    Ruhe(run);
    Anzeige_Beenden(run);
    run.Ansicht.Zeile_Markieren(mark, line);
    run.Ansicht.Naechste_Zeile(step);
}

namespace {

/// The row is done, with a text of its own.
void Zeile_Melden(Netzlauf& run, std::string_view mark, RunOutcome end, const std::string& text) {
    run.End = end;
    Ruhe(run);
    Anzeige_Beenden(run);
    run.Ansicht.Zeile_Melden(mark, text);
    run.Ansicht.Naechste_Zeile(StepPrgNextDataset);
}

} // namespace

void Net_Zeile_Gescheitert(Netzlauf& run, RunOutcome end, const std::string& text) {
    Zeile_Melden(run, ListMark::Failed, end, text);
}

RunOutcome Net_Fehlschlag(const Netzlauf& run) {
    const bool lost = run.link.Lauf.Chain.HistoryLost != HistoryLoss::None;
    return lost ? RunOutcome::GivenUp : RunOutcome::NotReached;
}

void Net_Zeile_Programmiert(Netzlauf& run) {
    const std::vector<std::string> left = Units_Ohne_Platz(run.Daten);
    if (left.empty()) {
        Net_Zeile_Fertig(run, ListMark::Programmed, RunOutcome::Done, Line::Programmed);
        return;
    }
    std::string names;
    for (const std::string& name : left) {
        names += (names.empty() ? "" : ", ") + name;
    }
    Zeile_Melden(run, ListMark::Programmed, RunOutcome::Done,
                 run.kern.Zeile(Line::Programmed) + " - " + Wort(run.kern, Word::NetUnitsLeft, {names}));
}

void Net_Zeile_Behalten(Netzlauf& run) {
    Ruhe(run);
    Anzeige_Beenden(run);
    run.End = RunOutcome::Done;
    run.Ansicht.Zeile_Markieren(ListMark::HistoryRead, Line::HistoryRead);
    run.Ansicht.Programmieren_Planen();
}

void Net_Stillstand(const Netzlauf& run, NetStandstill reason) {
    run.Ansicht.Stillstand(reason);
}

int Datensatz_Statuszeile(int status) {
    switch (status) {
    case DatasetStatus::Good:
        return Line::RowChecked;
    case DatasetStatus::TooManyUsers:
        return Line::RowTooManyUsers;
    case DatasetStatus::TooManyPremium:
        return Line::RowTooManyPremium;
    case DatasetStatus::NoTemplate:
        return Line::RowTemplateMissing;
    case DatasetStatus::Other:
        return Line::RowNotBuilt;
    default:
        return Line::RowUnknownError;
    }
}

} // namespace qvm
