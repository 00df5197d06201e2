#include "Finding.h"

#include "FileTrouble.h"

#include <nlohmann/json.hpp>

namespace qvm {

Finding Befund_Unlesbar(std::string_view table, std::string_view file, FileFault fault) {
    std::string text = table == file ? "the file cannot be read" : "the file " + std::string(file) + " cannot be read";
    if (fault != FileFault::Other) {
        text += ": " + FileFault_English(fault);
    }
    return {.Table = std::string(table), .Text = std::move(text), .Kind = FindingKind::Damaged};
}

std::string Befund_Text(const Finding& finding) {
    std::string text = finding.Table;
    if (finding.Record > 0) {
        // A line file's name holds a point, a record's does not.
        const bool lines = finding.Table.find('.') != std::string::npos;
        text += (lines ? ", line " : ", record ") + std::to_string(finding.Record);
    }
    if (!finding.Field.empty()) {
        text += (text.empty() ? "" : ", ") + finding.Field;
    }
    return text.empty() ? finding.Text : text + ": " + finding.Text;
}

nlohmann::ordered_json Befund_Json(const Finding& finding) {
    nlohmann::ordered_json json;
    json["table"] = finding.Table;
    json["record"] = finding.Record;
    json["field"] = finding.Field;
    json["kind"] = std::string(finding.Kind);
    json["text"] = finding.Text;
    return json;
}

} // namespace qvm
