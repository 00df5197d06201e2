// Makes the sources of the program's own words from their table, or those of the catalogue's names for its lines.
//
// WoerterErzeugen TABLE DIRECTORY
//
// A table is UTF-8, one row a line, fields separated by tabs; its heading tells which it is. The words: key, use, and
// the text in German, English, French and Dutch. WordList.h gets the keys as an enumeration, WordTable.h the texts; the
// compiler converts them to code page 1252 and refuses a character that it lacks. The catalogue: number, key and uses
// begin a row, the rest is not read here. Lines.h gets a constant for each number. Every fault of a table is reported
// with its line; with one, no file is written. Stands alone, as the lowest layer is compiled from what it makes.

#include <algorithm>
#include <array>
#include <cstddef>
#include <fstream>
#include <iostream>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::size_t FirstText = 2; // fields before the texts: key and use
constexpr std::array<std::string_view, 6> Heading{"key", "use", "Deutsch", "English", "Francais", "Nederlands"};
constexpr std::array<std::string_view, 3> KatalogHeading{"line", "key", "uses"};

using Row = std::vector<std::string>;

Row Zerlegen(const std::string& line) {
    Row fields(1);
    for (const char character : line) {
        if (character == '\t') {
            fields.emplace_back();
        } else {
            fields.back() += character;
        }
    }
    return fields;
}

bool Buchstabe(char character) {
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
}

bool Schluessel_Gut(const std::string& key) {
    bool good = !key.empty() && key.front() >= 'A' && key.front() <= 'Z';
    for (const char character : key) {
        good = good && (Buchstabe(character) || (character >= '0' && character <= '9'));
    }
    return good;
}

/// The places "%1" to "%9" of a text, each once.
std::set<char> Plaetze(const std::string& text) {
    std::set<char> places;
    for (std::size_t n = 0; n + 1 < text.size(); ++n) {
        if (text[n] == '%' && text[n + 1] >= '1' && text[n + 1] <= '9') {
            places.insert(text[n + 1]);
        }
    }
    return places;
}

/// What is wrong with a text, or nothing.
std::string_view Text_Fehler(const std::string& text) {
    if (text.empty()) {
        return "empty";
    }
    if (text.front() == ' ' || text.back() == ' ') {
        return "blanks at its begin or end";
    }
    for (const char character : text) {
        if (static_cast<unsigned char>(character) < 0x20 || character == 0x7F) {
            return "a control character";
        }
    }
    return {};
}

std::string Schluessel_Fehler(const std::string& key, std::set<std::string>& keys) {
    if (!Schluessel_Gut(key)) {
        return "the key must be letters and digits and begin with a capital";
    }
    return keys.insert(key).second ? "" : "the key stands twice";
}

bool Kopf_Gut(const Row& fields, const std::vector<std::string_view>& heading) {
    return fields.size() >= heading.size() && std::equal(heading.begin(), heading.end(), fields.begin());
}

std::string Zeile_Fehler(const Row& fields, std::set<std::string>& keys) {
    if (fields.size() != Heading.size()) {
        return std::to_string(fields.size()) + " fields instead of " + std::to_string(Heading.size());
    }
    if (std::string fault = Schluessel_Fehler(fields[0], keys); !fault.empty()) {
        return fault;
    }
    for (std::size_t n = 1; n < Heading.size(); ++n) {
        if (const std::string_view fault = Text_Fehler(fields[n]); !fault.empty()) {
            return std::string(Heading[n]) + ": " + std::string(fault);
        }
        if (n > FirstText && Plaetze(fields[n]) != Plaetze(fields[FirstText])) {
            return std::string(Heading[n]) + ": other places than in " + std::string(Heading[FirstText]);
        }
    }
    return {};
}

std::string Katalogzeile_Fehler(const Row& fields, std::set<std::string>& keys) {
    if (fields.size() < KatalogHeading.size()) {
        return "number, key and uses must begin the row";
    }
    if (fields[0].empty() || fields[0].find_first_not_of("0123456789") != std::string::npos) {
        return "the number must be digits";
    }
    return Schluessel_Fehler(fields[1], keys);
}

