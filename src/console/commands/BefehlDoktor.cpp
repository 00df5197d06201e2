// Whether the PC is fit for the program: what was found of it, and what may be mended without a judgement.

#include "AbbruchSignal.h"
#include "AdapterKunde.h"
#include "Befehle.h"
#include "Doctor.h"
#include "Konfiguration.h"
#include "PcLook.h"
#include "Programm.h"

#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <unistd.h>
#include <utility>

namespace qvm {

namespace {

/// That of all messages and documents of the commands.
constexpr std::string_view ReportLanguage = "English";

using DoctorJson = nlohmann::ordered_json;

/// What the command looks at, and how often it wants.
class Doktor {
public:
    Doktor(const Umgebung& world, const Console& console, const std::string& device)
        : world_(world), console_(console), program_(world.Welt, world.AppPath) {
        if (!device.empty()) {
            device_ = device;
        }
        Konfiguration_Laden(program_.kern);
        const Konfiguration& config = program_.kern.Config;
        ports_ = {device_ ? 1 : config.PortNummer};
        if (!device_ && config.AdapterModus()) {
            ports_ = world.Welt.AdapterPorts();
        }
    }

    /// `ask`: the adapters, too; otherwise what they answered before stays. Nothing when that was cancelled.
    std::vector<DoctorLine> Sehen(bool ask) {
        PcFacts facts = PcFacts_Look(world_.AppPath, device_, ports_);
        if (ask) {
            Alle_Fragen(facts.Ports);
        } else {
            Antworten_Behalten(facts.Ports);
        }
        before_ = facts.Ports;
        if (cancelled_) {
            return {};
        }
        const DataLock lock(world_.DatPfad(), DataLock::Use::Read);
        Sperre_Holen(lock, console_);
        return Doctor_Pruefen(
            facts, {.Files = world_.Welt.Files, .AppPath = world_.AppPath, .ProgramFiles = world_.Welt.ProgramFiles},
            DoctorWords(ReportLanguage));
    }

    /// The operator pressed Ctrl-C while the adapters were asked.
    bool Abgebrochen() const { return cancelled_; }

    /// Why it could not be done, empty when it is.
    std::string Beheben(const DoctorFix& fix) const { return Pc_Mend(world_.AppPath, world_.Welt.Files, fix); }

private:
    void Alle_Fragen(std::vector<PortFacts>& ports) {
        AbbruchSignal signal; // not for longer: at the questions of --fix Ctrl-C ends the command, as usual
        for (PortFacts& port : ports) {
            if (!cancelled_) {
                Adapter_Fragen(program_, console_, port, [&signal] { return signal.Anzahl(); });
                cancelled_ = signal.Anzahl() > 0;
            }
            if (port.Asked) {
                Latency_LookAgain(port);
            }
        }
    }
    void Antworten_Behalten(std::vector<PortFacts>& ports) const {
        for (std::size_t n = 0; n < ports.size(); ++n) {
            const PortFacts& before = before_.at(n);
            ports[n].Asked = before.Asked;
            ports[n].Opened = before.Opened;
            ports[n].Held = before.Held;
            ports[n].Refusal = before.Refusal;
            ports[n].Version = before.Version;
            ports[n].AdapterName = before.AdapterName;
        }
    }

