#include "Doctor.h"
#include "Text.h"

#include <algorithm>

namespace qvm {

namespace {

/// Adapters below it read no units and keypads by radio.
constexpr int NewestNeeded = 12;
/// A converter that holds bytes back for longer is worth a word: each reply waits for it.
constexpr int ShortLatencyMs = 4;

std::string Aufzaehlung(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : ", ") + word;
    }
    return text;
}

DoctorLine Anwesenheit(const PcFacts& facts, const PortFacts& port) {
    DoctorLine line{.Check = "adapter", .About = port.Device};
    if (!port.There) {
        line.Result = Verdict::Fault;
        line.Proof = "nothing is there";
        if (!facts.OtherDevices.empty()) {
            line.Proof += "; other serial devices: " + Aufzaehlung(facts.OtherDevices);
        }
        line.ToDo = "Plug the adapter in, or choose its port in the settings";
    } else if (!port.Serial) {
        line.Result = Verdict::Fault;
        line.Proof = "what is there is no serial port";
        line.ToDo = "Let the link or the option lead to the adapter's device";
    } else {
        line.Proof = "a serial port is there";
    }
    return line;
}

DoctorLine Recht(const PcFacts& facts, const PortFacts& port) {
    DoctorLine line{.Check = "right", .About = port.Device};
    line.Proof = "owner " + port.Owner + ", group " + port.Group + "; " + facts.User + " is in " +
                 (facts.Groups.empty() ? "no group" : Aufzaehlung(facts.Groups));
    if (port.Right) {
        return line;
    }
    line.Result = Verdict::Fault;
    const bool inSession = std::find(facts.Groups.begin(), facts.Groups.end(), port.Group) != facts.Groups.end();
    if (!port.GroupMay || inSession) {
        line.Proof += "; the group has no right to read and write it";
        line.ToDo = "Run: sudo chmod g+rw " + port.Device.substr(port.Device.rfind(' ') + 1);
    } else if (port.GroupListed) {
        line.Proof += "; this session began before that user joined " + port.Group;
        line.ToDo = "Log out and in again";
    } else {
        line.ToDo = "Run: sudo usermod -aG " + port.Group + " " + facts.User + ", then log out and in again";
    }
    return line;
}

bool Ist_Dienst(const std::string& holder) {
    return holder.starts_with("ModemManager ") || holder.starts_with("brltty ");
}

DoctorLine Inhaber(const PortFacts& port) {
    DoctorLine line{.Check = "holder", .About = port.Device, .Proof = "no other program is seen to have it open"};
    if (port.Holder.empty() && port.Held) { // the system hides what other users' programs have open
        line.Result = Verdict::Fault;
        line.Proof = port.Refusal;
        line.ToDo = "Close the program, of another user maybe, that has it: sudo fuser -v names it";
        return line;
    }
    if (port.Holder.empty()) {
        return line;
    }
    line.Proof = "open by " + port.Holder;
    if (port.Holder.starts_with("qvm7702 ") || port.Holder.starts_with("qvmctl ")) {
        line.Result = Verdict::Note; // as it should be while that one works
        line.ToDo = "Nothing while it works; end it before another program is to use the adapter";
    } else {
        line.Result = Verdict::Fault;
        line.ToDo = Ist_Dienst(port.Holder) ? "Wait some seconds until the service lets go, then check again"
                                            : "Close that program";
    }
    return line;
}

DoctorLine Wartezeit(const PortFacts& port) {
    DoctorLine line{.Check = "latency", .About = port.Device};
    if (!port.TimerTold) {
        line.Result = Verdict::Untold;
        line.Proof = "the system does not tell of a latency timer";
    } else if (!port.LatencyMs) {
        line.Proof = "the port has no latency timer";
    } else {
        const bool isLong = *port.LatencyMs > ShortLatencyMs;
        line.Proof = std::to_string(*port.LatencyMs) + " ms";
        if (isLong && !port.Opened) {
            line.Proof += "; the program shortens it when it opens the port";
        } else if (isLong) { // that was in vain
            line.Result = Verdict::Note;
            line.Proof += ": each reply can come so much later";
            line.ToDo = "Run: echo 1 | sudo tee " + port.LatencyFile;
            line.Fix = {.What = DoctorFix::Kind::ShortLatency, .Path = port.LatencyFile};
        }
    }
    return line;
}

