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

DoctorLine Uhr(const PcFacts& facts, const DoctorWords& say) {
    DoctorLine line{.Check = "clock", .Proof = Moment_Text(facts.Now)};
    constexpr std::int64_t day = 86400; // seconds
    const bool outside = facts.Now.Year < EarliestYear || facts.Now.Year > LatestYear;
    // A day is left for a zone that was changed.
    const bool back = facts.Newest && Sekunden_Seit_2000(*facts.Newest) > Sekunden_Seit_2000(facts.Now) + day;
    if (outside) {
        line.Proof = say(Word::PcYearWrong, {line.Proof});
    } else if (back) {
        line.Proof = say(Word::PcChangedLater, {line.Proof, facts.NewestFile, Moment_Text(*facts.Newest)});
    }
    if (outside || back) {
        line.Result = Verdict::Fault;
        line.ToDo = say(Word::PcSetClock);
    }
    return line;
}

DoctorLine Zeitzone(const PcFacts& facts, const DoctorWords& say) {
    DoctorLine line{.Check = "zone", .Proof = facts.Zone};
    const std::string choose = say(Word::PcChooseZone);
    if (facts.Zone.empty()) {
        line.Result = Verdict::Untold;
        line.Proof = say(Word::PcNoZone);
        line.ToDo = choose;
    } else if (!facts.ZoneThere) {
        line.Result = Verdict::Fault;
        line.Proof = say(Word::PcZoneUnknown, {facts.Zone});
        line.ToDo = choose;
    } else if (facts.Zone == "UTC" || facts.Zone.starts_with("Etc/")) {
        line.Result = Verdict::Note;
        line.Proof = say(Word::PcZoneNoPlace, {facts.Zone});
        line.ToDo = choose;
    }
    return line;
}

DoctorLine Speicherplatz(const PcFacts& facts, const DoctorWords& say) {
    DoctorLine line{.Check = "disk"};
    if (!facts.FreeBytes) {
        line.Result = Verdict::Untold;
        line.Proof = say(Word::PcFreeUntold);
        return line;
    }
    line.Proof = say(facts.ReadOnly ? Word::PcReadOnly : Word::PcFree, {std::to_string(*facts.FreeBytes / MegaByte)});
    if (facts.ReadOnly) {
        line.Result = Verdict::Fault;
        line.ToDo = say(Word::PcMakeWritable);
    } else if (*facts.FreeBytes < LittleFree) {
        line.Result = *facts.FreeBytes < LeastFree ? Verdict::Fault : Verdict::Note;
        line.ToDo = say(Word::PcMakeRoom);
    }
    return line;
}

} // namespace

void Pc_Befragen(const PcFacts& facts, const DoctorWords& say, std::vector<DoctorLine>& lines) {
    lines.push_back(Uhr(facts, say));
    lines.push_back(Zeitzone(facts, say));
    lines.push_back(Speicherplatz(facts, say));
}

} // namespace qvm
