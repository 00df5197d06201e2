#include "Gebaeude.h"

#include "Gebaeudewelt.h"
#include "Import.h"
#include "Kern.h"
#include "WorldFile.h"
#include "Zeit.h"

#include <algorithm>
#include <utility>

namespace qvm {
namespace {

constexpr int MinutesOfDay = 24 * 60;

/// The moment so many minutes later, days and months by the calendar.
LockClock Verschoben(const DateTime& now, int minutes) {
    const int minute = now.Hour * 60 + now.Minute + minutes;
    const int past = ((minute % MinutesOfDay) + MinutesOfDay) % MinutesOfDay;
    const Datum day = Datum_Plus(Heute(now), (minute - past) / MinutesOfDay);
    const auto byte = [](int value) { return static_cast<std::uint8_t>(value); };
    return {.Day = byte(day.Day),
            .Month = byte(day.Month),
            .Year = byte(day.Year % 100),
            .Hour = byte(past / 60),
            .Minute = byte(past % 60),
            .Second = byte(now.Second)};
}

} // namespace

Gebaeude::Gebaeude(Platform& outside, const std::string& directory, std::optional<Gebaeudevorlage> demonstration,
                   DecipherFunction decipher)
    : outside_(outside), demonstration_(std::move(demonstration)), decipher_(std::move(decipher)),
      files_(outside.Files, directory, demonstration_ ? Gebaeudedateien::Beginn::Leer : Gebaeudedateien::Beginn::Kopie),
      line_(outside), inside_(outside) {
    inside_.Files = files_.Store();
    inside_.PrintPages = {}; // a printer is real
    inside_.SaveFile = [this](const FileDialog&) {
        if (Kein_Sichern) {
            Kein_Sichern();
        }
        return std::optional<std::string>();
    };
    inside_.DeviceManager = {};
    line_.Einsetzen(inside_);
    line_.Gesendet = [this](std::span<const std::uint8_t> bytes) {
        if (system_) {
            system_->Receive(bytes);
        }
    };
    if (demonstration_) {
        Vorlage_Einspielen(directory);
    }
}

void Gebaeude::Vorlage_Einspielen(const std::string& directory) {
    for (const ImportFile& file : Import_Pruefen(demonstration_->Installation).Files) {
        inside_.Files.Replace(directory + "DAT/" + file.Name, file.Bytes);
    }
    Kern mine(inside_), operators(outside_);
    mine.AppPath = operators.AppPath = directory;
    Konfiguration_Laden(mine);
    Konfiguration_Laden(operators);
    if (outside_.Files.Datei_Vorhanden(operators.DatPfad() + std::string(SettingsFile))) {
        mine.Config.Sprache = operators.Config.Sprache;
        mine.Config.Sprachnummer = operators.Config.Sprachnummer;
    }
    mine.Config.PortAutomatik = Konfiguration{}.PortAutomatik;
    Konfiguration_Speichern(mine, ConfigChoice::Port);
}

SimSurroundings Gebaeude::Umgebung() {
    SimSurroundings surroundings;
    surroundings.Now = [this] { return outside_.Milliseconds(); };
    surroundings.After = [this](int ms, std::function<void()> action) { line_.Nach(ms, std::move(action)); };
    surroundings.Send = [this](const std::vector<std::uint8_t>& bytes) { line_.Empfangen(bytes); };
    surroundings.Decipher = decipher_;
    surroundings.SessionClosed = [this] { Sitzung_Zu(); };
    return surroundings;
}

void Gebaeude::Einrichten(Kern& kern) {
    VirtualWorld world;
    std::string fault;
    if (!demonstration_ || !World_FromJson(demonstration_->World, world, fault)) {
        world = Gebaeude_Welt(kern);
    }
    adapters_ = Gebaeude_Adapter(kern);
    if (demonstration_) {
        adapters_.front() = world.Adapter;
    }
    world.Adapter = adapters_.front();
    clocks_.assign(world.Locks.size(), {});
    system_ = std::make_unique<VirtualSystem>(std::move(world), Umgebung());
    system_->KeepTelegrams(false);
}

void Gebaeude::Melden() const {
    if (Geaendert) {
        Geaendert();
    }
}

void Gebaeude::Sitzung_Zu() {
    const std::vector<VirtualLock>& locks = system_->World().Locks;
    for (std::size_t n = 0; n < clocks_.size(); ++n) {
        if (locks[n].Clock != clocks_[n].Sent) {
            clocks_[n] = {.Minutes = 0, .Sent = locks[n].Clock};
        }
    }
    // Behind what the adapter has to say: whoever listens may ask the operator something.
    line_.Nach(0, [this] { Melden(); });
}

LockClock Gebaeude::Uhr(std::size_t lock) const {
    return Verschoben(outside_.Now(), Uhr_Abweichung(lock));
}

int Gebaeude::Uhr_Abweichung(std::size_t lock) const {
    return clocks_.at(lock).Minutes;
}

void Gebaeude::Uhr_Stellen(std::size_t lock, int minutes) {
    clocks_.at(lock) = {.Minutes = minutes, .Sent = system_->World().Locks.at(lock).Clock};
    Melden();
}

DoorTry Gebaeude::Code_Eingeben(std::size_t lock, std::string_view digits) {
    DoorTry result = Door_Code(system_->World().Locks.at(lock), digits, Uhr(lock));
    Melden();
    return result;
}

DoorTry Gebaeude::Key_Vorhalten(std::size_t lock, std::span<const std::uint8_t> id) {
    DoorTry result = Door_Key(system_->World().Locks.at(lock), id, Uhr(lock));
    Melden();
    return result;
}

void Gebaeude::Auflegen(Credential credential) {
    // What lay there and nobody asked for gives way: people hold one thing at a time.
    system_->World().Desk.Presented.clear();
    system_->Present(std::move(credential));
}

bool Gebaeude::Karte_Liegt() const {
    return system_->World().Desk.Writer.Card.has_value();
}

void Gebaeude::Karte_Legen(bool there) {
    std::optional<VirtualCard>& lying = system_->World().Desk.Writer.Card;
    if (there && !lying) {
        lying = card_.value_or(VirtualCard{});
        card_.reset();
    } else if (!there && lying) {
        card_ = std::exchange(lying, std::nullopt);
    }
    Melden();
}

void Gebaeude::Adapter_Ziehen() {
    if (line_.Steckt()) {
        system_->Unplug();
        line_.Ziehen();
        Melden();
    }
}

void Gebaeude::Adapter_Stecken() {
    if (!line_.Steckt()) {
        system_->Plug();
        line_.Stecken();
        Melden();
    }
}

void Gebaeude::Adapter_Wechseln(std::size_t adapter) {
    if (adapter >= adapters_.size() || adapter == adapter_) {
        return;
    }
    const bool plugged = line_.Steckt();
    Adapter_Ziehen();
    adapters_[adapter_] = system_->World().Adapter; // its name may be another one by now
    adapter_ = adapter;
    system_->World().Adapter = adapters_[adapter];
    if (plugged) {
        Adapter_Stecken();
    }
    Melden();
}

} // namespace qvm
