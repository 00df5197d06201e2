#include "TableText.h"

#include "Tables.h"
#include "Text.h"

namespace qvm {

std::string Feld_Export(std::string_view record, const RecordField& field) {
    std::string text = Feld_Roh(record, field);
    if (Feld_Ist_Maske(field)) {
        const std::size_t last = text.find_last_not_of(std::string_view("\0 ", 2));
        text.resize(last == std::string::npos ? 0 : last + 1);
        return text;
    }
    const std::size_t end = text.find('\0');
    if (end != std::string::npos) {
        text.resize(end);
    }
    text.resize(RTrim(text).size());
    return text;
}

bool Satz_Leer(std::string_view record, const RecordLayout& layout) {
    for (const RecordField& field : layout.Fields) {
        const bool empty =
            field.Padding == Fill::Byte ? Feld_Byte(record, field) == 0 : Feld_Export(record, field).empty();
        if (!empty) {
            return false;
        }
    }
    return true;
}

std::string Leersatz(const RecordLayout& layout) {
    std::string record(layout.Length, ' ');
    for (const RecordField& field : layout.Fields) {
        if (field.Padding == Fill::Byte) {
            Feld_Byte_Schreiben(record, field, 0);
        } else {
            Feld_Schreiben(record, field, {});
        }
    }
    return record;
}

} // namespace qvm
