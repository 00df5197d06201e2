#include "FileLook.h"

#include <algorithm>

namespace qvm {

namespace {

/// Control characters are the only bytes that no text has: older programs and pasted names left all others.
bool Textzeichen(char character) {
    return character == '\0' || static_cast<unsigned char>(character) >= 0x20;
}

bool Feld_Gut(std::string_view bytes, const RecordField& field) {
    if (field.Only.empty()) {
        return std::all_of(bytes.begin(), bytes.end(), Textzeichen);
    }
    const bool text = field.Padding != Fill::Byte;
    return std::all_of(bytes.begin(), bytes.end(), [&](char character) {
        return (text && (character == ' ' || character == '\0')) ||
               field.Only.find(character) != std::string_view::npos;
    });
}

/// A byte for which 0x00 is a value cannot tell a lost record from a good one.
bool Darf_Leer_Sein(const RecordLayout& layout) {
    return layout.Least == 0 || layout.EmptyAllowed || layout.Length == 1;
}

bool Satz_Gut(const RecordLayout& layout, std::string_view record) {
    const bool empty = std::all_of(record.begin(), record.end(), [](char character) { return character == '\0'; });
    return (!empty || Darf_Leer_Sein(layout)) &&
           std::all_of(layout.Fields.begin(), layout.Fields.end(), [&](const RecordField& field) {
               return Feld_Gut(record.substr(field.Offset, field.Width), field);
           });
}

} // namespace

std::optional<FileTrouble> Satzdatei_Pruefen(const RecordLayout& layout, std::string_view bytes) {
    const auto damaged = [&](FileDamage damage, int record = 0) {
        return FileTrouble{.File = std::string(layout.File), .Damage = damage, .Number = record};
    };
    if (bytes.size() % layout.Length != 0) {
        return damaged(FileDamage::CutRecord);
    }
    const std::size_t count = bytes.size() / layout.Length;
    // Who writes single records leaves one at least.
    if (count < std::max<std::size_t>(layout.Least, 1) && !(count == 0 && layout.EmptyAllowed)) {
        return damaged(FileDamage::TooShort);
    }
    // What stands behind the last record is read by nobody.
    const std::size_t last = std::min<std::size_t>(count, layout.Last);
    std::string_view before;
    for (std::size_t n = 0; n < last; ++n) {
        const std::string_view record = bytes.substr(n * layout.Length, layout.Length);
        // Most records are empty, as the one before.
        if (record != before && !Satz_Gut(layout, record)) {
            return damaged(FileDamage::BadRecord, static_cast<int>(n) + 1);
        }
        before = record;
    }
    return std::nullopt;
}

std::optional<FileTrouble> Satzdatei_Pruefen(const RecordLayout& layout, const FileStore& files,
                                             const std::string& directory) {
    std::string bytes;
    switch (files.ReadAll(directory + std::string(layout.File), bytes)) {
    case ReadStatus::Missing:
        return std::nullopt;
    case ReadStatus::Error:
        return FileTrouble{.File = std::string(layout.File), .Fault = Lesefehler(files)};
    case ReadStatus::Ok:
        break;
    }
    return Satzdatei_Pruefen(layout, bytes);
}

} // namespace qvm
