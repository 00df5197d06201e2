// The code of a unit: how the window opens for it, and how its session ends when it does not come to its end.

#include "AdapterScan.h"
#include "F17.h"
#include "Laufschritte.h"
#include "Modelle.h"
#include "Telegramme.h"
#include "Text.h"
#include "Words.h"

namespace qvm {

bool F17::Unit_Port() const {
    const bool known =
        !kern.Config.AdapterModus() || Adapter_Port_Oeffnen(run.link, Adapter, &AdapterListe::ProgStationPort);
    if (!known) {
        kern.Meldung(kern.Zeile(Line::NoSuitableAdapter), Buttons::Ok, Icon::Exclamation);
    }
    return known;
}

void F17::F17_Unit_Laden(std::string_view serial, int channel) {
    const auto address = Serie_Zerlegen(serial);
    if (!address) {
        kern.Meldung(Fester_Text(kern, Word::WrongModule), Buttons::Ok, Icon::Exclamation, "INFO");
    }
    if (!address || !Unit_Port()) {
        Rufen(Zu_F20);
        return;
    }
    unit_ = CodeUnit{.Device = *address, .Serial = std::string(serial), .Channel = channel};
    Lauf_Ruecksetzen(run);
    run.link.Lauf.List = {};
    run.link.Lauf.Order = {};
    Unit_Code_Beginnen(run, *address, channel);
    Oeffnen();
}

CodeOutcome F17::Unit_Stand() const {
    if (!taken_) {
        return CodeOutcome::Unconfirmed;
    }
    // The farewell goes out when the unit has said that it has moved.
    return run.link.TxBuffer[2] == TelTrennen::Telegram.Code ? CodeOutcome::Changed : CodeOutcome::Unmoved;
}

void F17::Unit_Abschliessen(CodeOutcome outcome) {
    Bestaetigung.Stop();
    Unit_Code_Beenden(run);
    Geheimnisse_Loslassen();
    Ergebnis = outcome;
    if (Unit_Endet && unit_) {
        Unit_Endet(unit_->Serial, outcome == CodeOutcome::Changed ? kern.Config.Funkkanal() : 0);
    }
}

void F17::Unit_Aufgeben(CodeOutcome outcome) {
    if (outcome == CodeOutcome::Changed) {
        Schritt_Kanalwechsel_Ende(run);
        return;
    }
    Unit_Abschliessen(outcome);
    if (outcome == CodeOutcome::Unconfirmed) {
        Unbestaetigt_Melden();
    } else {
        kern.Meldung(Wort(kern, Word::UnitNotMoved, {unit_->Serial, Ziffern(kern.Config.Funkkanal())}), Buttons::Ok,
                     Icon::Exclamation, CodeTitle);
    }
}

void F17::Umzug_Gescheitert() {
    if (run.link.TxBuffer[2] != TelCodeAendern::Telegram.Code) {
        Unit_Aufgeben(Unit_Stand());
        return;
    }
    Beantwortet();
    if (Ergebnis == CodeOutcome::Refused) {
        Melden(Line::DeviceRefused);
    }
}

void F17::Umzug_Abbrechen() {
    if (!Unterwegs()) {
        return;
    }
    run.Timer8.Stop();
    const CodeOutcome outcome = Unit_Stand();
    // Behind the farewell there is nothing left to be closed.
    if (outcome != CodeOutcome::Changed && kern.Welt.Port.IsOpen()) {
        TelTrennen_Senden(run.link);
    }
    Unit_Aufgeben(outcome);
}

} // namespace qvm
