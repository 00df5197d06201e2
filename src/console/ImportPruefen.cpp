#include "Export.h"
#include "Import.h"
#include "JsonLesen.h"
#include "TableText.h"
#include "Tables.h"
#include "Text.h"

#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>

namespace qvm {

namespace {

using Json = nlohmann::json;

/// Walks a document and gathers faults and files.
class Pruefer {
public:
    explicit Pruefer(ImportPlan& plan) : plan_(plan) {}

    void Dokument(const Json& document);

private:
    void Fehler(std::string_view table, int record, std::string_view field, std::string text) {
        plan_.Faults.push_back({.Table = std::string(table),
                                .Record = record,
                                .Field = std::string(field),
                                .Text = std::move(text),
                                .Kind = FindingKind::Document});
    }
    void Kopf(const Json& document);
    void Tabelle(const RecordLayout& layout, const Json& rows, const Json* count);
    void Satz(RecordFile& file, const Json& row, std::set<int>& seen);
    void Feld(std::string& record, const RecordLayout& layout, int number, const std::string& name, const Json& value);
    void Zahl(std::string& record, const RecordLayout& layout, int number, const RecordField& field, const Json& value);
    void Text(std::string& record, const RecordLayout& layout, int number, const RecordField& field, const Json& value);
    void Zeilen(const LineFile& entry, const Json& rows);
    std::optional<int> Anzahl(const RecordLayout& layout, const Json& value);

