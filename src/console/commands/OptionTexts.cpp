// What the options of qvmctl must fulfil beyond their form.

#include "OptionTexts.h"

#include "Seriennummer.h"
#include "Zeit.h"

#include <algorithm>
#include <set>

namespace qvm {

namespace {

/// "DD.MM.YYYY hh:mm"; nothing when the text is none.
std::optional<DateTime> Zeitpunkt_Lesen(const std::string& text) {
    const std::size_t blank = text.find(' ');
    if (blank == std::string::npos) {
        return std::nullopt;
    }
    const auto day = Datum_Lesen(text.substr(0, blank));
    const auto minutes = Uhrzeit_Lesen(text.substr(blank + 1));
    if (!day || !minutes) {
        return std::nullopt;
    }
    return DateTime{
        .Year = day->Year, .Month = day->Month, .Day = day->Day, .Hour = *minutes / 60, .Minute = *minutes % 60};
}

/// A moment that a card can hold. Gives what is wrong with it; empty when all is well.
std::string Kartenmoment_Lesen(const char* option, const std::string& text, std::optional<DateTime>& moment) {
    moment = text.empty() ? std::nullopt : Zeitpunkt_Lesen(text);
    if (!text.empty() && !moment) {
        return std::string(option) + ": " + text + " is not a time DD.MM.YYYY hh:mm";
    }
    const bool beyond = moment && (moment->Year < 2000 || moment->Year > 2099);
    return beyond ? std::string(option) + ": the year must be 2000 to 2099" : std::string();
}

std::string Karte_Nachpruefen(Optionen& options, const OptionTexts& texts) {
    for (std::string fault : {Kartenmoment_Lesen("--in", texts.CheckIn, options.CheckIn),
                              Kartenmoment_Lesen("--out", texts.CheckOut, options.CheckOut)}) {
        if (!fault.empty()) {
            return fault;
        }
    }
    if (options.Wanted != Command::Card) {
        return {};
    }
    const bool any = options.CheckIn || options.CheckOut || options.Group || !options.Locks.empty();
    if (options.Kind == "read") {
        return any ? "card read takes none of --in, --out, --door and --group" : "";
    }
    return options.CheckIn && options.CheckOut && !options.Locks.empty() ? ""
                                                                         : "card write needs --in, --out and --door";
}

/// A whole number from 1 to `last`; 0 when the text is none.
int Nummer_Lesen(const std::string& text, int last) {
    constexpr std::size_t digits = 3;
    const bool number = !text.empty() && text.size() <= digits &&
                        std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
    const int value = number ? std::stoi(text) : 0;
    return value <= last ? value : 0;
}

std::string Bericht_Nachpruefen(Optionen& options) {
    if (options.Wanted != Command::Report) {
        return {};
    }
    if (options.Kind == "people") {
        return options.Subject.empty() ? "" : "report people takes neither a number nor a file";
    }
    if (options.Kind == "events") {
        return options.Subject.empty() ? "report events needs a history file" : "";
    }
    const bool lock = options.Kind == "persons";
    int& number = lock ? options.Lock : options.User;
    number = Nummer_Lesen(options.Subject, lock ? 200 : 250);
    return number > 0
               ? ""
               : "report " + options.Kind + " needs the number of a " + (lock ? "lock, 1 to 200" : "user, 1 to 250");
}

std::string Scan_Nachpruefen(const Optionen& options) {
    if (options.Take.empty()) {
        return {};
    }
    if (options.Lock == 0) {
        return "--take needs --lock or --units";
    }
    return Serie_Zerlegen(options.Take) ? std::string() : "--take: " + options.Take + " is no serial number";
}

} // namespace

std::string Optionen_Nachpruefen(Optionen& options, const OptionTexts& texts, const Datum& today) {
    std::set<int> seen;
    for (const int lock : options.Locks) {
        if (!seen.insert(lock).second) {
            return "lock " + std::to_string(lock) + " is named twice";
        }
    }
    for (std::string fault :
         {Scan_Nachpruefen(options), Karte_Nachpruefen(options, texts), Bericht_Nachpruefen(options)}) {
        if (!fault.empty()) {
            return fault;
        }
    }
    options.Keep = texts.Erase == "keep";
    if (!texts.Date.empty()) {
        options.Date = Datum_Lesen(texts.Date);
        if (!options.Date) {
            return "--date: " + texts.Date + " is not a date DD.MM.YYYY";
        }
    }
    if (options.Csv && options.Json && options.Wanted == Command::Events) {
        return "--csv and --json exclude each other";
    }
    if (!texts.At.empty()) {
        options.At = Zeitpunkt_Lesen(texts.At);
        if (!options.At) {
            return "--at: " + texts.At + " is not a time DD.MM.YYYY hh:mm";
        }
        // A lock knows two digits of the year.
        if (options.Wanted == Command::When && (options.At->Year < 2000 || options.At->Year > 2099)) {
            return "--at: the year must be 2000 to 2099";
        }
    }
    if (!texts.Since.empty()) {
        options.Since = Datum_Lesen(texts.Since);
        if (!options.Since) {
            return "--since: " + texts.Since + " is not a date DD.MM.YYYY";
        }
        if (*options.Since > today) {
            return "--since: " + texts.Since + " lies in the future";
        }
        const bool nothingRead = options.Wanted == Command::Program || options.Wanted == Command::Run;
        if (nothingRead && !options.HistoryFirst && !options.HistoryOnly) {
            return "--since needs --history, as nothing is read without it";
        }
    }
    return {};
}

} // namespace qvm
