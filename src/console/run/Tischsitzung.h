#pragma once

#include "AbbruchSignal.h"
#include "Console.h"
#include "Optionen.h"
#include "Programm.h"
#include "TraceDatei.h"

#include <functional>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

/// How a command that asks a device one thing ended.
enum class TischEnde {
    Done,
    Fault,     ///< wrong use or a local fault
    Refused,   ///< by the device, or by what stands in the table already
    Silent,    ///< nothing came, or the adapter was pulled out
    Cancelled, ///< by the operator
};
std::string_view TischEnde_Wort(TischEnde end);
ExitCode TischEnde_Code(TischEnde end);

/// What the commands that work at a window with one device have in common (change-code, unit-code, scan, learn,
/// find-key, sync-key): the program, its message boxes, the wait for the answer, Ctrl-C, the trace and the report.
class Tischsitzung {
    AbbruchSignal signal_; // first, so that the whole program lives under it
    int heard_ = 0;        ///< interrupts that have ended a wait; one that comes before a wait ends it, too

public:
    Tischsitzung(const Umgebung& world, const Console& console, const Optionen& options, std::string_view word);
    ~Tischsitzung();
    Tischsitzung(const Tischsitzung&) = delete;
    Tischsitzung& operator=(const Tischsitzung&) = delete;

    /// Data directory, program, trace. Nothing when the command may go on; otherwise the exit code of a refusal, which
    /// was reported.
    std::optional<ExitCode> Beginnen();
    /// Reports a local fault that ends the command.
    ExitCode Fehlschlag(const std::string& message) const { return console_.Fehlschlag(word_, {message}); }
    /// Searches the adapters. False when the operator cancelled meanwhile.
    bool Adapter_Suchen();
    /// From here on message boxes are shown as lines, collected and answered: No to a question, which loses nothing,
    /// but Yes to one with three answers where `yesOfThree`; OK otherwise.
    void Meldungen_Uebernehmen(bool yesOfThree);

    /// Lets events go on until `done` is true: Done. Silent when nothing came over the line for `seconds` (0: for ever)
    /// or the adapter was pulled out, which is told; Cancelled at Ctrl-C.
    TischEnde Warten(const std::function<bool()>& done, int seconds);
    /// The adapter's port is closed.
    bool Getrennt() const { return !program.kern.Welt.Port.IsOpen(); }
    bool Unterbrochen() { return signal_.Anzahl() > 0; }
    int Unterbrechungen() { return signal_.Anzahl(); }

    /// One line of message.
    void Sagen(const std::string& text) const { console_.Meldung(text); }
    /// The report: `text` as a line, or `document` with command, ok, exit, result, text and messages, and the exit
    /// code.
    ExitCode Abschliessen(TischEnde end, const std::string& text, const nlohmann::ordered_json& document);

    Programm program;
    std::vector<std::string> Meldungen; ///< of message boxes, UTF-8

private:
    Answer Antworten(const Message& message);
    void Trennung_Melden();

    const Umgebung& world_;
    const Console& console_;
    const Optionen& options_;
    std::string word_;
    TraceDatei trace_;
    std::int64_t lastFrame_ = 0; ///< Platform::Milliseconds of the last frame received
    bool yesOfThree_ = false;
    std::optional<std::function<Answer(const Message&)>> shownBefore_;
};

} // namespace qvm
