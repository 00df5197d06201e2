#include "TemplateStore.h"

#include "Kern.h"
#include "Text.h"

#include <algorithm>

namespace qvm {

namespace {

constexpr int SlotOffset = 249, LastSlot = 251;
constexpr std::size_t IdentifierLength = 21;

/// The digits that the identifier begins with. A deletion record ("F-...") has none.
std::string_view Kennziffern(std::string_view identifier) {
    return identifier.substr(0, std::min(identifier.find_first_not_of("0123456789"), identifier.size()));
}

} // namespace

ReadStatus TemplateStore::Laden(const Kern& kern) {
    recordOf_.clear();
    const ReadStatus status = file_.Laden(kern.Welt.Files, kern.DatPfad());
    const int last = std::min(file_.Count(), int{TemplateRecord::Record.Last});
    for (int n = 1; n <= last; ++n) {
        const std::string identifier = file_.Text(n, TemplateRecord::Identifier);
        const std::string_view digits = Kennziffern(identifier);
        if (!digits.empty()) {
            recordOf_.emplace(digits, n); // the first of equals stays
        }
    }
    return status;
}

/// The number of the record; 0: none.
int TemplateStore::Satz(std::string_view fingerId) const {
    std::string_view wanted = Trim(fingerId).substr(0, IdentifierLength);
    if (wanted.starts_with("PR")) {
        wanted.remove_prefix(2);
    }
    const auto found = recordOf_.find(std::string(Kennziffern(wanted)));
    return found == recordOf_.end() ? 0 : found->second;
}

std::optional<std::string> TemplateStore::Suchen(std::string_view fingerId) const {
    const int record = Satz(fingerId);
    return record == 0 ? std::nullopt : std::optional(file_.Text(record, TemplateRecord::Template));
}

int TemplateStore::Slot(std::string_view fingerId) const {
    const int slot = Satz(fingerId) - SlotOffset;
    return slot >= 1 && slot <= LastSlot ? slot : 0;
}

bool Template_Schreiben(const Kern& kern, int slot, int ownerRow, std::string_view identifier, std::string_view text) {
    if (slot < 1 || slot > LastSlot) {
        return false;
    }
    std::string record;
    Feld_Schreiben(record, TemplateRecord::Owner, Ziffern(ownerRow));
    Feld_Schreiben(record, TemplateRecord::Identifier, LTrim(identifier));
    Feld_Schreiben(record, TemplateRecord::Template, LTrim(text));
    Feld_Schreiben(record, TemplateRecord::Spare, "0");
    return Satz_Schreiben(kern.Welt.Files, kern.DatPfad(), TemplateRecord::Record, slot + SlotOffset, record);
}

} // namespace qvm
