#pragma once

#include "FileStore.h"
#include "Record.h"
#include "UserRecords.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace qvm {

struct Kern;

/// The fingerprint templates of TEmpTCD0UPK.FSD, read once and found by their identifier. Nobody addresses a template
/// by its record number.
class TemplateStore {
public:
    /// Reads the file. A missing file, and one that cannot be read, hold no template.
    ReadStatus Laden(const Kern& kern);

    /// The template text, decimals joined by " : ", of the first record whose identifier begins with the same digits as
    /// the wanted one, which may have "PR" in front. Nothing when there is none, or the identifier has no digits.
    std::optional<std::string> Suchen(std::string_view fingerId) const;

    /// The slot, 1 to 251, whose record Suchen would find; 0: none, or that of a record which no slot has.
    int Slot(std::string_view fingerId) const;

private:
    int Satz(std::string_view fingerId) const;

    RecordFile file_{TemplateRecord::Record};
    std::unordered_map<std::string, int> recordOf_; ///< leading digits of the identifier
};

/// Writes a template as record slot + 249, at once.
/// @param slot       1 to 251, as the search for a free one gives it
/// @param ownerRow   row of the user in FGK4
/// @param identifier seconds since 01.01.2000 as decimal text
/// @param text       the template, decimals joined by " : "; cut at 3000 characters
/// @return false when the slot is out of range or the file could not be written
bool Template_Schreiben(const Kern& kern, int slot, int ownerRow, std::string_view identifier, std::string_view text);

} // namespace qvm