/// What differs from table to table.
struct Form {
    std::vector<std::string_view> Heading; ///< the fields that the heading begins with
    std::string (*Fehler)(const Row& fields, std::set<std::string>& keys);
};

/// The form of the table with this heading; that of the words when it is neither's.
Form Form_Finden(const Row& heading) {
    const Form words{{Heading.begin(), Heading.end()}, Zeile_Fehler};
    const Form catalogue{{KatalogHeading.begin(), KatalogHeading.end()}, Katalogzeile_Fehler};
    return Kopf_Gut(heading, catalogue.Heading) ? catalogue : words;
}

/// Gives the number of faults, each reported.
int Tabelle_Lesen(std::istream& file, const std::string& name, Form& form, std::vector<Row>& rows) {
    int faults = 0;
    int number = 0;
    std::set<std::string> keys;
    for (std::string line; std::getline(file, line);) {
        ++number;
        Row fields = Zerlegen(line);
        std::string fault;
        if (number == 1) {
            form = Form_Finden(fields);
            fault = Kopf_Gut(fields, form.Heading) ? "" : "the heading must name key, use and languages";
        } else if (fault = form.Fehler(fields, keys); fault.empty()) {
            rows.push_back(std::move(fields));
        }
        if (!fault.empty()) {
            std::cerr << name << ':' << number << ": " << fault << '\n';
            ++faults;
        }
    }
    if (rows.empty()) {
        std::cerr << name << ": no row\n";
        ++faults;
    }
    return faults;
}

std::string Literal(const std::string& text) {
    std::string out = "u8\"";
    for (const char character : text) {
        if (character == '"' || character == '\\') {
            out += '\\';
        }
        out += character;
    }
    return out + "\"_w";
}

bool Schreiben(const std::string& path, const std::string& text) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << text << std::flush;
    if (!file) {
        std::cerr << path << ": cannot be written\n";
    }
    return static_cast<bool>(file);
}

std::string Liste(const std::vector<Row>& rows) {
    std::string text = "#pragma once\n\n#include <cstdint>\n\nnamespace qvm {\n\nenum class Word : std::uint16_t {\n";
    for (const Row& row : rows) {
        text += "    " + row[0] + ", ///< " + row[1] + "\n";
    }
    return text + "};\n\n} // namespace qvm\n";
}

std::string Tafel(const std::vector<Row>& rows) {
    std::string text =
        "#pragma once\n\n#include \"Text.h\"\n\n#include <array>\n#include <string_view>\n\nnamespace qvm {\n\n"
        "inline constexpr std::array<std::array<std::string_view, 4>, " +
        std::to_string(rows.size()) + "> WordTable{{\n";
    for (const Row& row : rows) {
        text += "    {";
        for (std::size_t n = FirstText; n < Heading.size(); ++n) {
            text += (n > FirstText ? ", " : "") + Literal(row[n]);
        }
        text += "},\n";
    }
    return text + "}};\n\n} // namespace qvm\n";
}

std::string Zeilennamen(const std::vector<Row>& rows) {
    std::string text = "#pragma once\n\n/// The lines of the language catalogue by name: what `Kern::Zeile` takes.\n"
                       "namespace qvm::Line {\n\n";
    for (const Row& row : rows) {
        text += "inline constexpr int " + row[1] + " = " + row[0] + "; ///< " + row[2] + "\n";
    }
    return text + "\n} // namespace qvm::Line\n";
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "WoerterErzeugen TABLE DIRECTORY\n";
        return 1;
    }
    const std::string name = argv[1], directory = argv[2];
    std::ifstream file(name, std::ios::binary);
    if (!file) {
        std::cerr << name << ": cannot be read\n";
        return 1;
    }
    Form form = Form_Finden({});
    std::vector<Row> rows;
    if (Tabelle_Lesen(file, name, form, rows) != 0) {
        return 1;
    }
    const bool written = form.Fehler == Katalogzeile_Fehler ? Schreiben(directory + "/Lines.h", Zeilennamen(rows))
                                                            : Schreiben(directory + "/WordList.h", Liste(rows)) &&
                                                                  Schreiben(directory + "/WordTable.h", Tafel(rows));
    return written ? 0 : 1;
}
