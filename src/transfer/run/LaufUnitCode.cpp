// A wireless unit gets another code, and moves to the system's radio channel.

#include "Laufbedingungen.h"
#include "Laufschritte.h"
#include "Modelle.h"
#include "Telegramme.h"

namespace qvm {
namespace {

constexpr std::uint8_t NoContact = 0x64, Busy = 0x67;
/// A unit is spoken to in this mode when its code is changed.
constexpr std::uint8_t UnitMode = 1;
constexpr int MostFarewells = 40;

} // namespace

void Unit_Code_Beginnen(Programmierlauf& run, const Address& unit, int channel) {
    ChainState& chain = Kette(run);
    chain.LaufZiel = "F20";
    chain.KanalSuche = 0;
    chain.KanalIndex = 0;
    chain.WiederholZaehler = 0;
    run.link.TargetAddress = unit;
    run.link.TargetChannel = static_cast<std::uint8_t>(channel);
    run.link.AddressMode = UnitMode;
}

void Unit_Code_Beenden(Programmierlauf& run) {
    ChainState& chain = Kette(run);
    run.Timer8.Stop();
    chain.LaufZiel.clear();
    chain.KanalIndex = 0;
    chain.WiederholZaehler = 0;
    run.link.AddressMode = 0;
    run.link.AnswerDue = 0;
}

void Schritt_Unit_Code_Genommen(Programmierlauf& run) {
    run.Fenster.Code_Beantwortet(); // forgets the telegram with the codes before the next one is built
    Schritt_Kanal_Lesen(run);
}

void Schritt_Unit_Login_Abgelehnt(Programmierlauf& run) {
    const bool nobody = run.link.RxByte(RpAblehnung::Reason.Offset) == NoContact;
    run.Fenster.Code_Abgelehnt(nobody ? RunOutcome::NotReached : RunOutcome::Refused);
    run.kern.Meldung(run.kern.Zeile(nobody ? Line::NotReachable : Line::DeviceRefused), Buttons::Ok, Icon::Exclamation);
}

void Schritt_Unit_Code_Abgelehnt(Programmierlauf& run) {
    const std::uint8_t reason = run.link.RxByte(RpAblehnung::Reason.Offset);
    if (run.link.TxBuffer[2] != TelTrennen::Telegram.Code) {
        run.Fenster.Unit_Umzug_Gescheitert();
    } else if (reason == Busy && ++Kette(run).WiederholZaehler < MostFarewells) {
        TelTrennen_Senden(run.link);
    } else {
        // It has moved. That it does not say goodbye changes nothing.
        Schritt_Kanalwechsel_Ende(run);
    }
}

void Schritt_Kanalwechsel_Ende(Programmierlauf& run) {
    Unit_Code_Beenden(run);
    run.Fenster.Unit_Umgezogen();
    run.kern.Meldung(run.kern.Zeile(Line::NewCodeAccepted), Buttons::Ok, Icon::Information);
}

} // namespace qvm
