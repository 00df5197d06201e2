#include "Doctor.h"

#include <algorithm>

namespace qvm {

std::string_view Verdict_Name(Verdict verdict) {
    switch (verdict) {
    case Verdict::Good:
        return "good";
    case Verdict::Note:
        return "note";
    case Verdict::Fault:
        return "fault";
    case Verdict::Untold:
        break;
    }
    return "untold";
}

std::vector<DoctorLine> Doctor_Pruefen(const PcFacts& facts, const DoctorFiles& files) {
    std::vector<DoctorLine> lines;
    Port_Befragen(facts, lines);
    Pc_Befragen(facts, lines);
    Dateien_Befragen(facts, files, lines);
    return lines;
}

Verdict Doctor_Urteil(const std::vector<DoctorLine>& lines) {
    const auto any = [&lines](Verdict verdict) {
        return std::any_of(lines.begin(), lines.end(),
                           [verdict](const DoctorLine& line) { return line.Result == verdict; });
    };
    if (any(Verdict::Fault)) {
        return Verdict::Fault;
    }
    return any(Verdict::Note) || any(Verdict::Untold) ? Verdict::Note : Verdict::Good;
}

} // namespace qvm
