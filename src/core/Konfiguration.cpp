#include "Konfiguration.h"

#include "Kern.h"
#include "Sicherung.h"
#include "Text.h"
#include "Words.h"
#include "Zeilen.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace qvm {

namespace {

constexpr std::string_view LineEnd = "\r\n";

constexpr std::size_t PortAutomatikWidth = 10;
constexpr std::size_t AdapterFeldWidth = 5;

/// Characters of PortName before the port number ("USB-Port").
constexpr std::size_t PortNamePrefix = 8;

/// Lines that every writer leaves in the settings file.
constexpr std::size_t SettingsLines = 4;
/// No value comes near this length.
constexpr std::size_t LongestLine = 80;

constexpr int HighestPort = 16;
constexpr int HighestChannel = 12;

std::string Pfad(const Kern& kern, std::string_view name) {
    return kern.DatPfad() + std::string(name);
}

/// The file's lines; none when it is missing or cannot be read. `trouble` says what is wrong with it.
std::vector<std::string> Datei_Zeilen(const Kern& kern, std::string_view name,
                                      FileTrouble (*examine)(std::string_view bytes), FileTrouble& trouble) {
    std::string bytes;
    const ReadStatus status = kern.Welt.Files.ReadAll(Pfad(kern, name), bytes);
    trouble = {};
    if (status == ReadStatus::Error) {
        trouble = {.File = std::string(name), .Fault = Lesefehler(kern.Welt.Files)};
    } else if (status == ReadStatus::Ok) {
        trouble = examine(bytes);
    }
    return status == ReadStatus::Ok ? Zeilen_Lesen(bytes) : std::vector<std::string>{};
}

/// True for a value that a writer may make.
bool Ist_Wert(std::string_view text) {
    return text.size() <= LongestLine && std::none_of(text.begin(), text.end(), [](char c) {
               const auto byte = static_cast<unsigned char>(c);
               return byte < 0x20 || byte == 0x7F;
           });
}

/// The first line that no writer makes, from 1; 0 when there is none. A CR LF and a lone LF both end a line.
int Schlechte_Zeile(std::string_view bytes) {
    int number = 0;
    for (const std::string& line : Zeilen_Lesen(bytes.substr(0, (LongestLine + 2) * 64))) {
        ++number;
        if (!Ist_Wert(line)) {
            return number;
        }
    }
    return 0;
}

FileTrouble Schaden(std::string_view file, FileDamage damage, int line = 0) {
    return {.File = std::string(file), .Damage = damage, .Number = line};
}

/// Writes one of the files, where that is allowed.
bool Datei_Schreiben(const Kern& kern, std::string_view name, const std::string& bytes, bool chosen,
                     FileTrouble& trouble) {
    const std::string path = Pfad(kern, name);
    if (trouble.Fault != FileFault::None || (trouble.Damage != FileDamage::None && !chosen)) {
        return false;
    }
    if (trouble.Damage != FileDamage::None && !Beiseite_Legen(kern.Welt.Files, path, kern.Welt.Now())) {
        return false;
    }
    if (!kern.Welt.Files.Replace(path, bytes)) {
        return false;
    }
    trouble = {};
    return true;
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
    const std::vector<std::string> lines =
        Datei_Zeilen(kern, SettingsFile, Einstellungen_Pruefen, config.EinstellungenMangel);
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
    std::vector<std::string> lines =
        Datei_Zeilen(kern, AdapterSettingsFile, Adapterdatei_Pruefen, config.AdapterMangel);
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

FileTrouble Einstellungen_Pruefen(std::string_view bytes) {
    if (const int line = Schlechte_Zeile(bytes); line > 0) {
        return Schaden(SettingsFile, FileDamage::BadLine, line);
    }
    // Files made by hand may end their lines otherwise, and lack the last end. The program's own never do.
    const bool own = bytes.find(LineEnd) != std::string_view::npos;
    if (Zeilen_Lesen(bytes).size() < SettingsLines || (own && !bytes.ends_with('\n'))) {
        return Schaden(SettingsFile, FileDamage::CutLines);
    }
    return {};
}

FileTrouble Adapterdatei_Pruefen(std::string_view bytes) {
    if (bytes.empty()) {
        return Schaden(AdapterSettingsFile, FileDamage::CutLines);
    }
    if (const int line = Schlechte_Zeile(bytes); line > 0) {
        return Schaden(AdapterSettingsFile, FileDamage::BadLine, line);
    }
    const std::string first = Zeilen_Lesen(bytes).front();
    const bool known = Trim(first) == "SET" || Trim(first) == "RESET";
    return known ? FileTrouble{} : Schaden(AdapterSettingsFile, FileDamage::BadLine, 1);
}

void Konfiguration_Laden(Kern& kern) {
    kern.Config = Konfiguration{};
    Einstellungen_Laden(kern);
    Adapter_Laden(kern);
}

bool Konfiguration_Speichern(Kern& kern, ConfigChoice chosen) {
    Konfiguration& config = kern.Config;

    // What was read from a damaged line must not damage the new file.
    const Konfiguration standard;
    std::string settings;
    for (const auto field : {&Konfiguration::Sprache, &Konfiguration::Sprachnummer, &Konfiguration::PortName,
                             &Konfiguration::RadioChannel}) {
        settings.append(Ist_Wert(config.*field) ? config.*field : standard.*field).append(LineEnd);
    }

    std::string adapter = Auf_Breite(config.PortAutomatik, PortAutomatikWidth).append(LineEnd);
    for (const std::string& value : config.AdapterFeld) {
        adapter.append(Auf_Breite(Ist_Wert(value) ? value : "", AdapterFeldWidth)).append(LineEnd);
    }

    const bool settingsDone =
        Datei_Schreiben(kern, SettingsFile, settings, chosen == ConfigChoice::Channel, config.EinstellungenMangel);
    const bool adapterDone =
        Datei_Schreiben(kern, AdapterSettingsFile, adapter, chosen == ConfigChoice::Port, config.AdapterMangel);
    // What waits for another choice is not this one's failure. A fixed port stands in the settings file itself.
    const bool settingsWait =
        chosen == ConfigChoice::Port && config.AdapterModus() && config.EinstellungenMangel.Damage != FileDamage::None;
    const bool adapterWaits = chosen == ConfigChoice::Channel && config.AdapterMangel.Damage != FileDamage::None;
    return (settingsDone || settingsWait) && (adapterDone || adapterWaits);
}

std::vector<FileTrouble> Konfiguration_Maengel(const Konfiguration& config) {
    std::vector<FileTrouble> found;
    for (const FileTrouble* trouble : {&config.EinstellungenMangel, &config.AdapterMangel}) {
        if (!trouble->File.empty()) {
            found.push_back(*trouble);
        }
    }
    return found;
}

bool Konfiguration_Verlangen(const Kern& kern) {
    std::string reasons;
    for (const FileTrouble& trouble : Konfiguration_Maengel(kern.Config)) {
        reasons += (reasons.empty() ? "" : "; ") + FileTrouble_Text(kern, trouble);
    }
    if (reasons.empty()) {
        return true;
    }
    kern.Meldung(Wort(kern, Word::SettingsUnreliable, {reasons}), Buttons::Ok, Icon::Exclamation);
    return false;
}

} // namespace qvm
