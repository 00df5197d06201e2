#include "Doctor.h"
#include "Zeit.h"

namespace qvm {

namespace {

/// No PC of today was made before it; a clock without its battery begins far below.
constexpr int EarliestYear = 2024;
/// A lock knows two digits of the year.
constexpr int LatestYear = 2099;

constexpr std::uint64_t MegaByte = 1048576;
/// Below it a save may fail; below the other one it may do so soon.
constexpr std::uint64_t LeastFree = 10 * MegaByte, LittleFree = 200 * MegaByte;

std::string Moment_Text(const DateTime& moment) {
    return Datum_Text(Heute(moment)) + " " + Uhrzeit_Text(moment.Hour * 60 + moment.Minute);
}

DoctorLine Uhr(const PcFacts& facts) {
    DoctorLine line{.Check = "clock", .Proof = Moment_Text(facts.Now)};
    constexpr std::int64_t day = 86400; // seconds
    const bool outside = facts.Now.Year < EarliestYear || facts.Now.Year > LatestYear;
    // A day is left for a zone that was changed.
    const bool back = facts.Newest && Sekunden_Seit_2000(*facts.Newest) > Sekunden_Seit_2000(facts.Now) + day;
    if (outside) {
        line.Proof += ": the year cannot be right";
    } else if (back) {
        line.Proof += ": " + facts.NewestFile + " was changed later than that, " + Moment_Text(*facts.Newest);
    }
    if (outside || back) {
        line.Result = Verdict::Fault;
        line.ToDo = "Set the date and time of the PC; each lock takes them over";
    }
    return line;
}

DoctorLine Zeitzone(const PcFacts& facts) {
    DoctorLine line{.Check = "zone", .Proof = facts.Zone};
    const std::string_view choose = "Choose the time zone of the building: timedatectl set-timezone Europe/Berlin, "
                                    "or as it is called there";
    if (facts.Zone.empty()) {
        line.Result = Verdict::Untold;
        line.Proof = "the system names no time zone";
        line.ToDo = choose;
    } else if (!facts.ZoneThere) {
        line.Result = Verdict::Fault;
        line.Proof += ": the PC does not know this zone";
        line.ToDo = choose;
    } else if (facts.Zone == "UTC" || facts.Zone.starts_with("Etc/")) {
        line.Result = Verdict::Note;
        line.Proof += ": a zone of no place, without summer time";
        line.ToDo = choose;
    }
    return line;
}

DoctorLine Speicherplatz(const PcFacts& facts) {
    DoctorLine line{.Check = "disk"};
    if (!facts.FreeBytes) {
        line.Result = Verdict::Untold;
        line.Proof = "the system does not tell what is free";
        return line;
    }
    line.Proof = std::to_string(*facts.FreeBytes / MegaByte) + " MB free";
    if (facts.ReadOnly) {
        line.Result = Verdict::Fault;
        line.Proof += ", but the file system takes no change";
        line.ToDo = "Make the file system writable, or move the program's directory";
    } else if (*facts.FreeBytes < LittleFree) {
        line.Result = *facts.FreeBytes < LeastFree ? Verdict::Fault : Verdict::Note;
        line.ToDo = "Remove what is not needed from the disk of the program's directory";
    }
    return line;
}

} // namespace

void Pc_Befragen(const PcFacts& facts, std::vector<DoctorLine>& lines) {
    lines.push_back(Uhr(facts));
    lines.push_back(Zeitzone(facts));
    lines.push_back(Speicherplatz(facts));
}

} // namespace qvm
