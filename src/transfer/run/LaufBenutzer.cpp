#include "Laufbedingungen.h"
#include "Laufschritte.h"
#include "Modelle.h"
#include "Schlosszeile.h"

#include <algorithm>
#include <array>

namespace qvm {
namespace {

constexpr int FirstSlot = 1, LastSlot = 2999;
/// The slice of a template that TelBenutzerVorlage carries.
constexpr std::size_t SliceStart = 70, SliceLength = 29;

const ProgSlot* Benutzer(const Programmierlauf& run) {
    const int cursor = Kette(run).SlotCursor;
    const auto& slots = run.Daten.Slots;
    return cursor >= 0 && cursor < static_cast<int>(slots.size()) ? &slots[static_cast<std::size_t>(cursor)] : nullptr;
}

template <std::size_t N>
std::array<std::uint8_t, N> Werte(const std::string& text) {
    std::array<std::uint8_t, N> out{};
    const auto values = Dezimalwerte(text, N);
    std::copy_n(values.begin(), std::min(values.size(), N), out.begin());
    return out;
}

void Platz_Ungueltig(Programmierlauf& run) {
    const std::string text = run.kern.Zeile(Line::NoUserSlot);
    if (Zeile_Fehlgeschlagen(run, RunOutcome::Refused, text)) {
        return;
    }
    Lauf_Beenden(run, RunOutcome::Refused, text);
    run.Ansicht.Fertig(Line::NoUserSlot);
    Meldung_Zu(run.kern, Worum(run), text, Buttons::Ok, Icon::Exclamation);
}

void Vorlage_Senden(Programmierlauf& run, const ProgSlot& user) {
    std::array<std::uint8_t, SliceLength> slice{};
    for (std::size_t n = 0; n < SliceLength && SliceStart + n < user.Template.size(); ++n) {
        slice[n] = user.Template[SliceStart + n];
    }
    TelBenutzerVorlage_Senden(run.link, user.FingerNumber, user.Name, slice, Wertigkeit(user.Funktion));
}

void Id_Abschliessen(Programmierlauf& run) {
    run.link.DeviceClassByte = 0x11;
    Kette(run).IdMarke.clear();
    Kette(run).IdSecondPart = false;
}

} // namespace

void Schritt_Benutzer_Beginnen(Programmierlauf& run) {
    Kette(run).IdMarke.clear();
    Kette(run).IdSecondPart = false;
    if (Benutzer(run) != nullptr) {
        TelBenutzerBeginn_Senden(run.link);
    } else {
        TelSperrTimerFlag_Senden(run.link);
    }
}

void Schritt_Erster_Benutzer(Programmierlauf& run) {
    Kette(run).HolidayPart = 0;
    Kette(run).SlotCursor = 0;
    Schritt_Benutzer_Beginnen(run);
}

void Schritt_Naechster_Benutzer(Programmierlauf& run) {
    ++Kette(run).SlotCursor;
    Schritt_Benutzer_Beginnen(run);
}

void Schritt_Benutzer_Slot(Programmierlauf& run) {
    const ProgSlot* user = Benutzer(run);
    if (user == nullptr) {
        return;
    }
    const int slot = run.link.RxByte(StatusIndex) * 256 + run.link.RxByte(StatusIndex + 1);
    if (slot < FirstSlot || slot > LastSlot) {
        Platz_Ungueltig(run);
        return;
    }
    Kette(run).UserSlot = static_cast<std::uint16_t>(slot);
    if (user->Kind == SlotKind::Finger) {
        Vorlage_Senden(run, *user);
    } else {
        TelBenutzerName1_Senden(run.link, user->Name);
    }
}

void Schritt_Benutzer_Name2(Programmierlauf& run) {
    if (const ProgSlot* user = Benutzer(run)) {
        TelBenutzerName2_Senden(run.link, Kette(run).UserSlot, user->Name);
    }
}

void Schritt_Benutzer_Daten(Programmierlauf& run) {
    const ProgSlot* user = Benutzer(run);
    if (user == nullptr) {
        return;
    }
    RunState& lauf = run.link.Lauf;
    const KeyForm key = Schluessel_Zerlegen(user->TransponderA);
    BenutzerDaten data;
    data.Slot = lauf.Chain.UserSlot;
    data.Code = Code_Packen(user->CodeDigits);
    data.TimerSelector = Timer_Auswahl(lauf.Values.TimerMode, *user);
    data.Weighting = Wertigkeit(user->Funktion);
    if (key.Kind == KeyForm::Form::Long && BereichN(lauf.Order.SerialValue)) {
        // These locks take a long identification in two telegrams of its own.
        lauf.Chain.IdMarke = "P";
        lauf.Chain.IdSecondPart = true;
    } else if (key.Kind != KeyForm::Form::None) {
        data.WithId = true;
        std::copy_n(key.Values.begin(), data.Id.size(), data.Id.begin());
        data.IdData = Werte<16>(user->TransponderB);
    }
    TelBenutzerDaten_Senden(run.link, data);
}

void Schritt_Id_Daten1(Programmierlauf& run) {
    if (const ProgSlot* user = Benutzer(run)) {
        TelIdDaten1_Senden(run.link, Schluessel_Zerlegen(user->TransponderA).GroupDigit, Werte<16>(user->TransponderB));
    }
}

void Schritt_Id_Daten2(Programmierlauf& run) {
    Kette(run).IdSecondPart = false;
    run.link.DeviceClassByte = 0xC3;
    if (const ProgSlot* user = Benutzer(run)) {
        const KeyForm key = Schluessel_Zerlegen(user->TransponderA);
        TelIdDaten2_Senden(run.link, key.GroupDigit, Kette(run).UserSlot, key.Values);
    }
}

void Schritt_Id_Zeitgruppen(Programmierlauf& run) {
    Id_Abschliessen(run);
    Schritt_Benutzer_Zeitgruppen(run);
}

void Schritt_Id_Naechster_Benutzer(Programmierlauf& run) {
    Id_Abschliessen(run);
    Schritt_Naechster_Benutzer(run);
}

void Schritt_Benutzer_Zeitgruppen(Programmierlauf& run) {
    if (const ProgSlot* user = Benutzer(run)) {
        TelBenutzerZeitgruppen_Senden(run.link, Kette(run).UserSlot, user->TimerBits);
    }
}

} // namespace qvm
