#include "Schlossserie.h"

#include "Seriennummer.h"
#include "Text.h"

#include <algorithm>

namespace qvm {

namespace {

/// Takes the text up to the next point away from `rest`, the point too.
std::string_view Naechster_Teil(std::string_view& rest) {
    const std::size_t end = std::min(rest.find('.'), rest.size());
    const std::string_view part = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return part;
}

} // namespace

std::string Serie_Lesen(const RecordFile& file, int record, const SerialFields& fields) {
    std::string serial;
    bool blank = true;
    for (const RecordField& field : fields) {
        const std::string part = file.Text(record, field);
        blank = blank && part.empty();
        serial += (&field == fields.data() ? "" : ".") + part;
    }
    return blank ? std::string{} : serial;
}

void Serie_Schreiben(std::string& record, const SerialFields& fields, std::string_view serial) {
    for (const RecordField& field : fields) {
        Feld_Schreiben(record, field, Trim(Naechster_Teil(serial)));
    }
}

std::int64_t Serie_Wert(std::string_view serial) {
    const auto bytes = Serie_Zerlegen(serial);
    return bytes && GrossText(Trim(serial)) == Serie_Text(*bytes) ? std::int64_t{Serie_Zahl(*bytes)} : -1;
}

} // namespace qvm
