#include "Befehle.h"
#include "Gitterzeile.h"
#include "Liste.h"
#include "LockRecords.h"
#include "Record.h"
#include "Text.h"
#include "TransferWindows.h"
#include "Vorpruefung.h"
#include "Zeitworte.h"
#include "Zutrittsauskunft.h"

#include <array>
#include <ostream>

namespace qvm {

namespace {

using Json = nlohmann::ordered_json;

constexpr int Days = 7;

/// What is told of the lock beside its users.
struct LockAnswer {
    std::string Name, Serial; ///< UTF-8
    bool TimerFlag = false, CalendarFlag = false;
    std::vector<UserTimes::Slot> Timers, Open; ///< the lock timers that it is sent, and those of them that hold
};

LockAnswer Schloss_Auskunft(const AccessFacts& facts, const DateTime& at) {
    LockAnswer lock{.Name = Anzeige_Aus_1252(Trim(facts.Row.Name)),
                    .Serial = Anzeige_Aus_1252(Trim(facts.Row.Serial)),
                    .TimerFlag = facts.Daten.Values.FlagLockTimer != 0,
                    .CalendarFlag = facts.Daten.Values.FlagCalendar != 0,
                    .Timers = Schloss_Zeiten(facts.Daten),
                    .Open = {}};
    for (const UserTimes::Slot& slot : lock.Timers) {
        if (Zeit_Haelt(slot.Row, Wochentag(Heute(at)), at.Hour * HourMinutes + at.Minute)) {
            lock.Open.push_back(slot);
        }
    }
    return lock;
}

std::string Slots_Text(const std::vector<UserTimes::Slot>& slots) {
    std::string text;
    for (const UserTimes::Slot& slot : slots) {
        text += (text.empty() ? "" : ", ") + std::to_string(slot.Number) + " " + Slot_Text(slot.Row);
    }
    return text;
}

std::string Begruendung(const UserAnswer& answer) {
    switch (answer.Why) {
    case WhyCode::NoMark:
        return "no access to this lock";
    case WhyCode::NoGroup:
        return "no group: at any time";
    case WhyCode::GroupGone:
        return "its group is not there any more: the lock is sent no limit";
    case WhyCode::GroupEmpty:
        return "its group has no slot: the lock is sent no limit";
    case WhyCode::AAndBOnly:
        return "the lock knows Timer-A and Timer-B only: it is sent no limit";
    case WhyCode::Fingerprint:
        return "the lock is sent no timer for a fingerprint: no limit";
    case WhyCode::NoTimes:
        return "the lock takes no times of persons: no limit";
    case WhyCode::TimesOff:
        return "the times of persons are switched off for this lock: it is sent empty slots";
    case WhyCode::Slot:
        return "slot " + Slots_Text(answer.Open);
    case WhyCode::Outside:
        return "outside of slot " + Slots_Text(answer.Times.Slots);
    }
    return {};
}

// ---- as text

/// The holiday as it was entered: a single one is sent with the day behind its end.
std::string Feiertag_Text(const HolidayHit& hit) {
    constexpr int Century = 2000;
    const HolidayRow& row = hit.Row;
    const Datum from{Century + row[2], row[1], row[0]}, end{Century + row[5], row[4], row[3]};
    if (!hit.Permanent) {
        return Datum_Text(from) + " to " + Datum_Text(Datum_Plus(end, -1)) + " (single)";
    }
    constexpr std::size_t DayAndMonth = 6;
    return Datum_Text(from).substr(0, DayAndMonth) + " to " + Datum_Text(end).substr(0, DayAndMonth) + " (permanent)";
}

void Schloss_Schreiben(std::ostream& out, const LockAnswer& lock, const AccessFacts& facts, const Datum& day) {
    out << "Lock timers: " << (lock.TimerFlag ? "on" : "off");
    if (lock.Timers.empty()) {
        out << ", none is sent\n";
    } else {
        out << ", sent are " << Slots_Text(lock.Timers) << "; "
            << (lock.Open.empty() ? "none holds" : "holding: " + Slots_Text(lock.Open)) << "\n";
    }
    const auto holiday = Feiertag_Am(facts.Daten, day);
    out << "Holidays: " << (lock.CalendarFlag ? "on" : "off") << ", "
        << (holiday ? "holiday " + Feiertag_Text(*holiday) : "no holiday") << "\n";
}

void Tabelle(std::ostream& out, const AccessFacts& facts, const std::vector<int>& users, const DateTime& at) {
    std::vector<std::vector<std::string>> rows{{"User", "Name", "Group", "In", "Why"}};
    for (const int user : users) {
        const UserAnswer answer = facts.Answer(user, at);
        rows.push_back(
            {std::to_string(user), answer.Name, answer.Group, answer.Admitted ? "yes" : "no", Begruendung(answer)});
    }
    if (users.empty()) {
        out << "No users.\n";
    } else {
        Tabelle_Schreiben(out, rows);
    }
}

/// A character for each half hour: all of it, a part, or nothing of it.
std::string Tagesbild(const std::vector<MinuteSpan>& spans) {
    constexpr int HalfHour = 30;
    std::string picture;
    for (int begin = 0; begin < DayMinutes; begin += HalfHour) {
        int open = 0;
        for (const MinuteSpan& span : spans) {
            open += std::max(0, std::min(span.To, begin + HalfHour - 1) - std::max(span.From, begin) + 1);
        }
        picture += open == HalfHour ? '#' : open > 0 ? '+' : '.';
    }
    return picture;
}

std::string Spannen_Text(const std::vector<MinuteSpan>& spans) {
    std::string text;
    for (const MinuteSpan& span : spans) {
        text += " " + Uhrzeit_Text(span.From) + "-" + Uhrzeit_Text(span.To);
    }
    return text;
}

std::vector<MinuteSpan> Spannen(const UserAnswer& answer, int weekday) {
    return answer.Why == WhyCode::NoMark ? std::vector<MinuteSpan>{} : Tagesspannen(answer.Times, weekday);
}

Datum Montag(const Datum& day) {
    return Datum_Plus(day, 1 - Wochentag(day));
}

void Woche_Schreiben(std::ostream& out, const AccessFacts& facts, const std::vector<int>& users, const DateTime& at) {
    for (const int user : users) {
        const UserAnswer answer = facts.Answer(user, at);
        const bool held = answer.Times.Limited && answer.Why != WhyCode::TimesOff;
        out << "User " << user << " \"" << answer.Name << "\"" << (answer.Group.empty() ? "" : ", " + answer.Group)
            << (held ? "" : ", " + Begruendung(answer))
            << "\n                0     3     6     9     12    15    18    21    24\n";
        for (int n = 0; n < Days; ++n) {
            const Datum day = Datum_Plus(Montag(Heute(at)), n);
            const auto spans = Spannen(answer, n + 1);
            out << Tag_Text(day) << " |" << Tagesbild(spans) << "|" << Spannen_Text(spans)
                << (Feiertag_Am(facts.Daten, day) ? " holiday" : "") << "\n";
        }
    }
    if (users.empty()) {
        out << "No users.\n";
    }
}

// ---- as a document

Json Slots_Json(const std::vector<UserTimes::Slot>& slots) {
    Json list = Json::array();
    for (const UserTimes::Slot& slot : slots) {
        const TimerRow& row = slot.Row;
        list.push_back({{"slot", slot.Number},
                        {"day", row[0]},
                        {"from", Uhrzeit_Text(row[1] * HourMinutes + row[2])},
                        {"to", Uhrzeit_Text(row[3] * HourMinutes + row[4])}});
    }
    return list;
}

Json Woche_Json(const AccessFacts& facts, const UserAnswer& answer, const Datum& monday) {
    Json week = Json::array();
    for (int n = 0; n < Days; ++n) {
        Json spans = Json::array();
        for (const MinuteSpan& span : Spannen(answer, n + 1)) {
            spans.push_back({{"from", Uhrzeit_Text(span.From)}, {"to", Uhrzeit_Text(span.To)}});
        }
        const Datum day = Datum_Plus(monday, n);
        week.push_back(
            {{"date", Datum_Text(day)}, {"holiday", Feiertag_Am(facts.Daten, day).has_value()}, {"spans", spans}});
    }
    return week;
}

Json Antwort_Json(const AccessFacts& facts, const UserAnswer& answer, const Optionen& options, const DateTime& at) {
    Json told{{"user", answer.User},
              {"name", answer.Name},
              {"group", answer.Group},
              {"admitted", answer.Admitted},
              {"why", Grund_Wort(answer.Why)},
              {"slots", Slots_Json(answer.Times.Slots)},
              {"holding", Slots_Json(answer.Open)}};
    if (options.Week) {
        told["week"] = Woche_Json(facts, answer, Montag(Heute(at)));
    }
    return told;
}

Json Feiertag_Json(const AccessFacts& facts, const Datum& day) {
    const auto hit = Feiertag_Am(facts.Daten, day);
    return hit ? Json{{"permanent", hit->Permanent}, {"text", Feiertag_Text(*hit)}} : Json(nullptr);
}

void Ausgeben(const Console& console, const AccessFacts& facts, const std::vector<int>& users, const Optionen& options,
              const DateTime& at) {
    const LockAnswer lock = Schloss_Auskunft(facts, at);
    const std::string time = Uhrzeit_Text(at.Hour * HourMinutes + at.Minute);
    if (console.Json) {
        Json list = Json::array();
        for (const int user : users) {
            list.push_back(Antwort_Json(facts, facts.Answer(user, at), options, at));
        }
        console.Ergebnis(
            {{"command", "when"},
             {"ok", true},
             {"exit", 0},
             {"lock", options.Lock},
             {"name", lock.Name},
             {"serial", lock.Serial},
             {"at", Datum_Text(Heute(at)) + " " + time},
             {"lockTimers",
              {{"on", lock.TimerFlag}, {"slots", Slots_Json(lock.Timers)}, {"holding", Slots_Json(lock.Open)}}},
             {"calendar", lock.CalendarFlag},
             {"holiday", Feiertag_Json(facts, Heute(at))},
             {"users", list}});
        return;
    }
    console.Out << "Lock " << options.Lock << " \"" << lock.Name << "\" " << lock.Serial << ", " << Tag_Text(Heute(at))
                << " " << time << "\n";
    if (options.Week) {
        Woche_Schreiben(console.Out, facts, users, at);
    } else {
        Tabelle(console.Out, facts, users, at);
    }
    Schloss_Schreiben(console.Out, lock, facts, Heute(at));
}

/// Empty when the dataset stands; otherwise why it does not.
std::vector<std::string> Datensatz_Holen(Programm& program, AccessFacts& facts, int lock) {
    facts.Row = Gitterzeile_Lesen(program.Transfer->F13.FGK13, lock);
    if (Trim(facts.Row.Serial).empty()) {
        return {"Lock " + std::to_string(lock) + " has no serial number in the lock table."};
    }
    if (Datensatz_Laden(program.kern, facts.Daten, facts.Row, DatasetVariant::Network) == DatasetStatus::Good) {
        return {};
    }
    std::vector<std::string> why{"What lock " + std::to_string(lock) + " would be sent could not be put together."};
    for (const std::string& note : facts.Daten.Notes) {
        why.push_back(Anzeige_Aus_1252(note));
    }
    return why;
}

} // namespace

ExitCode Befehl_Zutritt(const Umgebung& world, const Console& console, const Optionen& options) {
    if (const std::string why = world.Datenverzeichnis_Fehler(); !why.empty()) {
        return console.Fehlschlag("when", {why});
    }
    const DataLock reading(world.DatPfad(), DataLock::Use::Read);
    Sperre_Holen(reading, console);
    Programm program(world.Welt, world.AppPath);
    Programm_Start(program, false);
    // Nothing is sent: what is damaged is told, and taken as it is.
    if (!Dateien_Vorpruefen(console, "when", program, {options.Lock}, true, true)) {
        return ExitCode::Fault;
    }
    AccessFacts facts{.kern = program.kern, .Row = {}, .Daten = {}, .Groups = {}, .UserNames = {}};
    if (const auto why = Datensatz_Holen(program, facts, options.Lock); !why.empty()) {
        return console.Fehlschlag("when", why);
    }
    if (!Gruppen_Und_Namen_Laden(program.kern, facts)) {
        return console.Fehlschlag("when", {"The files of the users cannot be read; check names them."});
    }
    if (options.User != 0 && !facts.Known(options.User)) {
        return console.Fehlschlag("when", {"There is no user " + std::to_string(options.User) + "."});
    }
    const DateTime at = options.At.value_or(world.Welt.Now());
    Ausgeben(console, facts, options.User != 0 ? std::vector{options.User} : facts.Users(), options, at);
    return ExitCode::Good;
}

} // namespace qvm
