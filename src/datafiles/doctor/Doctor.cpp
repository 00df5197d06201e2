#include "Doctor.h"

#include "Text.h"

#include <algorithm>
#include <array>
#include <utility>

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

std::string DoctorWords::operator()(Word which, std::initializer_list<std::string_view> places) const {
    return Ausfuellen(NachUtf8(Wort(which, language_)), places);
}

std::string Urteil_Text(const DoctorWords& say, Verdict verdict) {
    switch (verdict) {
    case Verdict::Good:
        return say(Word::PcGood);
    case Verdict::Note:
        return say(Word::PcNote);
    case Verdict::Fault:
        return say(Word::PcFault);
    case Verdict::Untold:
        break;
    }
    return say(Word::PcUntold);
}

std::string Pruefung_Text(const DoctorWords& say, std::string_view check) {
    using Name = std::pair<std::string_view, Word>;
    static constexpr std::array names{Name("adapter", Word::Adapter),
                                      Name("right", Word::PcRight),
                                      Name("holder", Word::PcHolder),
                                      Name("latency", Word::PcLatency),
                                      Name("answer", Word::PcAnswer),
                                      Name("services", Word::PcServices),
                                      Name("clock", Word::PcClock),
                                      Name("zone", Word::PcZone),
                                      Name("disk", Word::PcDisk),
                                      Name("folder", Word::PcFolder),
                                      Name("configuration", Word::PcConfiguration),
                                      Name("file", Word::PcFile),
                                      Name("language", Word::PcLanguage)};
    const auto* const found =
        std::find_if(names.begin(), names.end(), [check](const Name& name) { return name.first == check; });
    return found == names.end() ? std::string() : say(found->second);
}

std::vector<DoctorLine> Doctor_Pruefen(const PcFacts& facts, const DoctorFiles& files, const DoctorWords& say) {
    std::vector<DoctorLine> lines;
    Port_Befragen(facts, say, lines);
    Pc_Befragen(facts, say, lines);
    Dateien_Befragen(facts, files, say, lines);
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