DoctorLine Antwort(const PcFacts& facts, const PortFacts& port) {
    DoctorLine line{.Check = "answer", .About = port.Device};
    if (!port.Asked) {
        line.Result = Verdict::Untold;
        const bool used = !port.Holder.empty() || port.Held;
        line.Proof = used ? "not asked, as the port is in use" : "the adapter could not be asked";
        line.Proof += used || port.Refusal.empty() ? "" : ": " + port.Refusal;
        return line;
    }
    if (!port.Version) {
        const bool other = std::any_of(facts.Ports.begin(), facts.Ports.end(),
                                       [](const PortFacts& one) { return one.Version.has_value(); });
        line.Result = other ? Verdict::Note : Verdict::Fault;
        line.Proof = "no adapter answered";
        line.ToDo = "Unplug the adapter, plug it in again, then check again";
        return line;
    }
    line.Proof = NachUtf8(port.AdapterName);
    line.Proof += line.Proof.empty() ? "an adapter answered" : " answered";
    if (*port.Version == 0) {
        line.Result = Verdict::Untold;
        line.Proof += ", its version is not known";
        return line;
    }
    line.Proof += ", version " + std::to_string(*port.Version);
    if (*port.Version < NewestNeeded) {
        line.Result = Verdict::Note;
        line.Proof += "; units are read by radio from version " + std::to_string(NewestNeeded) + " on";
        line.ToDo = "Ask the supplier for a newer adapter if that is needed";
    }
    return line;
}

DoctorLine Dienste(const PcFacts& facts) {
    DoctorLine line{.Check = "services", .Proof = "neither ModemManager nor brltty runs"};
    if (!facts.ServicesTold) {
        line.Result = Verdict::Untold;
        line.Proof = "the system hides the programs of other users";
        return line;
    }
    if (facts.Services.empty()) {
        return line;
    }
    line.Proof = Aufzaehlung(facts.Services);
    const bool braille = std::any_of(facts.Services.begin(), facts.Services.end(),
                                     [](const std::string& name) { return name.starts_with("brltty"); });
    const bool leftAlone = !facts.Ports.empty() && std::all_of(facts.Ports.begin(), facts.Ports.end(),
                                                               [](const PortFacts& port) { return port.LeftAlone; });
    if (!braille && leftAlone) {
        line.Proof += " runs, and is told to leave the port alone";
        return line;
    }
    line.Result = Verdict::Note;
    line.Proof += facts.Services.size() > 1 ? " run and try out each new serial port"
                                            : " runs and tries out each new serial port";
    line.ToDo = braille ? "If no braille display is used, run: sudo systemctl disable --now brltty"
                        : "If no modem is used, run: sudo systemctl disable --now ModemManager";
    return line;
}

} // namespace

void Port_Befragen(const PcFacts& facts, std::vector<DoctorLine>& lines) {
    if (facts.Ports.empty()) {
        lines.push_back(Anwesenheit(facts, PortFacts{}));
    }
    for (const PortFacts& port : facts.Ports) {
        lines.push_back(Anwesenheit(facts, port));
    }
    bool any = false;
    for (const PortFacts& port : facts.Ports) {
        if (port.Serial) {
            any = true;
            lines.push_back(Recht(facts, port));
            lines.push_back(Inhaber(port));
            lines.push_back(Wartezeit(port));
            lines.push_back(Antwort(facts, port));
        }
    }
    for (const std::string_view check : {"right", "holder", "latency", "answer"}) {
        if (!any) {
            lines.push_back({.Check = check, .Result = Verdict::Untold, .Proof = "there is no port to look at"});
        }
    }
    lines.push_back(Dienste(facts));
}

} // namespace qvm
