#pragma once

#include "FileTrouble.h"
#include "Record.h"

#include <span>
#include <string_view>

/// Every data file of the system in one list. Export, import and check go by it.
namespace qvm {

/// A line-oriented file of the data directory. Lines end in CR LF.
struct LineFile {
    std::string_view File;
    int Lines;                                                ///< lines that a reader looks at; the file may hold fewer
    FileTrouble (*Examine)(std::string_view bytes) = nullptr; ///< what the program takes for damage; nullptr: nothing
};

/// The record files in use, in the order in which the documents show them. The older forms are not among them.
std::span<const RecordLayout* const> Satztabellen();
std::span<const LineFile> Zeilendateien();

/// The layout of that name, or nullptr.
const RecordLayout* Tabelle_Suchen(std::string_view name);
const LineFile* Zeilendatei_Suchen(std::string_view file);
/// What the program takes for damage in the bytes of such a file; FileTrouble{} when all is well.
FileTrouble Zeilendatei_Pruefen(const LineFile& entry, std::string_view bytes);
const RecordField* Feld_Suchen(const RecordLayout& layout, std::string_view name);

/// True for a field whose readers go by position and look behind a 0x00: the lock mask.
bool Feld_Ist_Maske(const RecordField& field);

} // namespace qvm