    const Umgebung& world_;
    const Console& console_;
    Programm program_;
    bool cancelled_ = false;
    std::optional<std::string> device_;
    std::vector<int> ports_;
    std::vector<PortFacts> before_;
};

std::string Zeilenname(const DoctorLine& line) {
    return std::string(line.Check) + (line.About.empty() ? "" : " " + line.About);
}

/// The operator at the terminal; elsewhere --yes has answered, or nobody.
bool Beheben_Erlaubt(const Console& console, const Optionen& options, const DoctorLine& line) {
    if (options.Yes) {
        return true;
    }
    if (::isatty(STDIN_FILENO) != 1 || !console.Terminal) {
        return false;
    }
    console.Err << Anzeigetext(Zeilenname(line) + ": " + line.Proof + ". Mend it? [y/N] ");
    console.Err.flush();
    std::string answer;
    std::getline(std::cin, answer);
    return answer == "y" || answer == "Y" || answer == "yes";
}

struct Behebung {
    DoctorLine Line;
    std::string Result; ///< "mended", "declined", or why not
};

std::vector<Behebung> Alles_Beheben(const Doktor& doctor, const Console& console, const Optionen& options,
                                    const std::vector<DoctorLine>& lines) {
    std::vector<Behebung> done;
    for (const DoctorLine& line : lines) {
        if (line.Fix.What == DoctorFix::Kind::None) {
            continue;
        }
        std::string result = "declined";
        if (Beheben_Erlaubt(console, options, line)) {
            const std::string why = doctor.Beheben(line.Fix);
            result = why.empty() ? "mended" : why;
        }
        done.push_back({.Line = line, .Result = std::move(result)});
    }
    return done;
}

std::string_view Urteil_Wort(Verdict verdict) {
    switch (verdict) {
    case Verdict::Good:
        return "good           ";
    case Verdict::Note:
        return "worth knowing  ";
    case Verdict::Fault:
        return "FAULT          ";
    case Verdict::Untold:
        break;
    }
    return "cannot be told ";
}

void Befund_Zeigen(const Console& console, const std::vector<DoctorLine>& lines, const std::vector<Behebung>& mended) {
    for (const Behebung& one : mended) {
        console.Out << Anzeigetext("--fix, " + Zeilenname(one.Line) + ": " + one.Result) << "\n";
    }
    int faults = 0;
    int notes = 0;
    for (const DoctorLine& line : lines) {
        faults += line.Result == Verdict::Fault ? 1 : 0;
        notes += line.Result == Verdict::Note || line.Result == Verdict::Untold ? 1 : 0;
        console.Out << Urteil_Wort(line.Result) << Anzeigetext(Zeilenname(line) + ": " + line.Proof) << "\n";
        if (!line.ToDo.empty()) {
            console.Out << "               > " << Anzeigetext(line.ToDo) << "\n";
        }
    }
    console.Out << faults << (faults == 1 ? " fault, " : " faults, ") << notes << " worth knowing or not to be told\n";
}

DoctorJson Befund_Dokument(const std::vector<DoctorLine>& lines, const std::vector<Behebung>& mended, ExitCode code) {
    DoctorJson list = DoctorJson::array();
    for (const DoctorLine& line : lines) {
        list.push_back({{"check", line.Check},
                        {"about", line.About},
                        {"verdict", Verdict_Name(line.Result)},
                        {"proof", line.Proof},
                        {"todo", line.ToDo},
                        {"fixable", line.Fix.What != DoctorFix::Kind::None}});
    }
    DoctorJson fixes = DoctorJson::array();
    for (const Behebung& one : mended) {
        fixes.push_back({{"check", one.Line.Check}, {"about", one.Line.About}, {"result", one.Result}});
    }
    return {{"command", "doctor"},
            {"ok", code == ExitCode::Good},
            {"exit", static_cast<int>(code)},
            {"lines", list},
            {"fixes", fixes}};
}

ExitCode Urteil_Code(Verdict verdict) {
    if (verdict == Verdict::Good) {
        return ExitCode::Good;
    }
    return verdict == Verdict::Fault ? ExitCode::Fault : ExitCode::Noted;
}

} // namespace

ExitCode Befehl_Doktor(const Umgebung& world, const Console& console, const Optionen& options) {
    Doktor doctor(world, console, options.Port);
    std::vector<DoctorLine> lines = doctor.Sehen(true);
    if (doctor.Abgebrochen()) {
        console.Meldung("Cancelled while the adapter was asked; nothing was looked at further, and nothing mended.");
        if (console.Json) {
            console.Ergebnis(Befund_Dokument({}, {}, ExitCode::NotReached));
        }
        return ExitCode::NotReached;
    }
    std::vector<Behebung> mended;
    if (options.Fix) {
        mended = Alles_Beheben(doctor, console, options, lines);
        const auto declined = [](const Behebung& one) { return one.Result == "declined"; };
        if (!options.Yes && std::any_of(mended.begin(), mended.end(), declined) && !console.Terminal) {
            console.Meldung("Nothing was mended, as nobody can be asked; --yes answers.");
        }
        lines = doctor.Sehen(false);
    }
    const ExitCode code = Urteil_Code(Doctor_Urteil(lines));
    if (console.Json) {
        console.Ergebnis(Befund_Dokument(lines, mended, code));
    } else {
        Befund_Zeigen(console, lines, mended);
    }
    return code;
}

} // namespace qvm
