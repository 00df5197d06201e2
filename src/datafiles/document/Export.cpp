#include "Export.h"

#include "FileTrouble.h"
#include "TableText.h"
#include "Tables.h"
#include "Text.h"
#include "Zeilen.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace qvm {

namespace {

using OrderedJson = nlohmann::ordered_json;

OrderedJson Satz_Json(int number, std::string_view record, const RecordLayout& layout) {
    OrderedJson json;
    json["record"] = number;
    for (const RecordField& field : layout.Fields) {
        const std::string name(field.Name);
        if (field.Padding == Fill::Byte) {
            json[name] = Feld_Byte(record, field);
        } else if (const std::string text = Feld_Export(record, field); !text.empty()) {
            json[name] = NachUtf8(text);
        }
    }
    return json;
}

OrderedJson Tabelle_Json(const RecordFile& file, int count) {
    const RecordLayout& layout = file.Layout();
    OrderedJson rows = OrderedJson::array();
    for (int number = layout.First; number <= count; ++number) {
        const std::string record = file.Record(number);
        if (!Satz_Leer(record, layout)) {
            rows.push_back(Satz_Json(number, record, layout));
        }
    }
    return rows;
}

} // namespace

OrderedJson Export_Erstellen(const FileStore& files, const std::string& directory, std::vector<Finding>& faults) {
    OrderedJson document;
    document["format"] = ExportFormat;
    document["version"] = ExportVersion;
    OrderedJson& counts = document["counts"] = OrderedJson::object();
    OrderedJson& tables = document["tables"] = OrderedJson::object();
    for (const RecordLayout* layout : Satztabellen()) {
        RecordFile file(*layout);
        const ReadStatus status = file.Laden(files, directory);
        if (status == ReadStatus::Error) {
            faults.push_back(Befund_Unlesbar(layout->Name, layout->File, Lesefehler(files)));
        } else if (status == ReadStatus::Ok) {
            const int count = std::min<int>(file.Count(), layout->Last);
            counts[std::string(layout->Name)] = count;
            tables[std::string(layout->Name)] = Tabelle_Json(file, count);
        }
    }
    OrderedJson& lines = document["lines"] = OrderedJson::object();
    for (const LineFile& entry : Zeilendateien()) {
        std::string bytes;
        const ReadStatus status = files.ReadAll(directory + std::string(entry.File), bytes);
        if (status == ReadStatus::Error) {
            faults.push_back(Befund_Unlesbar(entry.File, entry.File, Lesefehler(files)));
        } else if (status == ReadStatus::Ok) {
            OrderedJson& rows = lines[std::string(entry.File)] = OrderedJson::array();
            for (const std::string& line : Zeilen_Lesen(bytes)) {
                if (rows.size() < static_cast<std::size_t>(entry.Lines)) {
                    rows.push_back(NachUtf8(line));
                }
            }
        }
    }
    return document;
}

} // namespace qvm
