#include "Tischsitzung.h"

#include "AdapterKunde.h"
#include "Programmstart.h"
#include "Takt.h"
#include "Timer.h"
#include "Words.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>
#include <utility>

namespace qvm {

std::string_view TischEnde_Wort(TischEnde end) {
    switch (end) {
    case TischEnde::Done:
        return "done";
    case TischEnde::Refused:
        return "refused";
    case TischEnde::Silent:
        return "silent";
    case TischEnde::Cancelled:
        return "cancelled";
    case TischEnde::Fault:
        break;
    }
    return "fault";
}

ExitCode TischEnde_Code(TischEnde end) {
    switch (end) {
    case TischEnde::Done:
        return ExitCode::Good;
    case TischEnde::Refused:
        return ExitCode::Refused;
    case TischEnde::Silent:
    case TischEnde::Cancelled:
        return ExitCode::NotReached;
    case TischEnde::Fault:
        break;
    }
    return ExitCode::Fault;
}

Tischsitzung::Tischsitzung(const Umgebung& world, const Console& console, const Optionen& options,
                           std::string_view word)
    : program(world.Welt, world.AppPath), world_(world), console_(console), options_(options), word_(word) {}

Tischsitzung::~Tischsitzung() {
    if (shownBefore_) {
        program.kern.Welt.ShowMessage = *shownBefore_;
    }
    if (program.kern.Welt.Port.IsOpen()) {
        program.kern.Welt.Port.SetRts(false);
        program.kern.Welt.Port.Close();
    }
}

std::optional<ExitCode> Tischsitzung::Beginnen() {
    if (const std::string why = world_.Datenverzeichnis_Fehler(); !why.empty()) {
        return Fehlschlag(why);
    }
    if (const std::string why = Programm_Beginnen(program, world_); !why.empty()) {
        return Fehlschlag(why);
    }
    if (!options_.Trace.empty() && !trace_.Oeffnen(options_.Trace, world_.Welt.Now())) {
        return Fehlschlag("The trace file " + options_.Trace + " cannot be written.");
    }
    program.link.Protokoll = [this](const TraceFrame& frame) {
        trace_.Schreiben(frame);
        if (frame.Way == TraceFrame::Direction::Received) {
            lastFrame_ = world_.Welt.Milliseconds();
        }
    };
    return std::nullopt;
}

bool Tischsitzung::Adapter_Suchen() {
    // The kind of the adapter at a fixed port decides what can be asked of it.
    return Adapter_Kennenlernen(program, console_, {.Device = options_.Port, .FixedToo = true, .Interrupts = [this] {
                                                        return signal_.Anzahl();
                                                    }});
}

void Tischsitzung::Meldungen_Uebernehmen(bool yesOfThree) {
    yesOfThree_ = yesOfThree;
    shownBefore_ =
        std::exchange(program.kern.Welt.ShowMessage, [this](const Message& message) { return Antworten(message); });
}

Answer Tischsitzung::Antworten(const Message& message) {
    if (const std::string text = Anzeige_Aus_1252(message.Text); !text.empty()) {
        if (message.Choice != Buttons::YesNoCancel) {
            Sagen(text);
        }
        if (message.Choice == Buttons::Ok) {
            Meldungen.push_back(text);
        }
    }
    switch (message.Choice) {
    case Buttons::YesNoCancel:
        return yesOfThree_ ? Answer::Yes : Answer::No;
    case Buttons::YesNo:
        Meldungen.push_back(Anzeige_Aus_1252(message.Text));
        return Answer::No;
    case Buttons::OkCancel:
    case Buttons::Ok:
        break;
    }
    return Answer::Ok;
}

TischEnde Tischsitzung::Warten(const std::function<bool()>& done, int seconds) {
    const Platform& world = program.kern.Welt;
    lastFrame_ = world.Milliseconds();
    std::optional<TischEnde> end;
    Timer watch(program.kern.Welt, WatchMs);
    watch.Ticked = [&] {
        const bool silent = seconds > 0 && world.Milliseconds() - lastFrame_ >= std::int64_t{1000} * seconds;
        if (signal_.Anzahl() > heard_) {
            end = TischEnde::Cancelled;
        } else if (silent || !world.Port.IsOpen()) {
            end = TischEnde::Silent;
        }
    };
    watch.Start();
    while (!done() && !end) {
        world.ProcessEvents();
    }
    watch.Stop();
    if (end == TischEnde::Cancelled) {
        heard_ = signal_.Anzahl();
    }
    if (end == TischEnde::Silent && Getrennt()) {
        Trennung_Melden();
    }
    return done() ? TischEnde::Done : *end;
}

/// A window that has noticed it by itself has said so already.
void Tischsitzung::Trennung_Melden() {
    const std::string text = Anzeige_Aus_1252(Wort(program.kern, Word::AdapterPulled));
    if (std::find(Meldungen.begin(), Meldungen.end(), text) == Meldungen.end()) {
        Sagen(text);
        Meldungen.push_back(text);
    }
}

ExitCode Tischsitzung::Abschliessen(TischEnde end, const std::string& text, const nlohmann::ordered_json& document) {
    trace_.Ablegen();
    if (!trace_.Vollstaendig()) {
        Meldungen.push_back("The trace file " + options_.Trace + " could not be written whole.");
        Sagen(Meldungen.back());
    }
    const ExitCode exit = TischEnde_Code(end);
    if (!console_.Json) {
        console_.Out << text << "\n";
        return exit;
    }
    nlohmann::ordered_json whole{{"command", word_},
                                 {"ok", exit == ExitCode::Good},
                                 {"exit", static_cast<int>(exit)},
                                 {"result", TischEnde_Wort(end)},
                                 {"text", text}};
    whole.update(document);
    whole["messages"] = Meldungen;
    console_.Ergebnis(whole);
    return exit;
}

} // namespace qvm
