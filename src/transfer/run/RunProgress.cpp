#include "RunProgress.h"

#include "Text.h"
#include "Words.h"

#include <algorithm>
#include <cstddef>

namespace qvm {
namespace {

/// So much must have been seen before the rest is estimated from it.
constexpr int FewestTelegrams = 5;
constexpr std::int64_t ShortestMs = 2000;
/// More is no estimate any more.
constexpr std::int64_t LongestSeconds = 99LL * 60;

using State = AccountItem::State;

bool Zaehlt(const Programmierlauf& run, const AccountItem& item) {
    if (item.Part != AccountPart::Unit || item.Who < 0 || item.Who >= static_cast<int>(run.Bericht.Units.size())) {
        return true;
    }
    return run.Bericht.Units[static_cast<std::size_t>(item.Who)].End != UnitReport::State::Failed;
}

std::optional<int> Restzeit(const Programmierlauf& run, const RunProgress& progress) {
    // Behind a cancel the rest does not go out, and without an adapter nothing does.
    if (Lauf_Abgebrochen(run) || Lauf_Ohne_Adapter(run)) {
        return {};
    }
    const std::int64_t passed = run.kern.Welt.Milliseconds() - run.Tempo.Since;
    const int seen = progress.Done - run.Tempo.Done;
    const int left = progress.Total - progress.Done;
    if (run.Gesamtende || progress.Endless || left <= 0 || seen < FewestTelegrams || passed < ShortestMs) {
        return {};
    }
    return static_cast<int>(std::min((passed * left / seen + 999) / 1000, LongestSeconds));
}

/// In steps in which nobody takes it for exact.
std::string Restzeit_Text(const Kern& kern, int seconds) {
    constexpr std::int64_t perMinute = 60, step = 5;
    if (seconds <= perMinute) {
        return Wort(kern, Word::TimeLeftSeconds, {Ziffern((seconds + step - 1) / step * step)});
    }
    return Wort(kern, Word::TimeLeftMinutes, {Ziffern((seconds + perMinute - 1) / perMinute)});
}

std::string Unit_Schritt(const Programmierlauf& run, const AccountItem& item) {
    const auto unit = static_cast<std::size_t>(item.Who);
    const std::string name = unit < run.Daten.Units.size() ? run.Daten.Units[unit].Name : std::string();
    const UnitProgress progress = Konto_Unit_Stand(run.Konto, item.Who);
    if (item.Code == 0x4A) {
        const int which = std::min(progress.Templates + 1, progress.TemplatesWanted);
        return Wort(run.kern, Word::StepTemplates, {name, Ziffern(which), Ziffern(progress.TemplatesWanted)});
    }
    return Wort(run.kern, Word::StepUnit, {name});
}

std::string Schritt(const Programmierlauf& run, const AccountItem& item) {
    switch (item.Part) {
    case AccountPart::History:
        return Wort(run.kern, Word::StepHistory, {Ziffern(run.link.Lauf.Chain.HistoryRecords)});
    case AccountPart::User:
        return Wort(run.kern, Word::StepUsers,
                    {Ziffern(item.Who + 1), Ziffern(static_cast<int>(run.Daten.Slots.size()))});
    case AccountPart::Unit:
        return Unit_Schritt(run, item);
    default:
        return Luecke_Text(run.kern, {.Part = item.Part});
    }
}

} // namespace

RunProgress Lauf_Fortschritt(const Programmierlauf& run) {
    RunProgress progress;
    const AccountItem* next = nullptr;
    for (const AccountItem& item : run.Konto.Items) {
        if (Zaehlt(run, item)) {
            const bool done = item.Is == State::Acknowledged;
            ++progress.Total;
            progress.Done += done ? 1 : 0;
            next = next == nullptr && !done ? &item : next;
        }
    }
    // The telegram that is on its way, else the next one.
    const auto awaited = static_cast<std::size_t>(run.Konto.Awaited);
    const AccountItem* now =
        run.Konto.Awaited >= 0 && awaited < run.Konto.Items.size() ? &run.Konto.Items[awaited] : next;
    progress.Percent = Prozent(progress.Done, progress.Total);
    progress.Endless = !run.Gesamtende && now != nullptr && now->Part == AccountPart::History;
    progress.Step = now == nullptr ? std::string() : Schritt(run, *now);
    progress.SecondsLeft = Restzeit(run, progress);
    return progress;
}

std::string Schritt_Text(const Kern& kern, const RunProgress& progress) {
    return progress.Step + (progress.SecondsLeft ? ", " + Restzeit_Text(kern, *progress.SecondsLeft) : "");
}

std::string Fortschritt_Text(const Kern& kern, const RunProgress& progress) {
    const std::string share = progress.Endless ? std::string() : Ziffern(progress.Percent) + " %";
    const std::string step = Schritt_Text(kern, progress);
    return share + (share.empty() || step.empty() ? "" : ", ") + step;
}

void Lauf_Tempo_Neu(Programmierlauf& run) {
    run.Tempo = {.Since = run.kern.Welt.Milliseconds(), .Done = Lauf_Fortschritt(run).Done};
}

} // namespace qvm
