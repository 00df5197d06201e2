#include "Antwort_Verteilen.h"
#include "Laufbedingungen.h"
#include "SeriellesProtokoll.h"

namespace qvm {
namespace {

/// The last telegram sent stays readable in TxBuffer.
bool Zuletzt(const Link& l, std::uint8_t code) {
    return l.TxBuffer[2] == code;
}
bool Grund(const Link& l, std::uint8_t reason) {
    return l.RxByte(3) == reason;
}
/// A lock is searched, or the unit that a window asked for.
bool Kanal_Suche(const Link& l) {
    return l.Lauf.Chain.KanalSuche != 0 || l.Lauf.Chain.LaufZiel == "F20";
}

void Belegt(Link& l) {
    Rufen(l.Hooks.Abfrage_Stoppen);
    Noch_Einmal_Trennen(l);
}

constexpr int UnitChannels = 12;

constexpr ReplyRow Refusals[] = {
    {0x69, "TelDatenStart in a unit session", [](const Link& l) { return Zuletzt(l, 0x27) && Blocktransfer(l); },
     [](Link& l) { Rufen(l.Hooks.Unit_Datenstart_Wiederholen); }},
    {0x69, "unit opening, channels left",
     [](const Link& l) { return l.Lauf.Chain.UnitTry == 0x38 && l.Lauf.Chain.EintragFertig < UnitChannels; },
     [](Link& l) { Rufen(l.Hooks.Unit_Naechster_Kanal); }},
    {0x69, "unit session otherwise", [](const Link& l) { return Unit_Oeffnung(l) || Blocktransfer(l); },
     [](Link& l) { Rufen(l.Hooks.Unit_Fehlgeschlagen); }},
    {0x69, "TelLebenszeichen", [](const Link& l) { return Zuletzt(l, 0x08); }, Ohne_Wirkung},
    {0x69, "unit-list scan", [](const Link& l) { return l.Lauf.Chain.SuchMarke == 0xAD; },
     [](Link& l) { Rufen(l.Hooks.Unit_Kanal_Leer); }},
    {0x69, "units are searched by logins", [](const Link& l) { return l.Lauf.Chain.SuchLauf != 0; },
     [](Link& l) { Rufen(l.Hooks.Suchlauf_Schritt); }},
    {0x69, "no contact, channel search", [](const Link& l) { return Grund(l, 0x64) && Kanal_Suche(l); },
     [](Link& l) { Rufen(l.Hooks.Kanal_Weiter); }},
    {0x69, "no contact, unit session", [](const Link& l) { return Grund(l, 0x64) && Unit_Sitzung(l); },
     [](Link& l) { Rufen(l.Hooks.Unit_Kein_Kontakt); }},
    {0x69, "no contact", [](const Link& l) { return Grund(l, 0x64); }, [](Link& l) { Rufen(l.Hooks.Kein_Kontakt); }},
    {0x69, "refused", [](const Link& l) { return Grund(l, 0x65); }, [](Link& l) { Rufen(l.Hooks.Abgelehnt); }},
    {0x69, "key refused", [](const Link& l) { return Grund(l, 0x66); }, [](Link& l) { Rufen(l.Hooks.Key_Abgelehnt); }},
    {0x69, "busy", [](const Link& l) { return Grund(l, 0x67); }, Belegt},
    {0x69, "card refused", [](const Link& l) { return Grund(l, 0x6A); },
     [](Link& l) { Rufen(l.Hooks.Karte_Abgelehnt); }},
    {0x69, "any other reason", Immer, Ohne_Wirkung},
};

} // namespace

void Noch_Einmal_Trennen(Link& link) {
    if (++link.Lauf.Chain.WiederholZaehler < 40) {
        TelTrennen_Senden(link);
    } else {
        Rufen(link.Hooks.Trennen_Aufgegeben);
    }
}

std::span<const ReplyRow> Ablehnung_Tabelle() {
    return Refusals;
}

} // namespace qvm
