#include "CsvLesen.h"

#include "Text.h"

#include <utility>

namespace qvm {
namespace {

/// The place in a text that is read, with the number of its line.
class Leser {
public:
    Leser(std::string_view text, char separator) : text_(text), separator_(separator) {}

    bool AmEnde() const { return at_ >= text_.size(); }
    int Line() const { return line_; }

    /// One row with its line end.
    CsvFehler Zeile(CsvZeile& row) {
        row.Line = line_;
        for (;;) {
            std::string field;
            const CsvFehler fault = Am('"') ? Zitat(field) : Einfach(field);
            if (fault != CsvFehler::None) {
                return fault;
            }
            row.Fields.push_back(std::move(field));
            if (row.Fields.size() > MostCsvFields) {
                return CsvFehler::TooMany;
            }
            if (!Am(separator_)) {
                Zeilenende();
                return CsvFehler::None;
            }
            ++at_;
        }
    }

private:
    bool Am(char wanted) const { return !AmEnde() && text_[at_] == wanted; }
    bool Am_Zeilenende() const { return Am('\r') || Am('\n'); }

    void Zeilenende() {
        if (Am('\r')) {
            ++at_;
            at_ += Am('\n') ? 1 : 0;
            ++line_;
        } else if (Am('\n')) {
            ++at_;
            ++line_;
        }
    }

    CsvFehler Einfach(std::string& field) {
        const std::size_t begin = at_;
        while (!AmEnde() && !Am(separator_) && !Am_Zeilenende()) {
            if (Am('"')) {
                return CsvFehler::StrayQuote;
            }
            ++at_;
        }
        if (at_ - begin > LongestCsvField) {
            return CsvFehler::FieldTooLong;
        }
        field = text_.substr(begin, at_ - begin);
        return CsvFehler::None;
    }

    CsvFehler Zitat(std::string& field) {
        const int begin = line_;
        ++at_;
        for (;;) {
            if (AmEnde()) {
                line_ = begin; // it is the quote that is to be looked for
                return CsvFehler::OpenQuote;
            }
            if (Am('"')) {
                ++at_;
                if (!Am('"')) {
                    return AmEnde() || Am(separator_) || Am_Zeilenende() ? CsvFehler::None : CsvFehler::StrayQuote;
                }
            } else if (Am('\n') || (Am('\r') && text_.substr(at_, 2) != "\r\n")) {
                ++line_;
            }
            if (field.size() == LongestCsvField) {
                return CsvFehler::FieldTooLong;
            }
            field += text_[at_++];
        }
    }

    std::string_view text_;
    char separator_;
    std::size_t at_ = 0;
    int line_ = 1;
};

} // namespace

CsvTabelle Csv_Lesen(std::string_view text, char separator, std::size_t most) {
    CsvTabelle table;
    if (text.size() > LargestCsv) {
        table.Fault = CsvFehler::TooLarge;
        return table;
    }
    if (text.find('\0') != std::string_view::npos) {
        table.Fault = CsvFehler::NoText;
        return table;
    }
    Leser reader(text, separator);
    while (!reader.AmEnde() && table.Rows.size() < most) {
        CsvZeile row;
        const int line = reader.Line();
        table.Fault = table.Rows.size() == MostCsvRows ? CsvFehler::TooMany : reader.Zeile(row);
        if (table.Fault != CsvFehler::None) {
            table.Line = table.Fault == CsvFehler::TooMany ? line : reader.Line();
            return table;
        }
        table.Rows.push_back(std::move(row));
    }
    return table;
}

std::string_view Csv_Inhalt(std::string_view field) {
    const bool guarded =
        field.size() > 1 && field[0] == '\'' && std::string_view("=+-@\t\r").find(field[1]) != std::string_view::npos;
    return guarded ? field.substr(1) : field;
}

std::string Csv_Wert(std::string_view field) {
    return std::string(Trim(Csv_Inhalt(field)));
}

} // namespace qvm
