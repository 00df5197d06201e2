#pragma once

#include "Finding.h"
#include "Record.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

/// The data files, read once, and what has been found in them.
class CheckStand {
public:
    CheckStand(const FileStore& files, const std::string& directory);

    /// True when the file is there and could be read.
    bool Da(const RecordLayout& layout) const;
    const RecordFile& File(const RecordLayout& layout) const;
    /// Why a file that is there could not be read; None when it was read or is missing.
    FileFault Lesefehler(const RecordLayout& layout) const;
    /// Highest record that the file holds and a reader looks at.
    int Letzter(const RecordLayout& layout) const;
    std::string Text(const RecordLayout& layout, int record, const RecordField& field) const;
    /// The bytes of a line file; nothing when it is missing or could not be read.
    std::optional<std::string> Bytes(std::string_view file) const;
    /// The same as lines.
    std::optional<std::vector<std::string>> Zeilen(std::string_view file) const;
    /// Why a line file that is there could not be read; None when it was read or is missing.
    FileFault Lesefehler(std::string_view file) const;

    void Melden(std::string_view kind, const RecordLayout& layout, int record, std::string_view field,
                std::string text) {
        Melden(kind, layout.Name, record, field, std::move(text));
    }
    void Melden(std::string_view kind, std::string_view table, int record, std::string_view field, std::string text);

    std::vector<Finding> Findings;

private:
    struct Entry {
        RecordFile File;
        ReadStatus Status;
        FileFault Fault;
    };
    struct LineEntry {
        std::optional<std::string> Bytes;
        FileFault Fault;
    };
    std::map<std::string_view, Entry> tables_;
    std::map<std::string_view, LineEntry> lines_;
};

/// Tells for each text whether it stood before, and in which record.
class DoubledTexts {
public:
    /// The record in which the text stood first, or nothing; an empty text is never doubled.
    std::optional<int> Sehen(const std::string& text, int record);

private:
    std::map<std::string, int> first_;
};

/// The text in quotes, UTF-8, control characters replaced.
std::string Zitat(std::string_view cp1252);

/// A serial of four parts.
struct SerialText {
    bool Blank = true;       ///< all four parts are empty
    bool Good = false;       ///< four parts of one or two hexadecimal digits
    std::string Text{};      ///< joined by points
    std::uint32_t Value = 0; ///< 0 unless Good
};
SerialText Seriennummer(const CheckStand& stand, const RecordLayout& layout, int record, const RecordField& sn1,
                        const RecordField& sn2, const RecordField& sn3, const RecordField& sn4);

/// Minutes since midnight of "hh:mm", two digits each, or nothing.
std::optional<int> Uhrzeit_Minuten(std::string_view text);
/// True when the text is empty or one of the given ones.
bool Leer_Oder(std::string_view text, std::initializer_list<std::string_view> allowed);
/// The number of a text of 1 to 9 decimal digits only.
std::optional<int> Dezimalzahl(std::string_view text);

void Dateien_Pruefen(CheckStand& stand);
void Benutzer_Pruefen(CheckStand& stand);
void Benutzer_Marken_Pruefen(CheckStand& stand);
void Benutzer_Credentials_Pruefen(CheckStand& stand);
void Vorlagen_Pruefen(CheckStand& stand);
void Kanaele_Pruefen(CheckStand& stand);
void Schloesser_Pruefen(CheckStand& stand);
void Schloss_Bindungen_Pruefen(CheckStand& stand);
void Schaltuhren_Pruefen(CheckStand& stand);
void Kalender_Pruefen(CheckStand& stand);
void Offsets_Pruefen(CheckStand& stand);
void Einheiten_Pruefen(CheckStand& stand);
void Adapter_Pruefen(CheckStand& stand);
void Konfiguration_Pruefen(CheckStand& stand);
void Gastkarten_Pruefen(CheckStand& stand);
/// Whatever refuses a run and has not been named by then. Call it last.
void Schaeden_Pruefen(CheckStand& stand);

} // namespace qvm
