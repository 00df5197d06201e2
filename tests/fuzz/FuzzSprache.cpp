// A language file from arbitrary bytes, and an arbitrary language name.

#include "Catalogue.h"
#include "Kern.h"
#include "MemoryFiles.h"
#include "Text.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);

    qvm::test::MemoryFiles disk;
    qvm::Platform world;
    world.Files = disk.Store();
    qvm::Kern kern(world);
    kern.AppPath = "/q/";
    disk.Files["/q/QVM_Deutsch.DAT"] = bytes;
    if (qvm::Sprachdatei_Laden(kern) == qvm::SprachdateiStatus::Fehlt || !kern.Zeile(0).empty()) {
        std::abort();
    }
    for (const std::string& label : kern.Sprache.TagTexte) {
        if (label.empty()) {
            std::abort();
        }
    }

    kern.Config.Sprache = bytes.substr(0, 40);
    qvm::Sprachdatei_Laden(kern);

    const std::string text = qvm::AusUtf8(bytes);
    if (text.size() > bytes.size() || qvm::AusUtf8(qvm::NachUtf8(bytes)) != bytes) {
        std::abort();
    }
    return 0;
}
