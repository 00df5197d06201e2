#include "Blattfrage.h"

#include "Secret.h"
#include "Words.h"

#include <utility>

namespace qvm {
namespace {

constexpr std::size_t ShownSteps = 20; ///< as many lines as a message has room for on a small screen
constexpr std::string_view BlattTitle = "INFO";

std::string Untereinander(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += line + "\r\n";
    }
    return text + "\r\n";
}

std::optional<std::string> Blatt_Oeffnen(const Kern& kern, std::string_view kind) {
    const auto path = kern.Welt.OpenFile(
        {.Title = Wort(kern, Word::SheetImport), .Filter = std::string(kind) + "(*.CSV)|*.CSV|", .Directory = {}});
    if (!path) {
        return std::nullopt;
    }
    std::string bytes;
    if (kern.Welt.Files.ReadAll(*path, bytes) != ReadStatus::Ok) {
        kern.Meldung(Wort(kern, Word::SheetUnread), Buttons::Ok, Icon::Exclamation, BlattTitle);
        return std::nullopt;
    }
    return bytes;
}

bool Wird_Gewollt(const Kern& kern, const Blattplan& plan) {
    const std::string& language = kern.Config.Sprache;
    if (plan.Fault) {
        kern.Meldung(Blattmangel_Text(plan, language), Buttons::Ok, Icon::Exclamation, BlattTitle);
        return false;
    }
    const std::string told = Untereinander(Blattplan_Texte(plan, language, ShownSteps));
    if (!plan.Changes()) {
        kern.Meldung(told + Wort(kern, Word::SheetNoChange), Buttons::Ok, Icon::Information, BlattTitle);
        return false;
    }
    constexpr int no = 2;
    return kern.Meldung(told + Wort(kern, Word::SheetTake), Buttons::YesNo, Icon::Question, BlattTitle, no) ==
           Answer::Yes;
}

} // namespace

std::optional<Blattplan> Blattplan_Holen(const Kern& kern, std::string_view kind,
                                         const std::function<Blattplan(std::string_view)>& make) {
    auto bytes = Blatt_Oeffnen(kern, kind);
    if (!bytes) {
        return std::nullopt;
    }
    const Wiper wipeBytes(*bytes);
    Blattplan plan = make(*bytes);
    return Wird_Gewollt(kern, plan) ? std::optional(std::move(plan)) : std::nullopt;
}

} // namespace qvm
