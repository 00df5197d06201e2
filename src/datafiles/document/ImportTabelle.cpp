#include "ImportTabelle.h"

#include "JsonLesen.h"
#include "TableText.h"
#include "Tables.h"
#include "Text.h"

#include <algorithm>
#include <cstdint>

namespace qvm {

namespace {

using Json = nlohmann::json;

constexpr std::string_view NumberKey = "record";

} // namespace

std::optional<int> Json_Ganzzahl(const Json& value) {
    if (value.is_number_unsigned()) {
        const auto number = value.get<std::uint64_t>();
        return number > INT32_MAX ? std::nullopt : std::optional<int>(static_cast<int>(number));
    }
    if (value.is_number_integer()) {
        const auto number = value.get<std::int64_t>();
        return number < INT32_MIN || number > INT32_MAX ? std::nullopt : std::optional<int>(static_cast<int>(number));
    }
    return std::nullopt;
}

ImportTabelle::ImportTabelle(const RecordLayout& layout, ImportFaults& faults)
    : layout_(&layout), faults_(&faults), file_(layout), blank_(Leersatz(layout)),
      recordsSeen_(static_cast<std::size_t>(layout.Last) + 1), fieldsSeen_(layout.Fields.size()) {}

void ImportTabelle::Satz_Beginnen() {
    record_.clear();
    std::fill(fieldsSeen_.begin(), fieldsSeen_.end(), false);
    number_.reset();
    expected_ = Expected::Nothing;
    pending_ = {};
}

void ImportTabelle::Schluessel(const std::string& name) {
    expected_ = Expected::Nothing;
    const auto twice = [] { return "stands twice in one object"; };
    if (name == NumberKey) {
        if (number_) {
            Feldfehler(name, twice);
        } else {
            expected_ = Expected::Number;
        }
        return;
    }
    field_ = Feld_Suchen(*layout_, name);
    if (field_ == nullptr) {
        Feldfehler(name, [] { return "there is no such field"; });
        return;
    }
    const auto index = static_cast<std::size_t>(field_ - layout_->Fields.data());
    if (fieldsSeen_[index]) {
        Feldfehler(name, twice);
        return;
    }
    fieldsSeen_[index] = true;
    expected_ = Expected::Field;
}

void ImportTabelle::Wert(const Json& value) {
    if (expected_ == Expected::Number) {
        number_ = value;
    } else if (expected_ == Expected::Field) {
        if (record_.empty()) {
            record_ = blank_;
        }
        if (field_->Padding == Fill::Byte) {
            Zahl(value);
        } else {
            Text(value);
        }
    }
    expected_ = Expected::Nothing;
}

void ImportTabelle::Zahl(const Json& value) {
    const std::optional<int> byte = Json_Ganzzahl(value);
    if (!byte || *byte < 0 || *byte > 255) {
        Feldfehler(field_->Name, [&value] { return Json_Zitat(value) + " is not a number from 0 to 255"; });
        return;
    }
    Feld_Byte_Schreiben(record_, *field_, static_cast<std::uint8_t>(*byte));
}

void ImportTabelle::Text(const Json& value) {
    if (!value.is_string()) {
        // The value itself is not quoted: it may be a code.
        Feldfehler(field_->Name, [&value] { return std::string("must be a text, not a ") + value.type_name(); });
        return;
    }
    const auto& utf8 = value.get_ref<const std::string&>();
    if (!PasstInCp1252(utf8)) {
        Feldfehler(field_->Name, [] { return "holds a character that code page 1252 does not have"; });
        return;
    }
    std::string text = AusUtf8(utf8);
    text.resize(RTrim(text).size());
    if (text.size() > field_->Width) {
        Feldfehler(field_->Name, [&text, this] {
            return "has " + std::to_string(text.size()) + " characters, the field holds " +
                   std::to_string(field_->Width);
        });
        return;
    }
    if (text.find('\0') != std::string::npos && !Feld_Ist_Maske(*field_)) {
        Feldfehler(field_->Name, [] { return "holds a zero character, behind which nobody reads"; });
        return;
    }
    Feld_Schreiben(record_, *field_, text);
    if (Feld_Export(record_, *field_) != text) {
        Feldfehler(field_->Name, [] { return "does not fit into the field"; });
    }
}

std::optional<int> ImportTabelle::Nummer() const {
    const std::optional<int> number = number_ ? Json_Ganzzahl(*number_) : std::nullopt;
    return number && *number >= layout_->First && *number <= layout_->Last ? number : std::nullopt;
}

bool ImportTabelle::Nummer_Pruefen() {
    const std::optional<int> number = Nummer();
    if (!number) {
        faults_->Add(layout_->Name, 0, NumberKey, [this] {
            return (number_ ? Json_Zitat(*number_) + " is not a number" : "is missing") + std::string(" from ") +
                   std::to_string(layout_->First) + " to " + std::to_string(layout_->Last);
        });
        return false;
    }
    const auto index = static_cast<std::size_t>(*number);
    if (recordsSeen_[index]) {
        faults_->Add(layout_->Name, *number, "", [] { return "the record stands twice"; });
        return false;
    }
    recordsSeen_[index] = true;
    return true;
}

void ImportTabelle::Satz_Beenden() {
    const bool good = Nummer_Pruefen();
    const int number = Nummer().value_or(0);
    // They count whatever is wrong with the number.
    faults_->Take(pending_, number);
    if (!good) {
        return;
    }
    Verlaengern(number);
    if (!record_.empty()) {
        file_.SetRecord(number, record_);
    }
}

void ImportTabelle::Kein_Satz(const Json& value) {
    faults_->Add(layout_->Name, 0, "",
                 [&value] { return std::string("a record must be an object, not a ") + value.type_name(); });
}

void ImportTabelle::Verlaengern(int upTo) {
    for (int number = file_.Count() + 1; number <= upTo; ++number) {
        file_.SetRecord(number, blank_);
    }
}

std::string ImportTabelle::Bytes(int count) {
    // No writer leaves a file of single records without any.
    const int least = layout_->Least == 0 ? 1 : 0;
    Verlaengern(std::clamp<int>(count, least, layout_->Last));
    return file_.Bytes();
}

} // namespace qvm
