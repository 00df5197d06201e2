#include "Konfiguration.h"

#include "Kern.h"
#include "Text.h"
#include "Zeilen.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace qvm {

namespace {

constexpr std::string_view SettingsFile = "EST7CSB29A.I_1";
constexpr std::string_view AdapterFile = "CHEUSB25C.I_2";
constexpr std::string_view LineEnd = "\r\n";

constexpr std::size_t PortAutomatikWidth = 10;
constexpr std::size_t AdapterFeldWidth = 5;

/// Characters of PortName before the port number ("USB-Port").
constexpr std::size_t PortNamePrefix = 8;

constexpr int HighestPort = 16;
constexpr int HighestChannel = 12;

std::string Pfad(const Kern& kern, std::string_view name) {
    return kern.DatPfad() + std::string(name);
}

/// The file's lines; none when it is missing or cannot be read, which `unreadable` tells apart.
std::vector<std::string> Datei_Zeilen(const Kern& kern, std::string_view name, bool& unreadable) {
    std::string bytes;
    const ReadStatus status = kern.Welt.Files.ReadAll(Pfad(kern, name), bytes);
    unreadable = status == ReadStatus::Error;
    return status == ReadStatus::Ok ? Zeilen_Lesen(bytes) : std::vector<std::string>{};
}

void Uebernehmen(const std::vector<std::string>& lines, std::size_t index, std::string& value) {
    if (index < lines.size()) {
        value = lines[index];
    }
}

int Port_Aus_Name(std::string_view portName) {
    const int number = Zahlwert(Mid(portName, PortNamePrefix + 1));
    return number < 1 || number > HighestPort ? 1 : number;
}

void Einstellungen_Laden(Kern& kern) {
    Konfiguration& config = kern.Config;
    const std::vector<std::string> lines = Datei_Zeilen(kern, SettingsFile, config.EinstellungenUnlesbar);
    Uebernehmen(lines, 0, config.Sprache);
    Uebernehmen(lines, 1, config.Sprachnummer);
    Uebernehmen(lines, 2, config.PortName);
    Uebernehmen(lines, 3, config.RadioChannel);
    if (lines.size() > 3 && config.RadioChannel.empty()) {
        config.RadioChannel = "1";
    }
    config.PortNummer = Port_Aus_Name(config.PortName);
}

void Adapter_Laden(Kern& kern) {
    Konfiguration& config = kern.Config;
    std::vector<std::string> lines = Datei_Zeilen(kern, AdapterFile, config.AdapterUnlesbar);
    for (std::string& line : lines) {
        line = RTrim(line); // the padding is the file's, not the value's
    }
    Uebernehmen(lines, 0, config.PortAutomatik);
    for (std::size_t n = 0; n < config.AdapterFeld.size(); ++n) {
        Uebernehmen(lines, n + 1, config.AdapterFeld[n]);
    }
}

} // namespace

int Konfiguration::Funkkanal() const {
    const std::string_view text = Trim(RadioChannel);
    const bool digits = std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
    const int channel = digits ? Zahlwert(text) : 1;
    return channel < 1 || channel > HighestChannel ? 1 : channel;
}

bool Konfiguration::AdapterModus() const {
    return Trim(PortAutomatik) == "SET";
}

void Konfiguration_Laden(Kern& kern) {
    kern.Config = Konfiguration{};
    Einstellungen_Laden(kern);
    Adapter_Laden(kern);
}

bool Konfiguration_Speichern(Kern& kern) {
    const Konfiguration& config = kern.Config;

    std::string settings;
    for (const std::string* value : {&config.Sprache, &config.Sprachnummer, &config.PortName, &config.RadioChannel}) {
        settings.append(*value).append(LineEnd);
    }

    std::string adapter = Auf_Breite(config.PortAutomatik, PortAutomatikWidth).append(LineEnd);
    for (const std::string& value : config.AdapterFeld) {
        adapter.append(Auf_Breite(value, AdapterFeldWidth)).append(LineEnd);
    }

    const bool settingsDone =
        !config.EinstellungenUnlesbar && kern.Welt.Files.Replace(Pfad(kern, SettingsFile), settings);
    const bool adapterDone = !config.AdapterUnlesbar && kern.Welt.Files.Replace(Pfad(kern, AdapterFile), adapter);
    return settingsDone && adapterDone;
}

} // namespace qvm
