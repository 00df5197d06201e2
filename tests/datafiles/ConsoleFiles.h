#pragma once

#include "Import.h"
#include "MemoryFiles.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace qvm::test {

/// The data directory of the tests in memory.
inline const std::string Dat = "app/DAT/";

/// `record` with `text` at `offset`, nothing else changed.
inline std::string Put(std::string record, std::size_t offset, std::string_view text) {
    record.replace(offset, text.size(), text);
    return record;
}

/// A document with one table.
inline std::string Document(std::string_view table, std::string_view rows) {
    return R"({"format":"qvm7702-export","version":1,"tables":{")" + std::string(table) + R"(":)" + std::string(rows) +
           "}}";
}

/// The text of every fault of a document, one a line.
inline std::string Faults(std::string_view json) {
    std::string text;
    for (const Finding& fault : Import_Pruefen(json).Faults) {
        text += Befund_Text(fault) + "\n";
    }
    return text;
}

inline constexpr DateTime Moment{.Year = 2026, .Month = 3, .Day = 5, .Hour = 7, .Minute = 8, .Second = 9};

/// Imports a document that must be good.
inline ImportReport Import(MemoryFiles& disk, std::string_view json) {
    return Import_Schreiben(disk.Store(), Dat, Moment, Import_Pruefen(json));
}

} // namespace qvm::test
