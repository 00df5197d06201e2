// Any bytes in one of the data files: check and export must take them, and the export must be UTF-8.

#include "Check.h"
#include "Export.h"
#include "MemoryFiles.h"
#include "Tables.h"

#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace qvm;
    if (size == 0) {
        return 0;
    }
    const auto tables = Satztabellen();
    const auto lines = Zeilendateien();
    const std::size_t which = data[0] % (tables.size() + lines.size());
    const std::string_view name = which < tables.size() ? tables[which]->File : lines[which - tables.size()].File;
    test::MemoryFiles disk;
    disk.Files["DAT/" + std::string(name)].assign(reinterpret_cast<const char*>(data) + 1, size - 1);
    for (const Finding& finding : Daten_Pruefen(disk.Store(), "DAT/")) {
        (void)Befund_Json(finding).dump(); // throws on text that is not UTF-8
    }
    std::vector<Finding> faults;
    (void)Export_Erstellen(disk.Store(), "DAT/", faults).dump();
    return 0;
}
