#include "Import.h"
#include "ImportDokument.h"
#include "JsonLesen.h"

#include <nlohmann/json.hpp>

namespace qvm {

ImportPlan Import_Pruefen(std::string_view json) {
    if (const auto position = Json_Zu_Langes_Stueck(json)) {
        ImportPlan plan;
        plan.Faults.push_back({.Text = "the text, number or run of blanks at byte " + std::to_string(*position) +
                                       " is longer than " + std::to_string(LongestJsonPiece) +
                                       " bytes; nothing in the data files is",
                               .Kind = FindingKind::Document});
        return plan;
    }
    ImportDokument document;
    nlohmann::json::sax_parse(json, &document);
    return document.Ergebnis();
}

} // namespace qvm
