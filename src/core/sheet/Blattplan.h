#pragma once

#include "Blatt.h"
#include "Words.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// What a sheet changes in a table, made and shown before anything is taken.
namespace qvm {

enum class Blattart : std::uint8_t {
    Added,   ///< a row of the table that was free; its cells follow as Changed
    Changed, ///< a cell
    Refused, ///< a cell, or a whole row of the sheet
};

struct Blattschritt {
    Blattart Kind = Blattart::Changed;
    int Line = 0;            ///< of the file
    int Row = 0;             ///< of the grid; 0: none was found
    int Column = 0;          ///< of the grid; 0: the row as a whole
    std::string Who;         ///< name of the row
    std::string Heading;     ///< as the sheet has it
    std::string Old, New;    ///< texts of the cell; New of a refusal is what the sheet holds
    std::optional<Word> Why; ///< of a refusal

    bool operator==(const Blattschritt&) const = default;
};

struct Blattplan {
    std::optional<Word> Fault; ///< of the sheet as a whole; nothing is taken then
    std::string FaultText;
    std::vector<Blattschritt> Steps;
    std::vector<std::string> Left;    ///< headings from whose columns nothing is taken
    std::vector<std::string> Missing; ///< names of rows of the table that the sheet lacks, and that stay

    std::size_t Count(Blattart kind) const;
    /// Rows of which a cell changes and that were there before.
    std::size_t ChangedRows() const;
    bool Changes() const { return Steps.size() > Count(Blattart::Refused); }
};

/// A fault of the sheet in words. `language`: as the configuration names it.
std::string Blattmangel_Text(const Blattplan& plan, std::string_view language);
/// A step as a line: line of the file, who, heading, what becomes of it.
std::string Blattschritt_Text(const Blattschritt& step, std::string_view language);
/// The whole plan, a line each: how much is added, changed, refused and not taken, then the refusals, then the others,
/// at most `most` of these two together; how many more there are is said.
std::vector<std::string> Blattplan_Texte(const Blattplan& plan, std::string_view language, std::size_t most);

/// Makes the steps of a plan from the rows of a sheet.
using Blattplaner = std::function<void(const Blatt& sheet, Blattplan& plan)>;

/// The plan of a sheet by the character set that changes nothing, where there is one, else by the first of
/// Zeichensaetze.
/// @param key columns of the grid of which at least one must be there
/// @param make is called for a sheet without a fault
Blattplan Blatt_Planen(std::string_view text, std::span<const Blattspalte> columns, std::span<const int> key,
                       const Blattplaner& make);

/// How a field compares to the text of a cell: the same when it holds what an export of the cell holds, or the text
/// itself; blanks at the end do not count.
bool Blattfeld_Gleich(std::string_view field, std::string_view cell);

} // namespace qvm
