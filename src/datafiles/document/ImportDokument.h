#pragma once

#include "Import.h"
#include "ImportFaults.h"
#include "ImportTabelle.h"
#include "ImportZeilen.h"

#include <cstddef>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

/// Takes a document as a parser tells it, piece by piece, and makes the files of it. Of what stands where nothing is
/// expected only the fault is kept, so that room and work depend on the data files and not on the document.
///
/// The routines in small letters are the parser's; each gives true, as every document is read to its end.
class ImportDokument {
public:
    using Json = nlohmann::json;

    ImportDokument() = default;
    // Its tables tell their faults to it.
    ImportDokument(const ImportDokument&) = delete;
    ImportDokument& operator=(const ImportDokument&) = delete;

    bool null() { return Wert(nullptr); }
    bool boolean(bool value) { return Wert(value); }
    bool number_integer(Json::number_integer_t value) { return Wert(value); }
    bool number_unsigned(Json::number_unsigned_t value) { return Wert(value); }
    bool number_float(Json::number_float_t value, const Json::string_t& /*text*/) { return Wert(value); }
    bool string(Json::string_t& value) { return Wert(std::move(value)); }
    static bool binary(Json::binary_t& /*value*/) { return true; }
    bool start_object(std::size_t /*elements*/) { return Oeffnen(Json::value_t::object); }
    bool end_object() { return Schliessen(); }
    bool start_array(std::size_t /*elements*/) { return Oeffnen(Json::value_t::array); }
    bool end_array() { return Schliessen(); }
    bool key(Json::string_t& name) { return Schluessel(name); }
    bool parse_error(std::size_t position, const std::string& token, const Json::exception& error);

    /// The files and faults of the whole document, once it has been read.
    ImportPlan Ergebnis();

private:
    /// Where in the document the next piece stands.
    enum class Place { Outside, Document, Counts, Tables, Table, Record, LineFiles, Lines };

    bool Schluessel(const std::string& name);
    bool Wert(const Json& value);
    bool Oeffnen(Json::value_t kind);
    bool Schliessen();

    std::optional<Place> Hinein(bool list) const;
    void Teil(const std::string& name);
    void Zahl_Schluessel(const std::string& name);
    void Tabelle_Schluessel(const std::string& name);
    void Datei_Schluessel(const std::string& name);
    void Teil_Wert(const Json& value);
    void Zahl_Wert(const Json& value);
    void Zweimal(const std::string& name);
    void Abschliessen();

    ImportFaults faults_;
    std::string parseFault_; ///< why it is no JSON; empty: it is
    std::vector<Place> places_{Place::Outside};
    std::size_t passedOver_ = 0; ///< lists and objects that are open and of no use

    std::vector<std::string_view> parts_; ///< of the document that came
    std::string_view part_;               ///< the last of them; empty: one that there is not
    std::map<const RecordLayout*, int> counts_;
    std::map<const RecordLayout*, ImportTabelle> tables_;
    std::map<const LineFile*, ImportZeilen> lines_;
    // What the last key named; nullptr: nothing that there is, or a second time.
    const RecordLayout* counted_ = nullptr;
    ImportTabelle* table_ = nullptr;
    const RecordLayout* layout_ = nullptr;
    ImportZeilen* lineFile_ = nullptr;
    const LineFile* lineEntry_ = nullptr;
};

} // namespace qvm