    ImportPlan& plan_;
};

std::optional<std::int64_t> Ganzzahl(const Json& value) {
    if (value.is_number_unsigned()) {
        const auto number = value.get<std::uint64_t>();
        return number > INT32_MAX ? std::nullopt : std::optional<std::int64_t>(static_cast<std::int64_t>(number));
    }
    return value.is_number_integer() ? std::optional<std::int64_t>(value.get<std::int64_t>()) : std::nullopt;
}

const Json* Teil(const Json& object, const char* key) {
    const auto found = object.find(key);
    return found == object.end() ? nullptr : &*found;
}

void Pruefer::Kopf(const Json& document) {
    const Json* format = Teil(document, "format");
    if (format == nullptr || !format->is_string() || format->get_ref<const std::string&>() != ExportFormat) {
        Fehler("", 0, "format", "must be \"" + std::string(ExportFormat) + "\"");
    }
    const Json* version = Teil(document, "version");
    if (version == nullptr || Ganzzahl(*version) != ExportVersion) {
        Fehler("", 0, "version", "must be " + std::to_string(ExportVersion));
    }
    static constexpr std::string_view Known[] = {"format", "version", "counts", "tables", "lines"};
    for (const auto& item : document.items()) {
        bool known = false;
        for (const std::string_view name : Known) {
            known = known || name == item.key();
        }
        if (!known) {
            Fehler("", 0, item.key(), "is not part of such a document");
        }
    }
    for (const char* part : {"counts", "tables", "lines"}) {
        const Json* value = Teil(document, part);
        if (value != nullptr && !value->is_object()) {
            Fehler("", 0, part, "must be an object");
        }
    }
}

void Pruefer::Dokument(const Json& document) {
    if (!document.is_object()) {
        Fehler("", 0, "", "the document is not an object");
        return;
    }
    Kopf(document);
    const Json empty = Json::object();
    const auto objectOf = [&](const char* key) -> const Json& {
        const Json* value = Teil(document, key);
        return value != nullptr && value->is_object() ? *value : empty;
    };
    const Json& tables = objectOf("tables");
    const Json& counts = objectOf("counts");
    for (const Json* part : {&tables, &counts}) {
        for (const auto& item : part->items()) {
            if (Tabelle_Suchen(item.key()) == nullptr) {
                Fehler(item.key(), 0, "", "there is no such table");
            } else if (part == &counts && !tables.contains(item.key())) {
                Fehler(item.key(), 0, "", "has a count but no records; an empty table is []");
            }
        }
    }
    for (const RecordLayout* layout : Satztabellen()) {
        const std::string name(layout->Name);
        if (const Json* rows = Teil(tables, name.c_str())) {
            Tabelle(*layout, *rows, Teil(counts, name.c_str()));
        }
    }
    const Json& lines = objectOf("lines");
    for (const auto& item : lines.items()) {
        if (const LineFile* entry = Zeilendatei_Suchen(item.key())) {
            Zeilen(*entry, item.value());
        } else {
            Fehler(item.key(), 0, "", "there is no such file of lines");
        }
    }
}

std::optional<int> Pruefer::Anzahl(const RecordLayout& layout, const Json& value) {
    const std::optional<std::int64_t> count = Ganzzahl(value);
    if (!count || *count < 0 || *count > layout.Last) {
        Fehler(layout.Name, 0, "",
               "the count " + Json_Zitat(value) + " is not a number from 0 to " + std::to_string(layout.Last));
        return std::nullopt;
    }
    return static_cast<int>(*count);
}

void Pruefer::Tabelle(const RecordLayout& layout, const Json& rows, const Json* count) {
    if (!rows.is_array()) {
        Fehler(layout.Name, 0, "", "must be a list of records");
        return;
    }
    RecordFile file(layout);
    const std::string blank = Leersatz(layout);
    const auto extend = [&](int upTo) {
        for (int number = file.Count() + 1; number <= upTo; ++number) {
            file.SetRecord(number, blank);
        }
    };
    if (count != nullptr) {
        extend(Anzahl(layout, *count).value_or(0));
    }
    std::set<int> seen;
    for (const Json& row : rows) {
        const Json* record = row.is_object() ? Teil(row, "record") : nullptr;
        if (record != nullptr) {
            const std::int64_t number = Ganzzahl(*record).value_or(0);
            if (number >= layout.First && number <= layout.Last) {
                extend(static_cast<int>(number));
            }
        }
        Satz(file, row, seen);
    }
    plan_.Files.push_back({.Name = std::string(layout.File), .Bytes = file.Bytes()});
}

void Pruefer::Satz(RecordFile& file, const Json& row, std::set<int>& seen) {
    const RecordLayout& layout = file.Layout();
    if (!row.is_object()) {
        Fehler(layout.Name, 0, "", std::string("a record must be an object, not a ") + row.type_name());
        return;
    }
    const Json* record = Teil(row, "record");
    const std::optional<std::int64_t> value = record == nullptr ? std::nullopt : Ganzzahl(*record);
    if (!value || *value < layout.First || *value > layout.Last) {
        Fehler(layout.Name, 0, "record",
               (record == nullptr ? "is missing" : Json_Zitat(*record) + " is not a number") + std::string(" from ") +
                   std::to_string(layout.First) + " to " + std::to_string(layout.Last));
        return;
    }
    const int number = static_cast<int>(*value);
    if (!seen.insert(number).second) {
        Fehler(layout.Name, number, "", "the record stands twice");
        return;
    }
    std::string bytes = Leersatz(layout);
    for (const auto& item : row.items()) {
        if (item.key() != "record") {
            Feld(bytes, layout, number, item.key(), item.value());
        }
    }
    file.SetRecord(number, bytes);
}

void Pruefer::Feld(std::string& record, const RecordLayout& layout, int number, const std::string& name,
                   const Json& value) {
    const RecordField* field = Feld_Suchen(layout, name);
    if (field == nullptr) {
        Fehler(layout.Name, number, name, "there is no such field");
    } else if (field->Padding == Fill::Byte) {
        Zahl(record, layout, number, *field, value);
    } else {
        Text(record, layout, number, *field, value);
    }
}

void Pruefer::Zahl(std::string& record, const RecordLayout& layout, int number, const RecordField& field,
                   const Json& value) {
    const std::optional<std::int64_t> byte = Ganzzahl(value);
    if (!byte || *byte < 0 || *byte > 255) {
        Fehler(layout.Name, number, field.Name, Json_Zitat(value) + " is not a number from 0 to 255");
        return;
    }
    Feld_Byte_Schreiben(record, field, static_cast<std::uint8_t>(*byte));
}

void Pruefer::Text(std::string& record, const RecordLayout& layout, int number, const RecordField& field,
                   const Json& value) {
    if (!value.is_string()) {
        // The value itself is not quoted: it may be a code.
        Fehler(layout.Name, number, field.Name, std::string("must be a text, not a ") + value.type_name());
        return;
    }
    const std::string& utf8 = value.get_ref<const std::string&>();
    if (!PasstInCp1252(utf8)) {
        Fehler(layout.Name, number, field.Name, "holds a character that code page 1252 does not have");
        return;
    }
    std::string text = AusUtf8(utf8);
    text.resize(RTrim(text).size());
    if (text.size() > field.Width) {
        Fehler(layout.Name, number, field.Name,
               "has " + std::to_string(text.size()) + " characters, the field holds " + std::to_string(field.Width));
        return;
    }
    if (text.find('\0') != std::string::npos && !Feld_Ist_Maske(field)) {
        Fehler(layout.Name, number, field.Name, "holds a zero character, behind which nobody reads");
        return;
    }
    Feld_Schreiben(record, field, text);
    if (Feld_Export(record, field) != text) {
        Fehler(layout.Name, number, field.Name, "does not fit into the field");
    }
}

void Pruefer::Zeilen(const LineFile& entry, const Json& rows) {
    if (!rows.is_array()) {
        Fehler(entry.File, 0, "", "must be a list of lines");
        return;
    }
    if (rows.size() > static_cast<std::size_t>(entry.Lines)) {
        Fehler(entry.File, 0, "",
               "has " + std::to_string(rows.size()) + " lines, " + std::to_string(entry.Lines) + " are read");
        return;
    }
    std::string bytes;
    int number = 0;
    for (const Json& row : rows) {
        ++number;
        if (!row.is_string()) {
            Fehler(entry.File, number, "", std::string("must be a text, not a ") + row.type_name());
        } else if (!PasstInCp1252(row.get_ref<const std::string&>())) {
            Fehler(entry.File, number, "", "holds a character that code page 1252 does not have");
        } else if (row.get_ref<const std::string&>().find_first_of("\r\n") != std::string::npos) {
            Fehler(entry.File, number, "", "holds a line end");
        } else if (row.get_ref<const std::string&>().find('\0') != std::string::npos) {
            Fehler(entry.File, number, "", "holds a zero character, behind which nobody reads");
        } else {
            bytes += AusUtf8(row.get_ref<const std::string&>()) + "\r\n";
        }
    }
    plan_.Files.push_back({.Name = std::string(entry.File), .Bytes = bytes});
}

} // namespace

ImportPlan Import_Pruefen(std::string_view json) {
    ImportPlan plan;
    std::string fault;
    std::vector<std::string> doubled;
    const std::optional<Json> document = Json_Lesen(json, fault, doubled);
    if (!document) {
        plan.Faults.push_back({.Text = "not a JSON document: " + fault, .Kind = FindingKind::Document});
        return plan;
    }
    for (const std::string& key : doubled) {
        plan.Faults.push_back({.Field = key, .Text = "stands twice in one object", .Kind = FindingKind::Document});
    }
    Pruefer(plan).Dokument(*document);
    if (!plan.Faults.empty()) {
        plan.Files.clear();
    }
    return plan;
}

} // namespace qvm
