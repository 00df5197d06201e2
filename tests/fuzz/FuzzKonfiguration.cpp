// Both configuration files from arbitrary bytes: read, written, and read again.

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
    qvm::Kern kern(world);
    kern.AppPath = "/q/";
    disk.Files["/q/DAT/EST7CSB29A.I_1"] = bytes.substr(cut);
    disk.Files["/q/DAT/CHEUSB25C.I_2"] = bytes.substr(0, cut);

    qvm::Konfiguration_Laden(kern);
    const qvm::Konfiguration first = kern.Config;
    const bool ranges =
        first.PortNummer >= 1 && first.PortNummer <= 16 && first.Funkkanal() >= 1 && first.Funkkanal() <= 12;
    if (!ranges || !qvm::Konfiguration_Speichern(kern)) {
        std::abort();
    }
    qvm::Konfiguration_Laden(kern);
    if (kern.Config.PortNummer != first.PortNummer || kern.Config.Sprache != first.Sprache) {
        std::abort();
    }
    return 0;
}
