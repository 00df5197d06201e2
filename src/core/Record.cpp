#include "Record.h"

#include "Text.h"

#include <algorithm>

namespace qvm {

namespace {

/// More records than any of the files has. A number beyond it is a fault, and must not become a huge file.
constexpr int MostRecords = 4096;

/// Characters of a Fill::NullTo20 field that take text; blanks stand behind them.
constexpr std::size_t NullTo20Characters = 20;

std::string Auf_Laenge(std::string_view record, std::size_t length) {
    std::string out(record.substr(0, length));
    out.resize(length, '\0');
    return out;
}

std::size_t Satzanfang(const RecordLayout& layout, int n) {
    return (static_cast<std::size_t>(n) - 1) * layout.Length;
}

/// The field's bytes for a text: cut or padded, always of the field's width.
std::string Gefuellt(const RecordField& field, std::string_view text) {
    const std::size_t width = field.Width;
    std::string out(width, ' ');
    if (text.empty() && field.Padding != Fill::Byte) {
        return out;
    }
    std::size_t room = width;
    if (field.Padding == Fill::NullTo20) {
        room = std::min(width, NullTo20Characters);
    }
    if (field.Padding != Fill::Blank) {
        std::fill_n(out.begin(), room, '\0');
    }
    std::copy_n(text.begin(), std::min(text.size(), room), out.begin());
    return out;
}

} // namespace

std::string Feld_Roh(std::string_view record, const RecordField& field) {
    return Auf_Laenge(Mid(record, field.Offset + std::size_t{1}, field.Width), field.Width);
}

std::string Feld_Lesen(std::string_view record, const RecordField& field) {
    const std::string_view bytes = Mid(record, field.Offset + std::size_t{1}, field.Width);
    return std::string(Trim(bytes.substr(0, bytes.find('\0'))));
}

void Feld_Schreiben(std::string& record, const RecordField& field, std::string_view text) {
    const std::string bytes = Gefuellt(field, text); // before the record moves: the text may be part of it
    const std::size_t end = std::size_t{field.Offset} + field.Width;
    if (record.size() < end) {
        record.resize(end, '\0');
    }
    record.replace(field.Offset, field.Width, bytes);
}

std::uint8_t Feld_Byte(std::string_view record, const RecordField& field) {
    return field.Offset < record.size() ? static_cast<std::uint8_t>(record[field.Offset]) : std::uint8_t{0};
}

void Feld_Byte_Schreiben(std::string& record, const RecordField& field, std::uint8_t value) {
    if (record.size() <= field.Offset) {
        record.resize(field.Offset + std::size_t{1}, '\0');
    }
    record[field.Offset] = static_cast<char>(value);
}

ReadStatus RecordFile::Laden(const FileStore& files, const std::string& directory) {
    std::string bytes;
    const ReadStatus status = files.ReadAll(directory + std::string(layout_->File), bytes);
    bytes_ = status == ReadStatus::Ok ? std::move(bytes) : std::string{};
    return status;
}

bool RecordFile::Speichern(const FileStore& files, const std::string& directory) const {
    return files.Replace(directory + std::string(layout_->File), bytes_);
}

int RecordFile::Count() const {
    const std::size_t records = (bytes_.size() + layout_->Length - 1) / layout_->Length;
    return static_cast<int>(std::min<std::size_t>(records, MostRecords));
}

std::string_view RecordFile::View(int n) const {
    if (n < 1) {
        return {};
    }
    return Mid(bytes_, Satzanfang(*layout_, n) + 1, layout_->Length);
}

std::string RecordFile::Record(int n) const {
    return Auf_Laenge(View(n), layout_->Length);
}

void RecordFile::SetRecord(int n, std::string_view record) {
    if (n < 1 || n > MostRecords) {
        return;
    }
    const std::string bytes = Auf_Laenge(record, layout_->Length);
    const std::size_t start = Satzanfang(*layout_, n);
    if (bytes_.size() < start + layout_->Length) {
        bytes_.resize(start + layout_->Length, '\0');
    }
    bytes_.replace(start, layout_->Length, bytes);
}

bool Satz_Schreiben(const FileStore& files, const std::string& directory, const RecordLayout& layout, int n,
                    std::string_view record) {
    if (n < 1 || n > MostRecords) {
        return false;
    }
    return files.WriteAt(directory + std::string(layout.File), Satzanfang(layout, n),
                         Auf_Laenge(record, layout.Length));
}

} // namespace qvm
