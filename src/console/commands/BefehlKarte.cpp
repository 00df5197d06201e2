// Guest cards from the command line, through the handlers of their window.

#include "Befehle.h"
#include "TimeWindows.h"
#include "Tischsitzung.h"

#include <limits>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

namespace qvm {

namespace {

using CardJson = nlohmann::ordered_json;

Datum Kartentag(const DateTime& moment) {
    return {.Year = moment.Year, .Month = moment.Month, .Day = moment.Day};
}

std::string Kartenzeit(const DateTime& moment) {
    return Ziffern(moment.Hour, 2) + ":" + Ziffern(moment.Minute, 2);
}

TischEnde Kartenende(KartenErgebnis result) {
    switch (result) {
    case KartenErgebnis::Geschrieben:
    case KartenErgebnis::Gelesen:
        return TischEnde::Done;
    case KartenErgebnis::Abgelehnt:
        return TischEnde::Refused;
    case KartenErgebnis::Getrennt:
    case KartenErgebnis::Stumm:
        return TischEnde::Silent;
    default:
        return TischEnde::Fault;
    }
}

/// The window while a command works at it. No mark of it is saved.
class Kartenfenster {
public:
    explicit Kartenfenster(Programm& program) : f60_(program.Times->F60) {
        f60_.Geduld = std::numeric_limits<int>::max(); // the command has a patience of its own
        f60_.F60_FormLaden();
    }
    ~Kartenfenster() {
        f60_.Geaendert = false;
        f60_.Schliessen();
    }
    Kartenfenster(const Kartenfenster&) = delete;
    Kartenfenster& operator=(const Kartenfenster&) = delete;

    F60& operator*() { return f60_; }

private:
    F60& f60_;
};

/// What the command line asks for, into the window. Empty, or why not.
std::string Karte_Einstellen(F60& window, const Optionen& options) {
    for (const int lock : options.Locks) {
        if (window.FGK60.Text(lock, CardColumn::Serial).empty()) {
            return "Lock " + std::to_string(lock) + " has no serial number.";
        }
        for (int n = 0; n < 2 && window.FGK60.Text(lock, CardColumn::Mark) != DoorMark::Single; ++n) {
            window.FGK60_Click(lock, CardColumn::Mark);
        }
    }
    window.MV1_Waehlen(Kartentag(*options.CheckIn));
    window.MV2_Waehlen(Kartentag(*options.CheckOut));
    window.Text1.Text = Kartenzeit(*options.CheckIn);
    window.Text2.Text = Kartenzeit(*options.CheckOut);
    if (options.Group && !window.Objekt) {
        return "A hotel has no object groups.";
    }
    if (options.Group) {
        window.List1_Waehlen(*options.Group);
    }
    const int beyond = window.Karte().Uebergangen;
    return beyond == 0 ? std::string() : std::to_string(beyond) + " doors do not fit on the card.";
}

TischEnde Karte_Abwarten(Tischsitzung& session, F60& window, int timeout) {
    if (window.Wartet()) {
        const TischEnde end = session.Warten([&] { return !window.Wartet(); }, timeout);
        if (end != TischEnde::Done) {
            return end;
        }
    }
    return Kartenende(window.Ergebnis);
}

std::string Batterie(const F60& window) {
    std::string text;
    for (const std::uint8_t byte : window.Lesung.Batterie) {
        text += (text.empty() ? "" : " ") + HexText(byte, 2);
    }
    return text;
}

std::string Kartenbericht(const Tischsitzung& session, const F60& window, TischEnde end) {
    switch (end) {
    case TischEnde::Done:
        return window.Ergebnis == KartenErgebnis::Gelesen ? Anzeige_Aus_1252(window.Hinweis.Text()) : "card written";
    case TischEnde::Cancelled:
        return "cancelled";
    default:
        return session.Meldungen.empty() ? "the card writer said nothing" : session.Meldungen.back();
    }
}

} // namespace

ExitCode Befehl_Karte(const Umgebung& world, const Console& console, const Optionen& options) {
    Tischsitzung session(world, console, options, "card");
    if (const auto refused = session.Beginnen()) {
        return *refused;
    }
    session.Meldungen_Uebernehmen(false);
    Kartenfenster card(session.program);
    F60& window = *card;
    if (!session.Meldungen.empty()) {
        return session.Fehlschlag("The files of the guest cards cannot be read.");
    }
    const bool write = options.Kind == "write";
    CardJson document{{"kind", options.Kind}};
    if (write) {
        if (const std::string fault = Karte_Einstellen(window, options); !fault.empty()) {
            return session.Fehlschlag(fault);
        }
        if (!session.Meldungen.empty()) {
            return session.Fehlschlag(session.Meldungen.back()); // a group that is not there yet
        }
        document.update({{"doors", options.Locks}, {"entries", window.Karte().Eintraege}});
    }
    TischEnde end = TischEnde::Cancelled;
    if (session.Adapter_Suchen()) {
        if (write) {
            window.Command2_Click();
        } else {
            window.Command4_Click();
        }
        end = Karte_Abwarten(session, window, options.TimeoutSeconds);
    }
    if (end == TischEnde::Done && !write) {
        if (const std::string from = window.Lesung.Gueltig_Ab(); !from.empty()) {
            document.update({{"check_in", from}, {"check_out", window.Lesung.Gueltig_Bis()}});
        }
        document["battery"] = Batterie(window);
    }
    return session.Abschliessen(end, Kartenbericht(session, window, end), document);
}

} // namespace qvm
