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

DoctorLine Anwesenheit(const PcFacts& facts, const DoctorWords& say, const PortFacts& port) {
    DoctorLine line{.Check = "adapter", .About = port.Device};
    if (!port.There) {
        line.Result = Verdict::Fault;
        line.Proof = facts.OtherDevices.empty() ? say(Word::PcNothingThere)
                                                : say(Word::PcOtherDevices, {Aufzaehlung(facts.OtherDevices)});
        line.ToDo = say(Word::PcPlugIn);
    } else if (!port.Serial) {
        line.Result = Verdict::Fault;
        line.Proof = say(Word::PcNotSerial);
        line.ToDo = say(Word::PcLeadTo);
    } else {
        line.Proof = say(Word::PcSerial);
    }
    return line;
}

DoctorLine Recht(const PcFacts& facts, const DoctorWords& say, const PortFacts& port) {
    DoctorLine line{.Check = "right", .About = port.Device};
    line.Proof = say(Word::PcOwnership, {port.Owner, port.Group, facts.User,
                                         facts.Groups.empty() ? say(Word::PcNoGroup) : Aufzaehlung(facts.Groups)});
    if (port.Right) {
        return line;
    }
    line.Result = Verdict::Fault;
    const bool inSession = std::find(facts.Groups.begin(), facts.Groups.end(), port.Group) != facts.Groups.end();
    if (!port.GroupMay || inSession) {
        line.Proof = say(Word::PcGroupNoRight, {line.Proof});
        line.ToDo = say(Word::PcRun, {"sudo chmod g+rw " + port.Device.substr(port.Device.rfind(' ') + 1)});
    } else if (port.GroupListed) {
        line.Proof = say(Word::PcGroupLater, {line.Proof, port.Group});
        line.ToDo = say(Word::PcLogOut);
    } else {
        line.ToDo = say(Word::PcJoin, {"sudo usermod -aG " + port.Group + " " + facts.User});
    }
    return line;
}

bool Ist_Dienst(const std::string& holder) {
    return holder.starts_with("ModemManager ") || holder.starts_with("brltty ");
}

DoctorLine Inhaber(const DoctorWords& say, const PortFacts& port) {
    DoctorLine line{
        .Check = "holder", .About = port.Device, .Proof = say(port.Own ? Word::PcOwnPort : Word::PcNotHeld)};
    if (port.Own) {
        return line;
    }
    if (port.Holder.empty() && port.Held) { // the system hides what other users' programs have open
        line.Result = Verdict::Fault;
        line.Proof = port.Refusal;
        line.ToDo = say(Word::PcSomeoneHas);
        return line;
    }
    if (port.Holder.empty()) {
        return line;
    }
    line.Proof = say(Word::PcOpenBy, {port.Holder});
    if (port.Holder.starts_with("qvm7702 ") || port.Holder.starts_with("qvmctl ")) {
        line.Result = Verdict::Note; // as it should be while that one works
        line.ToDo = say(Word::PcWhileWorks);
    } else {
        line.Result = Verdict::Fault;
        line.ToDo = say(Ist_Dienst(port.Holder) ? Word::PcServiceWait : Word::PcCloseIt);
    }
    return line;
}

DoctorLine Wartezeit(const DoctorWords& say, const PortFacts& port) {
    DoctorLine line{.Check = "latency", .About = port.Device};
    if (!port.TimerTold) {
        line.Result = Verdict::Untold;
        line.Proof = say(Word::PcTimerUntold);
    } else if (!port.LatencyMs) {
        line.Proof = say(Word::PcNoTimer);
    } else {
        const bool isLong = *port.LatencyMs > ShortLatencyMs;
        const bool vain = isLong && port.Opened; // the program has tried to shorten it
        line.Proof = say(vain     ? Word::PcTimerLong
                         : isLong ? Word::PcTimerShortened
                                  : Word::PcTimer,
                         {std::to_string(*port.LatencyMs)});
        if (vain) {
            line.Result = Verdict::Note;
            line.ToDo = say(Word::PcRun, {"echo 1 | sudo tee " + port.LatencyFile});
            line.Fix = {.What = DoctorFix::Kind::ShortLatency, .Path = port.LatencyFile};
        }
    }
    return line;
}

