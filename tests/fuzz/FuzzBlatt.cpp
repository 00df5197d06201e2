// Any text as a spreadsheet: what was read is within its bounds, and reads the same when it is written anew.

#include "Blatt.h"
#include "CsvLesen.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>

namespace {

using namespace qvm;

void Require(bool held) {
    if (!held) {
        std::abort();
    }
}

std::string Written(const CsvTabelle& table, char separator) {
    std::string text;
    for (const CsvZeile& row : table.Rows) {
        for (std::size_t n = 0; n < row.Fields.size(); ++n) {
            if (n > 0) {
                text += separator;
            }
            text += '"';
            for (const char sign : row.Fields[n]) {
                text.append(sign == '"' ? 2 : 1, sign);
            }
            text += '"';
        }
        text += "\r\n";
    }
    return text;
}

void ReadsTheSame(std::string_view text, char separator) {
    const CsvTabelle table = Csv_Lesen(text, separator);
    int line = 0;
    for (const CsvZeile& row : table.Rows) {
        Require(row.Line > line && !row.Fields.empty() && row.Fields.size() <= MostCsvFields);
        line = row.Line;
        for (const std::string& field : row.Fields) {
            Require(field.size() <= LongestCsvField && Csv_Wert(field).size() <= Csv_Inhalt(field).size());
        }
    }
    Require(table.Rows.size() <= MostCsvRows + 1);
    if (table.Fault != CsvFehler::None || table.Rows.empty()) {
        return;
    }
    const CsvTabelle again = Csv_Lesen(Written(table, separator), separator);
    Require(again.Fault == CsvFehler::None && again.Rows.size() == table.Rows.size());
    for (std::size_t n = 0; n < table.Rows.size(); ++n) {
        Require(again.Rows[n].Fields == table.Rows[n].Fields);
    }
}

void IsASheet(std::string_view text, Zeichensatz set) {
    static const std::vector<Blattspalte> columns{
        {.Column = 1, .Heading = "Name"},   {.Column = 2, .Heading = "Nr."},
        {.Column = 2, .Heading = "No."},    {.Column = 3, .Heading = "Code", .Taken = false},
        {.Column = 4, .Heading = "T\xFCr"}, {.Column = 0, .Heading = "-", .Taken = false, .Repeated = true}};
    constexpr int Key[] = {1, 2};
    const Blatt sheet = Blatt_Lesen(text, set, columns, Key);
    if (sheet.Fault) {
        Require(sheet.Rows.empty() && sheet.Headings.empty());
        return;
    }
    const auto taken = [](int column) { return column == 1 || column == 2 || column == 4; };
    Require(sheet.Headings.contains(1) || sheet.Headings.contains(2));
    int line = sheet.Above.Line;
    for (const Blattzeile& row : sheet.Rows) {
        Require(row.Line > line);
        line = row.Line;
        for (const auto& [column, field] : row.Fields) {
            Require(taken(column) && sheet.Headings.contains(column));
        }
        Require(std::all_of(row.Unfit.begin(), row.Unfit.end(), taken));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    for (const char separator : {';', ',', '\t'}) {
        ReadsTheSame(text, separator);
    }
    for (const Zeichensatz set : Zeichensaetze(text)) {
        IsASheet(text, set);
    }
    return 0;
}
