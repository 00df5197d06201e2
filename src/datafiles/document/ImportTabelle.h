#pragma once

#include "ImportFaults.h"
#include "Record.h"

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

/// Whole numbers of a document up to 32 bits; nothing for anything else.
std::optional<int> Json_Ganzzahl(const nlohmann::json& value);

/// Makes the file of one table out of a document's records as they come. It holds one record and the file, whatever
/// the document holds.
class ImportTabelle {
public:
    /// `faults` must outlive the object.
    ImportTabelle(const RecordLayout& layout, ImportFaults& faults);

    void Satz_Beginnen();
    void Schluessel(const std::string& name);
    /// The value of the last key. Lists and objects may come empty.
    void Wert(const nlohmann::json& value);
    void Satz_Beenden();
    /// An entry of the list that is no record.
    void Kein_Satz(const nlohmann::json& value);

    /// The file, with blank records behind the last one up to `count`.
    std::string Bytes(int count);

private:
    enum class Expected { Nothing, Number, Field };

    template <class Text>
    void Feldfehler(std::string_view field, const Text& text) {
        pending_.Add(layout_->Name, 0, field, text);
    }
    void Zahl(const nlohmann::json& value);
    void Text(const nlohmann::json& value);
    /// The record's number when there can be one of that number.
    std::optional<int> Nummer() const;
    bool Nummer_Pruefen();
    void Verlaengern(int upTo);

    const RecordLayout* layout_;
    ImportFaults* faults_;
    RecordFile file_;
    std::string blank_;
    std::vector<bool> recordsSeen_;

    // The record under way.
    std::string record_; ///< empty until its first field
    std::vector<bool> fieldsSeen_;
    std::optional<nlohmann::json> number_;
    Expected expected_ = Expected::Nothing;
    const RecordField* field_ = nullptr;
    ImportFaults pending_; ///< faults of fields; told when the record's number is known
};

} // namespace qvm
