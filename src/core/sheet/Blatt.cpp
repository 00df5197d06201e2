#include "Blatt.h"

#include "CsvLesen.h"
#include "Kern.h"
#include "Text.h"
#include "TextSlots.h"

#include <algorithm>
#include <array>
#include <utility>

namespace qvm {
namespace {

constexpr std::string_view Mark = "\xEF\xBB\xBF";
constexpr std::size_t HeadRows = 10; ///< in which the headings are looked for
constexpr std::array Separators{';', ',', '\t'};

std::string_view Ohne_Marke(std::string_view text) {
    return text.starts_with(Mark) ? text.substr(Mark.size()) : text;
}

bool Ist_Ascii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::string In_1252(const std::string& field, Zeichensatz set) {
    return set == Zeichensatz::Utf8 ? AusUtf8(field) : field;
}

const Blattspalte* Spalte_Finden(std::span<const Blattspalte> columns, const std::string& heading) {
    const std::string wanted = GrossText(Trim(heading));
    const auto found = std::find_if(columns.begin(), columns.end(),
                                    [&](const Blattspalte& column) { return GrossText(column.Heading) == wanted; });
    return wanted.empty() || found == columns.end() ? nullptr : &*found;
}

int Bekannte(const CsvZeile& row, Zeichensatz set, std::span<const Blattspalte> columns) {
    return static_cast<int>(std::count_if(row.Fields.begin(), row.Fields.end(), [&](const std::string& field) {
        return Spalte_Finden(columns, In_1252(field, set)) != nullptr;
    }));
}

/// Where the head of a sheet was found.
struct Kopf {
    char Separator = ';';
    std::size_t Row = 0;
    int Known = 0;
};

Kopf Kopf_Suchen(std::string_view text, Zeichensatz set, std::span<const Blattspalte> columns) {
    Kopf best;
    for (const char separator : Separators) {
        const CsvTabelle head = Csv_Lesen(text, separator, HeadRows);
        for (std::size_t row = 0; row < head.Rows.size(); ++row) {
            const int known = Bekannte(head.Rows[row], set, columns);
            if (known > best.Known) {
                best = {separator, row, known};
            }
        }
    }
    return best;
}

Word Wort_Fuer(CsvFehler fault) {
    switch (fault) {
    case CsvFehler::TooLarge:
        return Word::SheetTooLarge;
    case CsvFehler::OpenQuote:
        return Word::SheetOpenQuote;
    case CsvFehler::StrayQuote:
        return Word::SheetStrayQuote;
    case CsvFehler::FieldTooLong:
        return Word::SheetFieldTooLong;
    case CsvFehler::TooMany:
        return Word::SheetTooMany;
    default:
        return Word::SheetNoText;
    }
}

Blatt Mangel(Word fault, std::string text = {}) {
    Blatt sheet;
    sheet.Fault = fault;
    sheet.FaultText = std::move(text);
    return sheet;
}

/// A row that says whose rows are below it.
bool Hat_Schluessel(const CsvZeile& head, Zeichensatz set, std::span<const Blattspalte> columns,
                    std::span<const int> key) {
    return std::any_of(head.Fields.begin(), head.Fields.end(), [&](const std::string& field) {
        const Blattspalte* column = Spalte_Finden(columns, In_1252(field, set));
        return column != nullptr && std::find(key.begin(), key.end(), column->Column) != key.end();
    });
}

/// Of each field of the head: the column of the grid that it names; nullptr: none.
struct Zuordnung {
    std::vector<const Blattspalte*> Columns;
    std::optional<Word> Fault;
    std::string FaultText;
};

Zuordnung Zuordnen(const CsvZeile& head, Zeichensatz set, std::span<const Blattspalte> columns) {
    Zuordnung found;
    std::set<int> seen;
    for (const std::string& field : head.Fields) {
        const std::string heading = In_1252(field, set);
        const Blattspalte* column = Spalte_Finden(columns, heading);
        found.Columns.push_back(column);
        if (column == nullptr && !Trim(heading).empty()) {
            found.Fault = Word::SheetUnknownHeading;
            found.FaultText = Trim(heading);
            return found;
        }
        if (column != nullptr && !column->Repeated && !seen.insert(column->Column).second) {
            found.Fault = Word::SheetHeadingTwice;
            found.FaultText = Trim(heading);
            return found;
        }
    }
    return found;
}

Blattzeile Zeile_Umsetzen(const CsvZeile& row, Zeichensatz set, const Zuordnung& found) {
    Blattzeile line;
    line.Line = row.Line;
    for (std::size_t n = 0; n < row.Fields.size() && n < found.Columns.size(); ++n) {
        const Blattspalte* column = found.Columns[n];
        if (column == nullptr || !column->Taken) {
            continue;
        }
        line.Fields[column->Column] = In_1252(row.Fields[n], set);
        if (set == Zeichensatz::Utf8 && !PasstInCp1252(row.Fields[n])) {
            line.Unfit.insert(column->Column);
        }
    }
    return line;
}

bool Leere_Zeile(const CsvZeile& row) {
    return std::all_of(row.Fields.begin(), row.Fields.end(),
                       [](const std::string& field) { return Trim(field).empty(); });
}

/// A text where the head has no heading: it is not known what it is.
bool Ohne_Ueberschrift(const CsvZeile& row, const Zuordnung& found) {
    for (std::size_t n = 0; n < row.Fields.size(); ++n) {
        const bool heading = n < found.Columns.size() && found.Columns[n] != nullptr;
        if (!heading && !Trim(row.Fields[n]).empty()) {
            return true;
        }
    }
    return false;
}

Blatt Blatt_Fuellen(const CsvTabelle& table, const Kopf& head, const Zuordnung& found, Zeichensatz set) {
    Blatt sheet;
    const CsvZeile& heading = table.Rows[head.Row];
    for (std::size_t n = 0; n < found.Columns.size(); ++n) {
        if (const Blattspalte* column = found.Columns[n]; column != nullptr) {
            const std::string text(Trim(In_1252(heading.Fields[n], set)));
            column->Taken ? void(sheet.Headings[column->Column] = text) : sheet.Left.push_back(text);
        }
    }
    if (head.Row > 0) {
        sheet.Above = Zeile_Umsetzen(table.Rows[head.Row - 1], set, found);
    }
    for (std::size_t n = head.Row + 1; n < table.Rows.size(); ++n) {
        const CsvZeile& row = table.Rows[n];
        if (row.Fields == heading.Fields) {
            return Mangel(Word::SheetTwoTables, Ziffern(row.Line));
        }
        if (Leere_Zeile(row)) {
            continue;
        }
        if (Ohne_Ueberschrift(row, found)) {
            return Mangel(Word::SheetNoHeadingFor, Ziffern(row.Line));
        }
        sheet.Rows.push_back(Zeile_Umsetzen(row, set, found));
    }
    return sheet;
}

} // namespace

std::vector<std::string> Blattueberschriften(const Kern& kern, int line) {
    std::vector<std::string> headings{kern.Zeile(line)};
    for (const std::string_view language : SprachNamen) {
        const auto lines = Sprachdatei_Lesen(kern, language);
        const auto n = static_cast<std::size_t>(line - 1);
        if (lines && n < lines->size()) {
            headings.push_back((*lines)[n]);
        }
    }
    return headings;
}

std::vector<Zeichensatz> Zeichensaetze(std::string_view text) {
    if (text.starts_with(Mark)) {
        return {Zeichensatz::Utf8};
    }
    if (Ist_Ascii(text) || !Ist_Utf8(text)) {
        return {Zeichensatz::Cp1252};
    }
    return {Zeichensatz::Utf8, Zeichensatz::Cp1252};
}

Blatt Blatt_Lesen(std::string_view text, Zeichensatz set, std::span<const Blattspalte> columns,
                  std::span<const int> key) {
    const std::string_view bytes = Ohne_Marke(text);
    const Kopf head = Kopf_Suchen(bytes, set, columns);
    const CsvTabelle table = Csv_Lesen(bytes, head.Separator);
    // What is no table of texts is said first: there is no heading in it either.
    if (table.Fault == CsvFehler::TooLarge || table.Fault == CsvFehler::NoText) {
        return Mangel(Wort_Fuer(table.Fault));
    }
    if (head.Known == 0) {
        return Mangel(Word::SheetNoHeading);
    }
    if (table.Fault != CsvFehler::None) {
        return Mangel(Wort_Fuer(table.Fault), Ziffern(table.Line));
    }
    if (!Hat_Schluessel(table.Rows[head.Row], set, columns, key)) {
        return Mangel(Word::SheetNoHeading);
    }
    const Zuordnung found = Zuordnen(table.Rows[head.Row], set, columns);
    return found.Fault ? Mangel(*found.Fault, found.FaultText) : Blatt_Fuellen(table, head, found, set);
}

int Blatt_Treffer(std::string_view text, std::span<const Blattspalte> columns) {
    int most = 0;
    for (const Zeichensatz set : Zeichensaetze(text)) {
        most = std::max(most, Kopf_Suchen(Ohne_Marke(text), set, columns).Known);
    }
    return most;
}

const std::string* Blattzeile::Feld(int column) const {
    const auto found = Fields.find(column);
    return found == Fields.end() ? nullptr : &found->second;
}

std::string Blattzeile::Feldtext(int column) const {
    const std::string* field = Feld(column);
    return field == nullptr ? std::string() : *field;
}

} // namespace qvm
