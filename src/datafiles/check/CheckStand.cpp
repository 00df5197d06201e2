#include "CheckStand.h"

#include "FileTrouble.h"
#include "Seriennummer.h"
#include "Tables.h"
#include "Text.h"
#include "Zeilen.h"
#include "Zeit.h"

#include <algorithm>
#include <utility>

namespace qvm {

CheckStand::CheckStand(const FileStore& files, const std::string& directory) {
    for (const RecordLayout* layout : Satztabellen()) {
        RecordFile file(*layout);
        const ReadStatus status = file.Laden(files, directory);
        const FileFault fault = status == ReadStatus::Error ? qvm::Lesefehler(files) : FileFault::None;
        tables_.emplace(layout->Name, Entry{std::move(file), status, fault});
    }
    for (const LineFile& entry : Zeilendateien()) {
        std::string bytes;
        const ReadStatus status = files.ReadAll(directory + std::string(entry.File), bytes);
        LineEntry& held = lines_[entry.File];
        held.Fault = status == ReadStatus::Error ? qvm::Lesefehler(files) : FileFault::None;
        if (status == ReadStatus::Ok) {
            held.Bytes = std::move(bytes);
        }
    }
}

bool CheckStand::Da(const RecordLayout& layout) const {
    return tables_.at(layout.Name).Status == ReadStatus::Ok;
}

FileFault CheckStand::Lesefehler(const RecordLayout& layout) const {
    return tables_.at(layout.Name).Fault;
}

const RecordFile& CheckStand::File(const RecordLayout& layout) const {
    return tables_.at(layout.Name).File;
}

int CheckStand::Letzter(const RecordLayout& layout) const {
    return std::min<int>(File(layout).Count(), layout.Last);
}

std::string CheckStand::Text(const RecordLayout& layout, int record, const RecordField& field) const {
    return File(layout).Text(record, field);
}

std::optional<std::string> CheckStand::Bytes(std::string_view file) const {
    return lines_.at(file).Bytes;
}

std::optional<std::vector<std::string>> CheckStand::Zeilen(std::string_view file) const {
    const std::optional<std::string>& bytes = lines_.at(file).Bytes;
    return bytes ? std::optional(Zeilen_Lesen(*bytes)) : std::nullopt;
}

FileFault CheckStand::Lesefehler(std::string_view file) const {
    return lines_.at(file).Fault;
}

void CheckStand::Melden(std::string_view kind, std::string_view table, int record, std::string_view field,
                        std::string text) {
    Findings.push_back({.Table = std::string(table),
                        .Record = record,
                        .Field = std::string(field),
                        .Text = std::move(text),
                        .Kind = kind});
}

std::optional<int> DoubledTexts::Sehen(const std::string& text, int record) {
    if (text.empty()) {
        return std::nullopt;
    }
    const auto [at, isNew] = first_.emplace(text, record);
    return isNew ? std::nullopt : std::optional<int>(at->second);
}

std::string Zitat(std::string_view cp1252) {
    std::string text(cp1252);
    std::replace_if(
        text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, '?');
    return "\"" + NachUtf8(text) + "\"";
}

SerialText Seriennummer(const CheckStand& stand, const RecordLayout& layout, int record, const RecordField& sn1,
                        const RecordField& sn2, const RecordField& sn3, const RecordField& sn4) {
    SerialText serial;
    bool narrow = true;
    for (const RecordField* field : {&sn1, &sn2, &sn3, &sn4}) {
        const std::string part = stand.Text(layout, record, *field);
        serial.Blank = serial.Blank && part.empty();
        narrow = narrow && part.size() <= 2;
        serial.Text += (field == &sn1 ? "" : ".") + part;
    }
    if (const auto bytes = Serie_Zerlegen(serial.Text); bytes && narrow) {
        serial.Good = true;
        serial.Value = Serie_Zahl(*bytes);
    }
    return serial;
}

std::optional<int> Uhrzeit_Minuten(std::string_view text) {
    constexpr std::size_t Length = 5; // the run takes single digits, too; a writer leaves none
    return text.size() == Length ? Uhrzeit_Lesen(text) : std::nullopt;
}

bool Leer_Oder(std::string_view text, std::initializer_list<std::string_view> allowed) {
    return text.empty() || std::find(allowed.begin(), allowed.end(), text) != allowed.end();
}

std::optional<int> Dezimalzahl(std::string_view text) {
    if (text.empty() || text.size() > 9) {
        return std::nullopt;
    }
    int value = 0;
    for (const char digit : text) {
        if (digit < '0' || digit > '9') {
            return std::nullopt;
        }
        value = value * 10 + (digit - '0');
    }
    return value;
}

} // namespace qvm
