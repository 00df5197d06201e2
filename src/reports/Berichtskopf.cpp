#include "Berichtskopf.h"

#include "Words.h"
#include "Zeit.h"

#include <utility>

namespace qvm {

Report Berichtskopf(const Kern& kern, std::string title) {
    const DateTime now = kern.Welt.Now();
    return {.Title = std::move(title),
            .Subtitle = {},
            .System = std::string(SystemTitle),
            .Moment = Datum_Text(Heute(now)) + " " + Uhrzeit_Text(now.Hour * 60 + now.Minute),
            .PageText = Wort(kern, Word::ReportPage, {"%1", "%2"}),
            .Nothing = Wort(kern, Word::ReportNothing)};
}

std::string Benutzerzeile(const Kern& kern, const ReportUser& user) {
    return Wort(kern, Word::ReportUserLine, {std::to_string(user.Number), user.Name});
}

std::string Schluesselname(const Kern& kern, ReportKey key) {
    switch (key) {
    case ReportKey::EKey:
        return "E-Key";
    case ReportKey::Transponder:
        return Wort(kern, Word::LearnTransponder);
    case ReportKey::None:
        break;
    }
    return {};
}

std::string Schluesseltext(const Kern& kern, const ReportUser& user) {
    const std::string name = Schluesselname(kern, user.Key);
    return user.KeyLabel.empty() ? name : name + ": " + user.KeyLabel;
}

} // namespace qvm
