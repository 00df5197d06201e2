#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

/// What is wrong with a text that is to be a table of separated fields.
enum class CsvFehler : std::uint8_t {
    None,
    TooLarge,     ///< more bytes than LargestCsv
    NoText,       ///< holds zero bytes, as programs, pictures and texts of two bytes a character do
    OpenQuote,    ///< a quote that nothing closes
    StrayQuote,   ///< a quote inside a field that does not begin with one, or text behind the closing one
    FieldTooLong, ///< more bytes than LongestCsvField
    TooMany,      ///< more lines than MostCsvRows, or more fields in a line than MostCsvFields
};

inline constexpr std::size_t LargestCsv = std::size_t{8} << 20U, LongestCsvField = 4096, MostCsvRows = 2000,
                             MostCsvFields = 400;

struct CsvZeile {
    int Line = 1;                    ///< of the text, in which the row begins; from 1
    std::vector<std::string> Fields; ///< at least one
};

struct CsvTabelle {
    CsvFehler Fault = CsvFehler::None;
    int Line = 0;               ///< where the fault begins; 0: it is none of a line
    std::vector<CsvZeile> Rows; ///< up to the fault; an empty line is a row of one empty field
};

/// Takes a table apart. Fields that begin with a quote end with one and may hold separators, line ends (as they stand)
/// and quotes, which stand twice; a quote elsewhere is a fault. Lines end in LF, CR LF or CR. The last line needs no
/// end.
/// @param separator one of the byte values below 0x80 but quote, CR and LF
/// @param most rows that are read, to look at a table's head; what stands behind them is not looked at
CsvTabelle Csv_Lesen(std::string_view text, char separator, std::size_t most = MostCsvRows + 1);

/// The text of a field without the apostrophe that Csv_Feld puts in front of what would be a formula.
std::string_view Csv_Inhalt(std::string_view field);
/// The same without blanks on both sides.
std::string Csv_Wert(std::string_view field);

} // namespace qvm
