#include "Blattplan.h"

#include "CsvLesen.h"
#include "Text.h"

#include <algorithm>
#include <set>
#include <utility>

namespace qvm {
namespace {

std::string Text(Word which, std::string_view language, std::initializer_list<std::string_view> places) {
    return Ausfuellen(Wort(which, language), places);
}

/// An empty text is not seen in a sentence.
std::string Sichtbar(const std::string& text, std::string_view language) {
    return Trim(text).empty() ? std::string(Wort(Word::SheetNothing, language)) : text;
}

std::string Aufgezaehlt(const std::vector<std::string>& texts, std::size_t most) {
    std::string list;
    for (std::size_t n = 0; n < texts.size() && n < most; ++n) {
        list += (n == 0 ? "" : ", ") + texts[n];
    }
    return texts.size() > most ? list + " ..." : list;
}

} // namespace

std::size_t Blattplan::Count(Blattart kind) const {
    return static_cast<std::size_t>(
        std::count_if(Steps.begin(), Steps.end(), [kind](const Blattschritt& step) { return step.Kind == kind; }));
}

std::size_t Blattplan::ChangedRows() const {
    std::set<int> added;
    std::set<int> changed;
    for (const Blattschritt& step : Steps) {
        if (step.Kind == Blattart::Added) {
            added.insert(step.Row);
        } else if (step.Kind == Blattart::Changed && !added.contains(step.Row)) {
            changed.insert(step.Row);
        }
    }
    return changed.size();
}

std::string Blattmangel_Text(const Blattplan& plan, std::string_view language) {
    return plan.Fault ? Text(*plan.Fault, language, {plan.FaultText}) : std::string();
}

std::string Blattschritt_Text(const Blattschritt& step, std::string_view language) {
    const std::string line = Text(Word::SheetLine, language, {Ziffern(step.Line), step.Who}) + ": ";
    const std::string heading = step.Heading.empty() ? std::string() : step.Heading + ": ";
    switch (step.Kind) {
    case Blattart::Added:
        return line + std::string(Wort(Word::SheetAdded, language));
    case Blattart::Changed:
        return line + heading + Sichtbar(step.Old, language) + " > " + Sichtbar(step.New, language);
    default:
        return line + heading + (step.Column == 0 ? std::string() : Sichtbar(step.New, language) + ": ") +
               std::string(Wort(step.Why.value_or(Word::SheetNotAllowed), language));
    }
}

std::vector<std::string> Blattplan_Texte(const Blattplan& plan, std::string_view language, std::size_t most) {
    constexpr std::size_t names = 5;
    std::vector<std::string> lines{Text(Word::SheetSummary, language,
                                        {Ziffern(static_cast<std::int64_t>(plan.Count(Blattart::Added))),
                                         Ziffern(static_cast<std::int64_t>(plan.ChangedRows())),
                                         Ziffern(static_cast<std::int64_t>(plan.Count(Blattart::Refused)))})};
    if (!plan.Missing.empty()) {
        lines.push_back(
            Text(Word::SheetMissing, language,
                 {Ziffern(static_cast<std::int64_t>(plan.Missing.size())), Aufgezaehlt(plan.Missing, names)}));
    }
    if (!plan.Left.empty()) {
        lines.push_back(Text(Word::SheetLeft, language, {Aufgezaehlt(plan.Left, plan.Left.size())}));
    }
    std::size_t told = 0;
    for (const bool refused : {true, false}) {
        for (const Blattschritt& step : plan.Steps) {
            if ((step.Kind == Blattart::Refused) == refused && told < most) {
                lines.push_back(Blattschritt_Text(step, language));
                ++told;
            }
        }
    }
    if (told < plan.Steps.size()) {
        lines.push_back(
            Text(Word::SheetMore, language, {Ziffern(static_cast<std::int64_t>(plan.Steps.size() - told))}));
    }
    return lines;
}

Blattplan Blatt_Planen(std::string_view text, std::span<const Blattspalte> columns, std::span<const int> key,
                       const Blattplaner& make) {
    std::optional<Blattplan> first;
    for (const Zeichensatz set : Zeichensaetze(text)) {
        const Blatt sheet = Blatt_Lesen(text, set, columns, key);
        Blattplan plan{
            .Fault = sheet.Fault, .FaultText = sheet.FaultText, .Steps = {}, .Left = sheet.Left, .Missing = {}};
        if (!sheet.Fault) {
            make(sheet, plan);
            if (plan.Steps.empty()) {
                return plan;
            }
        }
        if (!first) {
            first = std::move(plan);
        }
    }
    return *first;
}

bool Blattfeld_Gleich(std::string_view field, std::string_view cell) {
    const std::string line = Ohne_Zeilenenden(cell); // as the export of the users has it
    for (const std::string_view text : {field, Csv_Inhalt(field)}) {
        if (RTrim(text) == RTrim(cell) || RTrim(text) == RTrim(line)) {
            return true;
        }
    }
    return false;
}

} // namespace qvm
