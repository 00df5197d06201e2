#pragma once

#include "FileTrouble.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

struct Kern;

/// The settings that survive a restart: DAT/EST7CSB29A.I_1 (four lines) and DAT/CHEUSB25C.I_2 (six lines).
struct Konfiguration {
    std::string Sprache = "Deutsch";
    std::string Sprachnummer = "1"; ///< stored and written back; nothing reads it
    std::string PortName = "USB-PORT";
    std::string RadioChannel;          ///< "1" to "12"; anything else counts as 1
    std::string PortAutomatik = "SET"; ///< "SET": find the adapter's port; "RESET": use PortNummer. Compared trimmed
    std::array<std::string, 5> AdapterFeld; ///< stored and written back

    /// What is wrong with a file that is there; its name is empty when all is well. One that could not be read is not
    /// written over, a damaged one only when the operator has chosen its values anew.
    FileTrouble EinstellungenMangel, AdapterMangel;

    int PortNummer = 1; ///< 1 to 16, from the text behind the eighth character of PortName

    /// RadioChannel as a number, 1 to 12.
    int Funkkanal() const;
    /// True in adapter mode, "SET".
    bool AdapterModus() const;
};

/// The settings file.
inline constexpr std::string_view SettingsFile = "EST7CSB29A.I_1";
/// The file of the port search and of the adapter fields.
inline constexpr std::string_view AdapterSettingsFile = "CHEUSB25C.I_2";

/// What the bytes of the settings file suffer from: fewer lines than the four that every writer leaves, a last line
/// whose end was cut off, or a line that no writer makes. Without a name when all is well. A value out of its range is
/// no damage.
FileTrouble Einstellungen_Pruefen(std::string_view bytes);
/// The same of the adapter file. It may have fewer lines than are written, but the first says SET or RESET.
FileTrouble Adapterdatei_Pruefen(std::string_view bytes);

/// Reads both files. What is missing keeps its default; a port below 1 or above 16 becomes 1; an empty radio channel
/// line becomes "1".
void Konfiguration_Laden(Kern& kern);
/// What of the settings the operator has just chosen. Whatever else is saved may have been read from a damaged file.
enum class ConfigChoice { Nothing, Channel, Port };

/// Rewrites both files from the current values, each all or nothing. False when one could not be written. A file
/// that could not be read is left alone, which counts as not written, and so is a damaged one: what stands in the
/// settings file is replaced only when the radio channel was chosen, the adapter file only when the port was. A copy of
/// the damaged file is kept then, under its name and the date. A file that waits for another choice than `chosen` is no
/// failure of the save; with Nothing chosen it is one, and so it is for a fixed port, which stands in the settings
/// file.
bool Konfiguration_Speichern(Kern& kern, ConfigChoice chosen = ConfigChoice::Nothing);

/// The files of the configuration that cannot be relied on.
std::vector<FileTrouble> Konfiguration_Maengel(const Konfiguration& config);
/// True when the configuration can be relied on. Otherwise tells the operator why no lock is addressed: a lock that is
/// programmed gets the radio channel that stands there.
bool Konfiguration_Verlangen(const Kern& kern);

} // namespace qvm
