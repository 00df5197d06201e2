// Any bytes as a document to import. What is accepted must come back from an export of the files that it made, and a
// second import of that must make the same files.

#include "Export.h"
#include "Import.h"
#include "MemoryFiles.h"

#include <cstdint>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace qvm;
    const ImportPlan plan = Import_Pruefen(std::string_view(reinterpret_cast<const char*>(data), size));
    if (!plan.Faults.empty()) {
        return plan.Files.empty() ? 0 : (std::abort(), 0);
    }
    test::MemoryFiles disk;
    if (!Import_Schreiben(disk.Store(), "DAT/", DateTime{}, plan).Done) {
        std::abort();
    }
    const auto written = disk.Files;
    std::vector<Finding> faults;
    const std::string document = Export_Erstellen(disk.Store(), "DAT/", faults).dump();
    const ImportPlan again = Import_Pruefen(document);
    if (!faults.empty() || !again.Faults.empty() || again.Files.size() != plan.Files.size()) {
        std::abort();
    }
    for (const ImportFile& file : again.Files) {
        if (written.at("DAT/" + file.Name) != file.Bytes) {
            std::abort();
        }
    }
    return 0;
}
