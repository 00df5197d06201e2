#include "GebaeudeFenster.h"

#include "Seriennummer.h"
#include "Text.h"
#include "Words.h"
#include "Zeit.h"

#include <algorithm>
#include <array>
#include <utility>

namespace qvm {
namespace {

constexpr int Second = 1000;
constexpr int MinutesOfHour = 60;
/// Entries of the list, in minutes, fast above 0.
constexpr std::array ClockErrors{0, 60, -60, 12 * 60, 24 * 60, -24 * 60};
constexpr std::size_t KeyBytes = 4, TransponderBytes = 10, TemplateBytes = 400;
constexpr std::array NewThings{Credential::Kind::Key, Credential::Kind::Transponder, Credential::Kind::Finger};
constexpr std::array NewWords{Word::BuildingNewKey, Word::BuildingNewTransponder, Word::BuildingNewFinger};

} // namespace

GebaeudeFenster::GebaeudeFenster(Kern& kernel, Gebaeude& building)
    : kern(kernel), building_(building), clock_(kernel.Welt, Second), words_(Worte_Folgen(*this)) {
    Code.MaxLength = CodeLength;
    Auswahl.Moved = [this] { Auswahl_Zeigen(); };
    clock_.Ticked = [this] { Zeilen_Zeigen(); };
    building_.Geaendert = [this] {
        Zeilen_Zeigen();
        Auswahl_Zeigen();
    };
}

void GebaeudeFenster::FormLaden() {
    const VirtualWorld& world = building_.System().World();
    FGK.Resize(FirstRow + static_cast<int>(world.Locks.size() + world.Units.size()), BuildingColumn::Count);
    Texte_Setzen();
    Auswahl.Go(FirstRow, BuildingColumn::Device);
    Auswahl_Zeigen();
    clock_.Start();
    Fenster.Visible = false; // one that is open comes to the front
    Fenster.Visible = true;
}

void GebaeudeFenster::Schliessen() {
    clock_.Stop();
    Fenster.Visible = false;
}

void GebaeudeFenster::Texte_Setzen() {
    Fenster.Title = Fenstertitel(Wort(kern, Word::BuildingTitle));
    FGK.SetText(0, BuildingColumn::Device, Wort(kern, Word::BuildingDevice));
    FGK.SetText(0, BuildingColumn::Serial, kern.Zeile(Line::SerialNumber));
    FGK.SetText(0, BuildingColumn::Channel, Wort(kern, Word::BuildingChannel));
    FGK.SetText(0, BuildingColumn::Users, Wort(kern, Word::BuildingUsers));
    FGK.SetText(0, BuildingColumn::Events, Wort(kern, Word::BuildingEvents));
    FGK.SetText(0, BuildingColumn::Clock, Wort(kern, Word::BuildingClock));
    FGK.SetText(0, BuildingColumn::State, Wort(kern, Word::BuildingState));
    Uhrwort.Text = Wort(kern, Word::BuildingSetClock);
    Tuer.Text = Wort(kern, Word::BuildingAtDoor);
    Eingeben.Text = Wort(kern, Word::BuildingTryCode);
    Vorhalten.Text = Wort(kern, Word::BuildingTryKey);
    Tisch.Text = Wort(kern, Word::BuildingAtDesk);
    Auflegen.Text = Wort(kern, Word::BuildingHold);
    Karte.Text = Wort(kern, Word::BuildingCard);
    Adapterwort.Text = Wort(kern, Word::Adapter);
    Ergebnis.Text = std::string();
    Listen_Fuellen();
    Zeilen_Zeigen();
    Auswahl_Zeigen();
}

void GebaeudeFenster::Listen_Fuellen() {
    std::vector<std::string> clocks;
    for (const int minutes : ClockErrors) {
        const std::string hours = Ziffern(std::abs(minutes) / MinutesOfHour);
        clocks.push_back(minutes == 0 ? Wort(kern, Word::BuildingRight)
                                      : Wort(kern, minutes > 0 ? Word::BuildingFast : Word::BuildingSlow, {hours}));
    }
    Uhr.Entries = clocks;
    std::vector<std::string> things;
    things.reserve(NewWords.size() + keys_.size());
    for (const auto word : NewWords) {
        things.push_back(Wort(kern, word));
    }
    for (std::size_t n = 1; n <= keys_.size(); ++n) {
        things.push_back(Wort(kern, Word::BuildingKey, {Ziffern(static_cast<std::int64_t>(n))}));
    }
    const int thing = std::max(Sachen.Selected(), 0);
    Sachen.Entries = things;
    Sachen.Selected = thing;
    std::vector<std::string> adapters;
    for (const VirtualAdapter& adapter : building_.Adapter()) {
        adapters.push_back(adapter.Name);
    }
    Adapter.Entries = adapters;
    Adapter.Selected = static_cast<int>(building_.Adapter_Gewaehlt());
}

void GebaeudeFenster::Zeilen_Zeigen() {
    const VirtualWorld& world = building_.System().World();
    for (std::size_t lock = 0; lock < world.Locks.size(); ++lock) {
        Schloss_Zeigen(lock);
    }
    for (std::size_t unit = 0; unit < world.Units.size(); ++unit) {
        Unit_Zeigen(unit);
    }
}

void GebaeudeFenster::Schloss_Zeigen(std::size_t lock) {
    const VirtualLock& device = building_.System().World().Locks[lock];
    const int row = FirstRow + static_cast<int>(lock);
    FGK.SetText(row, BuildingColumn::Device, AusUtf8(device.Label));
    FGK.SetText(row, BuildingColumn::Serial, Serie_Text(device.Serial));
    FGK.SetText(row, BuildingColumn::Channel, Ziffern(device.Channel));
    FGK.SetText(row, BuildingColumn::Users, Ziffern(static_cast<std::int64_t>(device.Users.size())));
    FGK.SetText(row, BuildingColumn::Events, Ziffern(static_cast<std::int64_t>(device.History.size())));
    FGK.SetText(row, BuildingColumn::Clock, Uhrtext(lock));
    const auto state = device.Air.Away       ? Word::BuildingAway
                       : device.DataComplete ? Word::BuildingReady
                       : device.Erases == 0  ? Word::BuildingEmpty
                                             : Word::BuildingHalf;
    FGK.SetText(row, BuildingColumn::State, Wort(kern, state));
}

void GebaeudeFenster::Unit_Zeigen(std::size_t unit) {
    const VirtualWorld& world = building_.System().World();
    const VirtualUnit& device = world.Units[unit];
    const int row = FirstRow + static_cast<int>(world.Locks.size() + unit);
    FGK.SetText(row, BuildingColumn::Device, AusUtf8(device.Label));
    FGK.SetText(row, BuildingColumn::Serial, Serie_Text(device.Serial));
    FGK.SetText(row, BuildingColumn::Channel, Ziffern(device.Channel));
    FGK.SetText(row, BuildingColumn::State,
                device.Air.Away ? Wort(kern, Word::BuildingAway)
                : device.Lock   ? Wort(kern, Word::BuildingUnitTold, {Serie_Text(*device.Lock)})
                                : Wort(kern, Word::BuildingUnit));
}

std::string GebaeudeFenster::Uhrtext(std::size_t lock) const {
    const LockClock now = building_.Uhr(lock);
    return Datum_Text({.Year = 2000 + now.Year, .Month = now.Month, .Day = now.Day}) + "  " +
           Uhrzeit_Text(now.Hour * MinutesOfHour + now.Minute);
}

std::optional<std::size_t> GebaeudeFenster::Schloss() const {
    const int at = FGK.Row - FirstRow;
    const bool is = at >= 0 && static_cast<std::size_t>(at) < building_.System().World().Locks.size();
    return is ? std::optional(static_cast<std::size_t>(at)) : std::nullopt;
}

/// The chosen device as searches and logins find it; nullptr when there is none.
OnAir* GebaeudeFenster::Geraet() {
    VirtualWorld& world = building_.System().World();
    if (const auto lock = Schloss()) {
        return &world.Locks[*lock].Air;
    }
    const auto unit = static_cast<std::size_t>(std::max(FGK.Row - FirstRow, 0)) - world.Locks.size();
    return FGK.Row >= FirstRow && unit < world.Units.size() ? &world.Units[unit].Air : nullptr;
}

void GebaeudeFenster::Auswahl_Zeigen() {
    const OnAir* device = Geraet();
    const auto lock = Schloss();
    Wegnehmen.Enabled = device != nullptr;
    Wegnehmen.Text = Wort(kern, device != nullptr && device->Away ? Word::BuildingBring : Word::BuildingTake);
    Uhr.Enabled = lock.has_value();
    const int minutes = lock ? building_.Uhr_Abweichung(*lock) : 0;
    const auto* entry = std::find(ClockErrors.begin(), ClockErrors.end(), minutes);
    Uhr.Selected = entry == ClockErrors.end() ? -1 : static_cast<int>(entry - ClockErrors.begin());
    Ziehen.Text = Wort(kern, building_.Adapter_Steckt() ? Word::BuildingPull : Word::BuildingPlug);
    Karte.Checked = building_.Karte_Liegt();
}

void GebaeudeFenster::Code_Change(std::string_view text) {
    std::string digits(text.substr(0, CodeLength));
    std::erase_if(digits, [](char c) { return c < '0' || c > '9'; });
    Code.Text = digits;
    if (digits != text && Code.Text.Changed) {
        Code.Text.Changed(); // the field still shows what it was given
    }
}

void GebaeudeFenster::Eingeben_Click() {
    const auto lock = Schloss();
    if (!lock) {
        Ergebnis.Text = Wort(kern, Word::BuildingNoLock);
        return;
    }
    const DoorTry result = building_.Code_Eingeben(*lock, Code.Text());
    Code.Text.Vergessen();
    Antwort_Zeigen(*lock, result);
}

void GebaeudeFenster::Vorhalten_Click() {
    const auto lock = Schloss();
    if (!lock) {
        Ergebnis.Text = Wort(kern, Word::BuildingNoLock);
        return;
    }
    const std::size_t known = static_cast<std::size_t>(std::max(Sachen.Selected(), 0));
    const bool key = known >= NewThings.size() && known - NewThings.size() < keys_.size();
    const std::vector<std::uint8_t> stranger(KeyBytes);
    Antwort_Zeigen(*lock, building_.Key_Vorhalten(*lock, key ? keys_[known - NewThings.size()] : stranger));
}

void GebaeudeFenster::Antwort_Zeigen(std::size_t lock, const DoorTry& result) {
    const VirtualLock& device = building_.System().World().Locks[lock];
    const std::string where = device.Label.empty() ? Serie_Text(device.Serial) : AusUtf8(device.Label);
    const std::string bytes(result.Name.begin(), std::find(result.Name.begin(), result.Name.end(), 0));
    const std::string who(Trim(kern.Welt.OemToChar(bytes)));
    switch (result.Answer) {
    case DoorAnswer::Opens:
        Ergebnis.Text = Wort(kern, Word::BuildingOpens, {where, who});
        break;
    case DoorAnswer::NotProgrammed:
        Ergebnis.Text = Wort(kern, Word::BuildingShutEmpty, {where});
        break;
    case DoorAnswer::Unknown:
        Ergebnis.Text = Wort(kern, Word::BuildingShutUnknown, {where});
        break;
    case DoorAnswer::OutsideTimes:
        Ergebnis.Text = Wort(kern, Word::BuildingShutTimes, {where, who, Uhrtext(lock)});
        break;
    }
}

void GebaeudeFenster::Wegnehmen_Click() {
    if (OnAir* device = Geraet()) {
        device->Away = !device->Away;
        Zeilen_Zeigen();
        Auswahl_Zeigen();
    }
}

void GebaeudeFenster::Uhr_Click(int entry) {
    const auto lock = Schloss();
    if (lock && entry >= 0 && static_cast<std::size_t>(entry) < ClockErrors.size()) {
        building_.Uhr_Stellen(*lock, ClockErrors[static_cast<std::size_t>(entry)]);
    }
}

Credential GebaeudeFenster::Neue_Sache(Credential::Kind kind) {
    const auto random = [this](std::size_t count) {
        std::vector<std::uint8_t> bytes(count);
        std::generate(bytes.begin(), bytes.end(),
                      [this] { return static_cast<std::uint8_t>(kern.Welt.Random() * 256); });
        return bytes;
    };
    Credential thing;
    thing.What = kind;
    if (kind == Credential::Kind::Finger) {
        thing.Template = random(TemplateBytes);
    } else {
        thing.Id = random(kind == Credential::Kind::Key ? KeyBytes : TransponderBytes);
    }
    return thing;
}

void GebaeudeFenster::Auflegen_Click() {
    const auto chosen = static_cast<std::size_t>(std::max(Sachen.Selected(), 0));
    const std::string what =
        chosen < Sachen.Entries().size() ? Sachen.Entries()[chosen] : Wort(kern, Word::BuildingNewKey);
    if (chosen < NewThings.size()) {
        Credential thing = Neue_Sache(NewThings[chosen]);
        if (thing.What == Credential::Kind::Key) {
            keys_.push_back(thing.Id);
            Listen_Fuellen();
            Sachen.Selected = static_cast<int>(NewThings.size() + keys_.size() - 1);
        }
        building_.Auflegen(std::move(thing));
    } else if (chosen - NewThings.size() < keys_.size()) {
        building_.Auflegen({.What = Credential::Kind::Key, .Id = keys_[chosen - NewThings.size()]});
    }
    Ergebnis.Text = Wort(kern, Word::BuildingHeld, {what});
}

void GebaeudeFenster::Karte_Click(bool on) {
    building_.Karte_Legen(on);
}

void GebaeudeFenster::Adapter_Click(int entry) {
    if (entry >= 0) {
        Adapter.Selected = entry;
        building_.Adapter_Wechseln(static_cast<std::size_t>(entry));
    }
}

void GebaeudeFenster::Ziehen_Click() {
    building_.Adapter_Steckt() ? building_.Adapter_Ziehen() : building_.Adapter_Stecken();
}

int GebaeudeFenster::Breite(int column) {
    constexpr std::array<int, BuildingColumn::Count> widths{3000, 1700, 800, 1100, 1200, 2000, 2800};
    return column >= 0 && column < BuildingColumn::Count ? widths[static_cast<std::size_t>(column)] : 0;
}

} // namespace qvm
