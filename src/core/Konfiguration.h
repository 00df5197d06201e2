#pragma once

#include <array>
#include <string>

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

    /// A file that is there and could not be read: it is not written over.
    bool EinstellungenUnlesbar = false, AdapterUnlesbar = false;

    int PortNummer = 1; ///< 1 to 16, from the text behind the eighth character of PortName

    /// RadioChannel as a number, 1 to 12.
    int Funkkanal() const;
    /// True in adapter mode, "SET".
    bool AdapterModus() const;
};

/// Reads both files. What is missing keeps its default; a port below 1 or above 16 becomes 1; an empty radio channel
/// line becomes "1".
void Konfiguration_Laden(Kern& kern);
/// Rewrites both files from the current values, each all or nothing. False when one could not be written. A file
/// that could not be read is left alone, which counts as not written.
bool Konfiguration_Speichern(Kern& kern);

} // namespace qvm
