#pragma once

#include "Words.h"

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// A spreadsheet that is to be taken into a grid: which column of it is which of the grid's, and what stands in it.
namespace qvm {

/// A column of a grid as a sheet may bring it.
struct Blattspalte {
    int Column = 0;        ///< of the grid; several headings may name one
    std::string Heading;   ///< in code page 1252
    bool Taken = true;     ///< false: it may stand there, but nothing is taken from it
    bool Repeated = false; ///< may stand there more than once, as nothing is taken from it
};

/// The headings of a catalogue line in every language that has a language file beside the program, and in the one that
/// is loaded.
std::vector<std::string> Blattueberschriften(const Kern& kern, int line);

struct Blattzeile {
    int Line = 0;                      ///< of the file, from 1
    std::map<int, std::string> Fields; ///< by column of the grid, those that are taken; code page 1252
    std::set<int> Unfit;               ///< columns whose field has a character that code page 1252 lacks

    /// The field of a column, nullptr when the sheet has none for it.
    const std::string* Feld(int column) const;
    /// The same as a text, empty for none.
    std::string Feldtext(int column) const;
};

struct Blatt {
    std::optional<Word> Fault;           ///< what is wrong with the sheet; the rest is empty then
    std::string FaultText;               ///< the place %1 of it: a line or a heading
    std::map<int, std::string> Headings; ///< by column of the grid, those that are taken, as the sheet has them
    std::vector<std::string> Left;       ///< headings of the columns from which nothing is taken
    Blattzeile Above;                    ///< the row right above the headings; line 0: there is none
    std::vector<Blattzeile> Rows;
};

enum class Zeichensatz : std::uint8_t { Utf8, Cp1252 };

/// As what a text may be read: one that begins with a mark is UTF-8, one of ASCII or no UTF-8 is code page 1252, any
/// other both, UTF-8 first.
std::vector<Zeichensatz> Zeichensaetze(std::string_view text);

/// Reads a sheet. Semicolon, comma or tab: the one by which the head has most of the known headings. The head is the
/// first row that has most of them, among the first ten. A heading that is not known, and one that stands twice, are
/// faults; so is a second head further down. A column without a heading must be empty. Rows without any text are left
/// out.
/// @param key columns of the grid of which at least one must be there
Blatt Blatt_Lesen(std::string_view text, Zeichensatz set, std::span<const Blattspalte> columns,
                  std::span<const int> key);

/// How many headings the head of a sheet has of these; 0: it is none with them.
int Blatt_Treffer(std::string_view text, std::span<const Blattspalte> columns);

} // namespace qvm
