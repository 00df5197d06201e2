#include "Zutrittsauskunft.h"

#include "Console.h"
#include "Record.h"
#include "Text.h"
#include "UserRecords.h"
#include "Zeitgruppen.h"

#include <algorithm>
#include <array>

namespace qvm {

namespace {

const ProgSlot* Slot_Von(const Dataset& dataset, int user) {
    const auto found = std::find_if(dataset.Slots.begin(), dataset.Slots.end(),
                                    [user](const ProgSlot& slot) { return slot.User == user; });
    return found == dataset.Slots.end() ? nullptr : &*found;
}

const GroupEntry* Gruppe_Finden(const GroupTable& groups, std::string_view id) {
    const auto found =
        std::find_if(groups.begin() + 1, groups.end(), [id](const GroupEntry& entry) { return entry.PbId == id; });
    return found == groups.end() ? nullptr : &*found;
}

bool Ohne_Gruppe(const ProgSlot& slot) {
    return slot.TimerName.empty() || slot.TimerName == "-";
}

/// Why a user who is held to no slot is not.
WhyCode Grund_Ohne_Grenze(const AccessFacts& facts, const ProgSlot& slot) {
    const std::string& mode = facts.Daten.Values.TimerMode;
    if (Ohne_Gruppe(slot)) {
        return WhyCode::NoGroup;
    }
    if (mode == TimerPB_UT) {
        return Gruppe_Finden(facts.Groups, slot.TimerName) == nullptr ? WhyCode::GroupGone : WhyCode::GroupEmpty;
    }
    if (mode != Timer_A_B) {
        return WhyCode::NoTimes;
    }
    return slot.Kind == SlotKind::Finger ? WhyCode::Fingerprint : WhyCode::AAndBOnly;
}

std::string Gruppenname(const GroupTable& groups, const ProgSlot& slot) {
    if (Ohne_Gruppe(slot)) {
        return {};
    }
    const GroupEntry* group = Gruppe_Finden(groups, slot.TimerName);
    return Anzeige_Aus_1252(group != nullptr ? Trim(group->Name) : std::string_view(slot.TimerName));
}

} // namespace

std::string_view Grund_Wort(WhyCode why) {
    constexpr std::array<std::string_view, 10> words{"no-mark",     "no-group", "group-gone", "group-empty", "a-b-only",
                                                     "fingerprint", "no-times", "times-off",  "slot",        "outside"};
    return words[static_cast<std::size_t>(why)];
}

UserAnswer AccessFacts::Answer(int user, const DateTime& at) const {
    UserAnswer answer{
        .User = user, .Name = UserNames[static_cast<std::size_t>(user)], .Group = {}, .Times = {}, .Open = {}};
    const ProgSlot* slot = Slot_Von(Daten, user);
    if (slot == nullptr) {
        answer.Why = WhyCode::NoMark;
        return answer;
    }
    answer.Group = Gruppenname(Groups, *slot);
    answer.Times = Benutzer_Zeiten(Daten, *slot);
    if (!answer.Times.Limited) {
        answer.Admitted = true;
        answer.Why = Grund_Ohne_Grenze(*this, *slot);
        return answer;
    }
    std::copy_if(answer.Times.Slots.begin(), answer.Times.Slots.end(), std::back_inserter(answer.Open),
                 [&](const UserTimes::Slot& one) {
                     return Zeit_Haelt(one.Row, Wochentag(Heute(at)), at.Hour * HourMinutes + at.Minute);
                 });
    answer.Admitted = !answer.Open.empty();
    answer.Why = answer.Admitted                  ? WhyCode::Slot
                 : Trim(Row.PersonTimers).empty() ? WhyCode::TimesOff
                                                  : WhyCode::Outside;
    return answer;
}

std::vector<int> AccessFacts::Users() const {
    std::vector<int> users;
    for (const ProgSlot& slot : Daten.Slots) {
        users.push_back(slot.User);
    }
    return users;
}

bool AccessFacts::Known(int user) const {
    return user >= 1 && static_cast<std::size_t>(user) < UserNames.size() &&
           !UserNames[static_cast<std::size_t>(user)].empty();
}

bool Gruppen_Und_Namen_Laden(Kern& kern, AccessFacts& facts) {
    facts.Groups = PersonGruppen_Vorgabe();
    RecordFile users(UserRecord::Record);
    if (!PersonGruppen_Laden(kern, facts.Groups) || users.Laden(kern.Welt.Files, kern.DatPfad()) == ReadStatus::Error) {
        return false;
    }
    facts.UserNames.assign(1, {});
    for (int number = 1; number < kern.Globals.UserRows; ++number) {
        facts.UserNames.push_back(Anzeige_Aus_1252(Trim(users.Text(number, UserRecord::UserName))));
    }
    return true;
}

std::vector<MinuteSpan> Tagesspannen(const UserTimes& times, int weekday) {
    if (!times.Limited) {
        return {{0, DayMinutes - 1}};
    }
    std::vector<MinuteSpan> spans;
    for (int minute = 0; minute < DayMinutes; ++minute) {
        const bool open = std::any_of(times.Slots.begin(), times.Slots.end(), [&](const UserTimes::Slot& slot) {
            return Zeit_Haelt(slot.Row, weekday, minute);
        });
        if (!open) {
            continue;
        }
        if (!spans.empty() && spans.back().To == minute - 1) {
            spans.back().To = minute;
        } else {
            spans.push_back({minute, minute});
        }
    }
    return spans;
}

} // namespace qvm
