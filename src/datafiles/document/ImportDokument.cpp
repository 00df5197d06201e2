#include "ImportDokument.h"

#include "Export.h"
#include "JsonLesen.h"

#include <algorithm>
#include <array>

namespace qvm {

namespace {

using Json = nlohmann::json;

constexpr std::string_view Format = "format", Version = "version", Counts = "counts", Tables = "tables",
                           LineFiles = "lines";
constexpr std::array Parts{Format, Version, Counts, Tables, LineFiles};

std::string Format_Wort() {
    return "must be \"" + std::string(ExportFormat) + "\"";
}

std::string Version_Wort() {
    return "must be " + std::to_string(ExportVersion);
}

} // namespace

bool ImportDokument::parse_error(std::size_t /*position*/, const std::string& /*token*/, const Json::exception& error) {
    parseFault_ = Json_Fehlertext(error.what());
    return false;
}

std::optional<ImportDokument::Place> ImportDokument::Hinein(bool list) const {
    switch (places_.back()) {
    case Place::Outside:
        return list ? std::nullopt : std::optional(Place::Document);
    case Place::Document:
        if (!list && part_ == Counts) {
            return Place::Counts;
        }
        if (!list && part_ == Tables) {
            return Place::Tables;
        }
        return !list && part_ == LineFiles ? std::optional(Place::LineFiles) : std::nullopt;
    case Place::Tables:
        return list && table_ != nullptr ? std::optional(Place::Table) : std::nullopt;
    case Place::Table:
        return list ? std::nullopt : std::optional(Place::Record);
    case Place::LineFiles:
        return list && lineFile_ != nullptr ? std::optional(Place::Lines) : std::nullopt;
    case Place::Counts:
    case Place::Record:
    case Place::Lines:
        break;
    }
    return std::nullopt;
}

bool ImportDokument::Oeffnen(Json::value_t kind) {
    if (passedOver_ > 0) {
        ++passedOver_;
        return true;
    }
    const std::optional<Place> place = Hinein(kind == Json::value_t::array);
    if (!place) {
        Wert(Json(kind));
        passedOver_ = 1;
        return true;
    }
    places_.push_back(*place);
    if (*place == Place::Record) {
        table_->Satz_Beginnen();
    }
    return true;
}

bool ImportDokument::Schliessen() {
    if (passedOver_ > 0) {
        --passedOver_;
        return true;
    }
    if (places_.back() == Place::Record) {
        table_->Satz_Beenden();
    } else if (places_.back() == Place::Lines) {
        lineFile_->Beenden();
    } else if (places_.back() == Place::Document) {
        Abschliessen();
    }
    places_.pop_back();
    return true;
}

bool ImportDokument::Schluessel(const std::string& name) {
    if (passedOver_ > 0) {
        return true;
    }
    switch (places_.back()) {
    case Place::Document:
        Teil(name);
        break;
    case Place::Counts:
        Zahl_Schluessel(name);
        break;
    case Place::Tables:
        Tabelle_Schluessel(name);
        break;
    case Place::LineFiles:
        Datei_Schluessel(name);
        break;
    case Place::Record:
        table_->Schluessel(name);
        break;
    case Place::Outside:
    case Place::Table:
    case Place::Lines:
        break; // lists have no keys
    }
    return true;
}

bool ImportDokument::Wert(const Json& value) {
    if (passedOver_ > 0) {
        return true;
    }
    switch (places_.back()) {
    case Place::Outside:
        faults_.Add("", 0, "", [] { return "the document is not an object"; });
        break;
    case Place::Document:
        Teil_Wert(value);
        break;
    case Place::Counts:
        Zahl_Wert(value);
        break;
    case Place::Tables:
        if (table_ != nullptr) {
            faults_.Add(layout_->Name, 0, "", [] { return "must be a list of records"; });
        }
        break;
    case Place::LineFiles:
        if (lineFile_ != nullptr) {
            faults_.Add(lineEntry_->File, 0, "", [] { return "must be a list of lines"; });
        }
        break;
    case Place::Table:
        table_->Kein_Satz(value);
        break;
    case Place::Record:
        table_->Wert(value);
        break;
    case Place::Lines:
        lineFile_->Zeile(value);
        break;
    }
    return true;
}

void ImportDokument::Zweimal(const std::string& name) {
    faults_.Add("", 0, Json_Kurz(name), [] { return "stands twice in one object"; });
}

void ImportDokument::Teil(const std::string& name) {
    part_ = {};
    const auto* const known = std::find(Parts.begin(), Parts.end(), name);
    if (known == Parts.end()) {
        faults_.Add("", 0, Json_Kurz(name), [] { return "is not part of such a document"; });
    } else if (std::find(parts_.begin(), parts_.end(), name) != parts_.end()) {
        Zweimal(name);
    } else {
        part_ = *known;
        parts_.push_back(part_);
    }
}

void ImportDokument::Teil_Wert(const Json& value) {
    if (part_ == Format) {
        if (value != Json(ExportFormat)) {
            faults_.Add("", 0, part_, Format_Wort);
        }
    } else if (part_ == Version) {
        if (Json_Ganzzahl(value) != ExportVersion) {
            faults_.Add("", 0, part_, Version_Wort);
        }
    } else if (!part_.empty()) {
        faults_.Add("", 0, part_, [] { return "must be an object"; });
    }
}

void ImportDokument::Zahl_Schluessel(const std::string& name) {
    counted_ = Tabelle_Suchen(name);
    if (counted_ == nullptr) {
        faults_.Add(Json_Kurz(name), 0, "", [] { return "there is no such table"; });
    } else if (!counts_.emplace(counted_, 0).second) {
        Zweimal(name);
        counted_ = nullptr;
    }
}

void ImportDokument::Zahl_Wert(const Json& value) {
    if (counted_ == nullptr) {
        return;
    }
    const std::optional<int> count = Json_Ganzzahl(value);
    if (!count || *count < 0 || *count > counted_->Last) {
        faults_.Add(counted_->Name, 0, "", [&] {
            return "the count " + Json_Zitat(value) + " is not a number from 0 to " + std::to_string(counted_->Last);
        });
        return;
    }
    counts_[counted_] = *count;
}

void ImportDokument::Tabelle_Schluessel(const std::string& name) {
    table_ = nullptr;
    layout_ = Tabelle_Suchen(name);
    if (layout_ == nullptr) {
        faults_.Add(Json_Kurz(name), 0, "", [] { return "there is no such table"; });
        return;
    }
    const auto [entry, isNew] = tables_.try_emplace(layout_, *layout_, faults_);
    if (!isNew) {
        Zweimal(name);
        return;
    }
    table_ = &entry->second;
}

void ImportDokument::Datei_Schluessel(const std::string& name) {
    lineFile_ = nullptr;
    lineEntry_ = Zeilendatei_Suchen(name);
    if (lineEntry_ == nullptr) {
        faults_.Add(Json_Kurz(name), 0, "", [] { return "there is no such file of lines"; });
        return;
    }
    const auto [entry, isNew] = lines_.try_emplace(lineEntry_, *lineEntry_, faults_);
    if (!isNew) {
        Zweimal(name);
        return;
    }
    lineFile_ = &entry->second;
}

void ImportDokument::Abschliessen() {
    const auto missing = [this](std::string_view part) {
        return std::find(parts_.begin(), parts_.end(), part) == parts_.end();
    };
    if (missing(Format)) {
        faults_.Add("", 0, Format, Format_Wort);
    }
    if (missing(Version)) {
        faults_.Add("", 0, Version, Version_Wort);
    }
    for (const auto& [layout, count] : counts_) {
        if (!tables_.contains(layout)) {
            faults_.Add(layout->Name, 0, "", [] { return "has a count but no records; an empty table is []"; });
        }
    }
}

ImportPlan ImportDokument::Ergebnis() {
    ImportPlan plan;
    if (!parseFault_.empty()) {
        plan.Faults.push_back({.Text = "not a JSON document: " + parseFault_, .Kind = FindingKind::Document});
        return plan;
    }
    plan.MoreFaults = faults_.More;
    plan.Faults = std::move(faults_.Told);
    if (!plan.Faults.empty()) {
        return plan;
    }
    for (const RecordLayout* layout : Satztabellen()) {
        if (const auto table = tables_.find(layout); table != tables_.end()) {
            const auto count = counts_.find(layout);
            plan.Files.push_back({.Name = std::string(layout->File),
                                  .Bytes = table->second.Bytes(count == counts_.end() ? layout->Least : count->second),
                                  .Table = layout});
        }
    }
    for (const LineFile& entry : Zeilendateien()) {
        if (const auto file = lines_.find(&entry); file != lines_.end()) {
            plan.Files.push_back(
                {.Name = std::string(entry.File), .Bytes = file->second.Bytes(), .Lines = entry.Lines});
        }
    }
    return plan;
}

} // namespace qvm
