// What a run left open, in words.

#include "RunAccount.h"
#include "Text.h"
#include "Words.h"

#include <algorithm>
#include <array>

namespace qvm {
namespace {

struct PartWords {
    Word Shown;
    std::string_view Id;
};

/// In the order of AccountPart, up to Disconnect.
constexpr std::array Parts{
    PartWords{Word::PartLogin, "login"},
    PartWords{Word::PartChannel, "radio channel"},
    PartWords{Word::PartClock, "date and time"},
    PartWords{Word::PartHistory, "events"},
    PartWords{Word::PartPriority, "priority"},
    PartWords{Word::PartErase, "erase"},
    PartWords{Word::PartCalendarFlag, "calendar switch"},
    PartWords{Word::PartReception, "reception"},
    PartWords{Word::PartTimers, "timers"},
    PartWords{Word::PartHolidays, "holidays"},
    PartWords{Word::PartUser, "user"},
    PartWords{Word::PartTimerFlag, "timer switch"},
    PartWords{Word::PartMode, "lock mode"},
    PartWords{Word::PartDataEnd, "end of data"},
    PartWords{Word::PartDisconnect, "disconnect"},
};

const PartWords& Woerter(AccountPart part) {
    return Parts[std::min(static_cast<std::size_t>(part), Parts.size() - 1)];
}

} // namespace

std::string Luecke_Text(const Kern& kern, const AccountGap& gap) {
    if (gap.First < gap.Last) {
        return Wort(kern, Word::PartUsers, {Ziffern(gap.First), Ziffern(gap.Last)});
    }
    return Wort(kern, Woerter(gap.Part).Shown, {Ziffern(gap.First)});
}

std::string Luecke_Kennung(const AccountGap& gap) {
    std::string text(Woerter(gap.Part).Id);
    if (gap.First > 0) {
        text += (gap.First < gap.Last ? "s " : " ") + Ziffern(gap.First);
        text += gap.First < gap.Last ? " to " + Ziffern(gap.Last) : "";
    }
    return text;
}

std::string Konto_Fehlendes(const Kern& kern, const RunAccount& account) {
    if (account.Vollstaendig()) {
        return {};
    }
    std::string list;
    for (const AccountGap& gap : Konto_Luecken(account)) {
        list += (list.empty() ? "" : ", ") + Luecke_Text(kern, gap);
    }
    const int whole = account.Gesamt();
    if (account.Erledigt() == whole) {
        return Wort(kern, Word::RunUnwanted, {list});
    }
    return Wort(kern, Word::RunMissing, {Ziffern(whole - account.Erledigt()), Ziffern(whole), list});
}

std::string Unit_Stand_Text(const Kern& kern, const ProgUnit& unit, const UnitProgress& progress) {
    const bool scanner = unit.Type == '2';
    const std::string have = Ziffern(progress.Templates);
    const std::string wanted = Ziffern(progress.TemplatesWanted);
    switch (progress.Stage) {
    case UnitStage::LoggedIn:
        return Wort(kern, scanner ? Word::UnitNotErased : Word::UnitUnchanged, {unit.Name});
    case UnitStage::ChangeSent:
        return Wort(kern, scanner ? Word::UnitEraseSent : Word::UnitSettingSent, {unit.Name});
    case UnitStage::Changed:
        return Wort(kern, scanner ? Word::UnitErased : Word::UnitSettingTaken, {unit.Name, have, wanted});
    case UnitStage::None:
        break;
    }
    return Wort(kern, Word::UnitBegun, {unit.Name});
}

} // namespace qvm
