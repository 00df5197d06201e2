#include "AdapterKunde.h"

#include "AdapterScan.h"
#include "AutoRegister.h"
#include "PortFault.h"
#include "Takt.h"
#include "Text.h"

#include <ostream>

namespace qvm {

namespace {

/// The search on standard error: in one line on a terminal, a line for each step elsewhere.
class Suchanzeige {
public:
    Suchanzeige(AdapterListe& list, const Console& console, const std::string& device)
        : list_(list), console_(console) {
        list_.Suche_Zeigen = [this, device](const SuchSchritt& step) { Zeigen(Suchzeile(step, device)); };
    }
    ~Suchanzeige() {
        list_.Suche_Zeigen = {};
        Wischen();
    }
    Suchanzeige(const Suchanzeige&) = delete;
    Suchanzeige& operator=(const Suchanzeige&) = delete;

private:
    void Zeigen(const std::string& line) {
        Wischen();
        if (console_.Terminal) {
            console_.Err << Anzeigetext(line);
            console_.Err.flush();
            shown_ = true;
        } else {
            console_.Meldung(line);
        }
    }
    void Wischen() {
        if (shown_) {
            // Back to the first column, and erase to the end of the line.
            console_.Err << "\r\x1B[K";
            console_.Err.flush();
            shown_ = false;
        }
    }

    AdapterListe& list_;
    const Console& console_;
    bool shown_ = false;
};

bool Suchen(Programm& program, const AdapterFrage& question) {
    Timer watch(program.kern.Welt, WatchMs);
    watch.Ticked = [&] {
        if (question.Interrupts && question.Interrupts() > 0) {
            Suche_Abbrechen(program.link, program.Adapter);
        }
    };
    watch.Start();
    const bool found = Adapter_Suchen(program.link, program.Adapter);
    watch.Stop();
    return found;
}

} // namespace

std::string Suchzeile(const SuchSchritt& step, const std::string& device) {
    const std::string port = device.empty() ? "com" + std::to_string(step.Port) : device;
    return (step.Satz ? "Asking the adapter on " + port + " who it is" : "Looking for an adapter on " + port) +
           ", try " + std::to_string(step.Versuch) + " of " + std::to_string(step.Versuche) + ".";
}

void Port_Festlegen(Programm& program) {
    program.kern.Config.PortAutomatik = "RESET";
    program.kern.Config.PortNummer = program.link.PortNummer = 1;
}

void Adapter_Fragen(Programm& program, const Console& console, PortFacts& port,
                    const std::function<int()>& interrupts) {
    if (!port.Serial || !port.Right || !port.Holder.empty()) {
        return;
    }
    AdapterListe& list = program.Adapter;
    list.PortListe = {port.Number};
    list.Ports_Vergessen();
    // A question is shown only once the port is open.
    list.Suche_Zeigen = [&](const SuchSchritt& step) {
        port.Asked = true;
        console.Meldung(Suchzeile(step, port.Device));
    };
    program.link.PortNummer = port.Number; // the search leaves this one open, and its fault is that of this one
    if (Suchen(program, {.Device = {}, .Interrupts = interrupts})) {
        const std::vector<AdapterSatz>& found = list.Saetze.empty() ? list.Fremde : list.Saetze;
        port.Version = found.empty() ? 0 : found.front().Version;
        port.AdapterName = found.empty() ? std::string() : found.front().Name;
    }
    list.Suche_Zeigen = {};
    list.Ports_Vergessen();
    const SerialPort& line = program.kern.Welt.Port;
    if (!port.Asked && line.LastFault) {
        const PortFault fault = line.LastFault();
        port.Held = fault.What == PortFault::Kind::Held || fault.What == PortFault::Kind::HeldByService;
        port.Refusal = NachUtf8(PortFault_English(fault));
    }
    if (line.IsOpen()) {
        line.SetRts(false);
    }
    line.Close();
}

bool Adapter_Kennenlernen(Programm& program, const Console& console, const AdapterFrage& question) {
    Konfiguration& config = program.kern.Config;
    AdapterListe& list = program.Adapter;
    if (!question.Device.empty()) {
        Port_Festlegen(program); // the device of the command line stands behind every number
    } else if (config.AdapterModus()) {
        Ports_Ermitteln(program.kern, list);
    }
    if (config.AdapterModus() || question.FixedToo) {
        const Suchanzeige shown(list, console, question.Device);
        if (!Suchen(program, question)) {
            // The locks say it one by one, without a search for each.
            list.ProgStationPort = list.EnrollmentPort = KeinPort;
        }
    }
    if (!config.AdapterModus()) {
        program.link.PortNummer = config.PortNummer;
    }
    const bool cancelled = question.Interrupts && question.Interrupts() > 0;
    if (cancelled) {
        console.Meldung("Cancelled before a lock was begun; nothing was sent to a lock.");
    }
    return !cancelled;
}

} // namespace qvm
