// Both configuration files from arbitrary bytes: read, written, and read again. A damaged one stays until its values
// are chosen, and what is written then is whole.

#include "Kern.h"
#include "Konfiguration.h"
#include "MemoryFiles.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    const std::size_t cut = bytes.empty() ? 0 : static_cast<unsigned char>(bytes[0]) % bytes.size();

    qvm::test::MemoryFiles disk;
    qvm::Platform world;
    world.Files = disk.Store();
    world.Now = [] { return qvm::DateTime{}; };
    qvm::Kern kern(world);
    kern.AppPath = "/q/";
    disk.Files["/q/DAT/EST7CSB29A.I_1"] = bytes.substr(cut);
    disk.Files["/q/DAT/CHEUSB25C.I_2"] = bytes.substr(0, cut);

    qvm::Konfiguration_Laden(kern);
    const qvm::Konfiguration first = kern.Config;
    const bool ranges =
        first.PortNummer >= 1 && first.PortNummer <= 16 && first.Funkkanal() >= 1 && first.Funkkanal() <= 12;
    const bool whole = qvm::Konfiguration_Maengel(first).empty();
    const auto before = disk.Files;
    if (!ranges || qvm::Konfiguration_Speichern(kern) != whole) {
        std::abort();
    }
    for (const qvm::FileTrouble* trouble : {&first.EinstellungenMangel, &first.AdapterMangel}) {
        const std::string path = "/q/DAT/" + trouble->File;
        if (!trouble->File.empty() && disk.Files.at(path) != before.at(path)) {
            std::abort();
        }
    }
    kern.Config.RadioChannel = "7";
    kern.Config.PortAutomatik = "SET";
    if (!qvm::Konfiguration_Speichern(kern, qvm::ConfigChoice::Channel) ||
        !qvm::Konfiguration_Speichern(kern, qvm::ConfigChoice::Port)) {
        std::abort();
    }
    qvm::Konfiguration_Laden(kern);
    const bool kept = kern.Config.PortNummer == first.PortNummer && kern.Config.Sprache == first.Sprache;
    if (!qvm::Konfiguration_Maengel(kern.Config).empty() || kern.Config.Funkkanal() != 7 || (whole && !kept)) {
        std::abort();
    }
    return 0;
}