/// Why it was not asked, or not yet.
DoctorLine Ungefragt(const DoctorWords& say, const PortFacts& port) {
    DoctorLine line{.Check = "answer", .About = port.Device, .Result = Verdict::Untold};
    if (port.Asking) {
        line.Proof = say(Word::PcAsking);
    } else if (port.Busy) {
        line.Proof = say(Word::PcNotAskedRun);
    } else if (!port.Holder.empty() || port.Held) {
        line.Proof = say(Word::PcNotAskedUsed);
    } else {
        line.Proof = say(Word::PcCouldNotAsk) + (port.Refusal.empty() ? "" : ": " + port.Refusal);
    }
    return line;
}

DoctorLine Antwort(const PcFacts& facts, const DoctorWords& say, const PortFacts& port) {
    if (!port.Asked) {
        return Ungefragt(say, port);
    }
    DoctorLine line{.Check = "answer", .About = port.Device};
    if (!port.Version) {
        const bool other = std::any_of(facts.Ports.begin(), facts.Ports.end(),
                                       [](const PortFacts& one) { return one.Version.has_value(); });
        line.Result = other ? Verdict::Note : Verdict::Fault;
        line.Proof = say(Word::PcNoAnswer);
        line.ToDo = say(Word::PcReplug);
        return line;
    }
    line.Proof =
        port.AdapterName.empty() ? say(Word::PcSomeAnswered) : say(Word::PcAnswered, {NachUtf8(port.AdapterName)});
    if (*port.Version == 0) {
        line.Result = Verdict::Untold;
        line.Proof = say(Word::PcVersionUntold, {line.Proof});
        return line;
    }
    line.Proof = say(Word::PcVersion, {line.Proof, std::to_string(*port.Version)});
    if (*port.Version < NewestNeeded) {
        line.Result = Verdict::Note;
        line.Proof = say(Word::PcVersionOld, {line.Proof, std::to_string(NewestNeeded)});
        line.ToDo = say(Word::PcNewer);
    }
    return line;
}

DoctorLine Dienste(const PcFacts& facts, const DoctorWords& say) {
    DoctorLine line{.Check = "services", .Proof = say(Word::PcNoServices)};
    if (!facts.ServicesTold) {
        line.Result = Verdict::Untold;
        line.Proof = say(Word::PcServicesHidden);
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
        line.Proof = say(Word::PcServiceLeaves, {line.Proof});
        return line;
    }
    line.Result = Verdict::Note;
    line.Proof = say(facts.Services.size() > 1 ? Word::PcServicesRun : Word::PcServiceRuns, {line.Proof});
    line.ToDo = braille ? say(Word::PcBraille, {"sudo systemctl disable --now brltty"})
                        : say(Word::PcModem, {"sudo systemctl disable --now ModemManager"});
    return line;
}

} // namespace

void Port_Befragen(const PcFacts& facts, const DoctorWords& say, std::vector<DoctorLine>& lines) {
    if (facts.Ports.empty()) {
        lines.push_back(Anwesenheit(facts, say, PortFacts{}));
    }
    for (const PortFacts& port : facts.Ports) {
        lines.push_back(Anwesenheit(facts, say, port));
    }
    bool any = false;
    for (const PortFacts& port : facts.Ports) {
        if (port.Serial) {
            any = true;
            lines.push_back(Recht(facts, say, port));
            lines.push_back(Inhaber(say, port));
            lines.push_back(Wartezeit(say, port));
            lines.push_back(Antwort(facts, say, port));
        }
    }
    for (const std::string_view check : {"right", "holder", "latency", "answer"}) {
        if (!any) {
            lines.push_back({.Check = check, .Result = Verdict::Untold, .Proof = say(Word::PcNoPort)});
        }
    }
    lines.push_back(Dienste(facts, say));
}

} // namespace qvm
