#pragma once

#include "FileStore.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// Fixed-record files. A record is declared once, as a table of fields with offset and width that check each other;
/// one routine reads a field, one writes it, and no other touches record bytes.
namespace qvm {

/// How a field's unused room is filled.
enum class Fill : std::uint8_t {
    Blank,    ///< with 0x20
    Null,     ///< with 0x00; an empty text is all blanks
    NullTo20, ///< with 0x00 to 20 characters, blanks behind; an empty text is all blanks
    Byte      ///< one raw byte, not text
};

struct RecordField {
    std::string_view Name;
    std::uint16_t Offset;
    std::uint16_t Width;
    Fill Padding = Fill::Blank;
    std::string_view Only{}; ///< all bytes that a writer leaves here, a blank and 0x00 apart; empty: those of any text
};

struct RecordLayout {
    std::string_view Name; ///< of the record
    std::string_view File; ///< file name in the data directory
    std::uint16_t Length;  ///< bytes a record
    std::uint16_t First;   ///< first record number that the program reads or writes
    std::uint16_t Last;    ///< last record number that the program reads or writes
    std::span<const RecordField> Fields;
    std::uint16_t Least = 0;   ///< records that every writer leaves at least; 0: the file grows by single records
    bool EmptyAllowed = false; ///< a file without a record is one that a writer leaves, too
};

/// Index of the first field that does not begin where the one before it ends, the number of fields when they do not
/// end at `length`, or -1 when all is well.
constexpr int RecordError(std::span<const RecordField> fields, std::size_t length) {
    std::size_t at = 0;
    int index = 0;
    for (const RecordField& field : fields) {
        if (field.Offset != at || field.Width == 0) {
            return index;
        }
        at += field.Width;
        ++index;
    }
    return at == length ? -1 : index;
}

/// Names the misfit in the compiler's message: static_assert(sizeof(GapAtField<RecordError(Fields, N)>) == 1).
template <int Field>
struct GapAtField;
template <>
struct GapAtField<-1> {};

/// The field's text: stops at the first 0x00, blanks stripped on both sides. A record that is too short gives what it
/// has.
std::string Feld_Lesen(std::string_view record, const RecordField& field);
/// The field's bytes as they stand, missing ones as 0x00.
std::string Feld_Roh(std::string_view record, const RecordField& field);
/// Cuts or pads the text into the field, by the field's fill. The record is made long enough if it is not.
void Feld_Schreiben(std::string& record, const RecordField& field, std::string_view text);
/// One raw byte (Fill::Byte).
std::uint8_t Feld_Byte(std::string_view record, const RecordField& field);
void Feld_Byte_Schreiben(std::string& record, const RecordField& field, std::uint8_t value);

/// A record file in memory, read in one go. Records are numbered from 1.
class RecordFile {
public:
    explicit RecordFile(const RecordLayout& layout) : layout_(&layout) {}

    /// Ok, Missing (holds nothing) or Error (holds nothing).
    ReadStatus Laden(const FileStore& files, const std::string& directory);
    /// Writes all bytes, all or nothing; what a longer file holds behind the rewritten records is part of them.
    bool Speichern(const FileStore& files, const std::string& directory) const;

    const RecordLayout& Layout() const { return *layout_; }
    /// Records that the file holds, a partial last one included.
    int Count() const;
    /// Record n as it stands, always of the layout's length: what the file does not hold is 0x00.
    std::string Record(int n) const;
    /// Sets record n; records between the end and n are filled with 0x00.
    void SetRecord(int n, std::string_view record);
    const std::string& Bytes() const { return bytes_; }

    std::string Text(int n, const RecordField& field) const { return Feld_Lesen(View(n), field); }

private:
    std::string_view View(int n) const;

    const RecordLayout* layout_;
    std::string bytes_;
};

/// Writes one record in place, without reading the file.
bool Satz_Schreiben(const FileStore& files, const std::string& directory, const RecordLayout& layout, int n,
                    std::string_view record);

} // namespace qvm
