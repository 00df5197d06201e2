#include "ImportAngleichen.h"

#include "FileLook.h"
#include "TableText.h"
#include "Tables.h"
#include "Text.h"
#include "Zeilen.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace qvm {

namespace {

bool Feld_Gleich(std::string_view one, std::string_view other, const RecordField& field) {
    return field.Padding == Fill::Byte ? Feld_Byte(one, field) == Feld_Byte(other, field)
                                       : Feld_Export(one, field) == Feld_Export(other, field);
}

/// The new record with the old bytes of each field that says the same. A record that says the same as a whole keeps its
/// length too, which is shorter where a file ends too early.
std::string Satz_Angleichen(std::string_view record, std::string_view old, const RecordLayout& layout) {
    std::string merged(record);
    bool same = true;
    for (const RecordField& field : layout.Fields) {
        if (Feld_Gleich(record, old, field)) {
            merged.replace(field.Offset, field.Width, Feld_Roh(old, field));
        } else {
            same = false;
        }
    }
    return same ? std::string(old) : merged;
}

std::string Tabelle_Angleichen(const ImportFile& file, std::string_view old) {
    const RecordLayout& layout = *file.Table;
    const std::size_t length = layout.Length;
    const std::size_t read = length * layout.Last;
    std::string bytes = file.Bytes;
    if (old.size() > read) {
        // What is kept behind the records must not become one of them.
        const std::string blank = Leersatz(layout);
        while (bytes.size() < read) {
            bytes += blank;
        }
    }
    std::string merged;
    merged.reserve(std::max(bytes.size(), old.size()));
    for (std::size_t start = 0; start < bytes.size(); start += length) {
        const std::string_view record = std::string_view(bytes).substr(start, length);
        const std::string_view before = start < old.size() ? old.substr(start, length) : std::string_view();
        const bool last = start + length >= bytes.size();
        const bool whole = before.size() == length || (last && !before.empty());
        merged += whole ? Satz_Angleichen(record, before, layout) : std::string(record);
    }
    return old.size() > read ? merged + std::string(old.substr(read)) : merged;
}

/// Where line `count` + 1 begins; the text's size when there is none.
std::size_t Zeilenanfang(std::string_view text, int count) {
    std::size_t at = 0;
    for (int n = 0; n < count && at < text.size(); ++n) {
        const std::size_t end = text.find('\n', at);
        at = end == std::string_view::npos ? text.size() : end + 1;
    }
    return at;
}

std::string Zeilen_Angleichen(const ImportFile& file, std::string_view old) {
    const std::size_t behind = Zeilenanfang(old, file.Lines);
    const std::vector<std::string> lines = Zeilen_Lesen(file.Bytes);
    if (lines == Zeilen_Lesen(old.substr(0, behind))) {
        return std::string(old);
    }
    const bool all = lines.size() == static_cast<std::size_t>(file.Lines);
    return all ? file.Bytes + std::string(old.substr(behind)) : file.Bytes;
}

/// False for bytes that refuse a run, or that the program does not overwrite without asking.
bool Unbeschaedigt(const ImportFile& file, std::string_view bytes) {
    if (file.Table != nullptr) {
        return !Satzdatei_Pruefen(*file.Table, bytes);
    }
    const LineFile* const entry = Zeilendatei_Suchen(file.Name);
    return entry == nullptr || Zeilendatei_Pruefen(*entry, bytes).Damage == FileDamage::None;
}

} // namespace

std::string Import_Angleichen(const ImportFile& file, std::string_view old) {
    std::string merged = file.Table != nullptr ? Tabelle_Angleichen(file, old) : Zeilen_Angleichen(file, old);
    return Unbeschaedigt(file, merged) ? merged : file.Bytes;
}

} // namespace qvm
