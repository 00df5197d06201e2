// Makes the language files QVM_<Sprache>.DAT from the catalogue.
//
// SprachdateienErzeugen CATALOGUE DIRECTORY
//
// The catalogue is UTF-8, one row a line, fields separated by tabs: number, key, uses, and the text in each language
// named in the heading. Row n becomes line n of the language files, in code page 1252, lines ending in CR LF; numbers
// without a row become empty lines. Every fault of the catalogue is reported with its line; with one, no file is
// written.

#include "Catalogue.h"
#include "Text.h"
#include "TextSlots.h"

#include <array>
#include <cstddef>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::size_t FirstText = 3; // fields before the texts: number, key and uses
constexpr std::size_t Languages = qvm::SprachNamen.size();

struct Katalog {
    std::array<std::array<std::string, qvm::Sprachkatalog::Zeilen>, Languages> Texts; // code page 1252
    int LastNumber = 0;
};

std::vector<std::string_view> Zerlegen(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos) {
            return parts;
        }
        text.remove_prefix(end + 1);
    }
}

/// What is wrong with a text, or nothing.
std::string_view Text_Fehler(std::string_view text) {
    if (text.empty()) {
        return "empty";
    }
    if (qvm::Trim(text) != text) {
        return "blanks at its begin or end";
    }
    if (!qvm::PasstInCp1252(text)) {
        return "not in code page 1252, or broken UTF-8";
    }
    for (const char character : text) {
        if (static_cast<unsigned char>(character) < 0x20 || character == 0x7F) {
            return "a control character";
        }
    }
    return {};
}

std::string Kopf_Fehler(const std::vector<std::string_view>& fields) {
    if (fields.size() != FirstText + Languages) {
        return "the heading must have " + std::to_string(FirstText + Languages) + " fields";
    }
    for (std::size_t n = 0; n < Languages; ++n) {
        if (fields[FirstText + n] != qvm::SprachNamen[n]) {
            return "the heading must name " + std::string(qvm::SprachNamen[n]) + " in field " +
                   std::to_string(FirstText + n + 1);
        }
    }
    return {};
}

std::string Zeile_Lesen(const std::vector<std::string_view>& fields, Katalog& katalog) {
    if (fields.size() != FirstText + Languages) {
        return std::to_string(fields.size()) + " fields instead of " + std::to_string(FirstText + Languages);
    }
    const int number = qvm::Zahlwert(fields[0]);
    if (qvm::Ziffern(number) != fields[0] || number < 1 || number >= qvm::Sprachkatalog::Zeilen) {
        return "the number must be 1 to " + std::to_string(qvm::Sprachkatalog::Zeilen - 1);
    }
    if (number <= katalog.LastNumber) {
        return "the numbers must rise";
    }
    katalog.LastNumber = number;
    for (std::size_t n = 0; n < Languages; ++n) {
        const std::string_view text = fields[FirstText + n];
        if (const std::string_view fault = Text_Fehler(text); !fault.empty()) {
            return std::string(qvm::SprachNamen[n]) + ": " + std::string(fault);
        }
        katalog.Texts[n][static_cast<std::size_t>(number)] = qvm::AusUtf8(text);
    }
    return {};
}

/// Fills the catalogue; gives the number of faults, each reported.
int Katalog_Lesen(std::string_view text, const std::string& name, Katalog& katalog) {
    if (text.ends_with('\n')) {
        text.remove_suffix(1);
    }
    int faults = 0;
    int line = 0;
    for (const std::string_view row : Zerlegen(text, '\n')) {
        ++line;
        const auto fields = Zerlegen(row, '\t');
        const std::string fault = line == 1 ? Kopf_Fehler(fields) : Zeile_Lesen(fields, katalog);
        if (!fault.empty()) {
            std::cerr << name << ':' << line << ": " << fault << '\n';
            ++faults;
        }
    }
    if (katalog.LastNumber == 0) {
        std::cerr << name << ": no row\n";
        ++faults;
    }
    return faults;
}

bool Sprachdatei_Schreiben(const Katalog& katalog, std::size_t language, const std::string& directory) {
    const std::string path = directory + "/QVM_" + std::string(qvm::SprachNamen[language]) + ".DAT";
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    for (int number = 1; number <= katalog.LastNumber; ++number) {
        file << katalog.Texts[language][static_cast<std::size_t>(number)] << "\r\n";
    }
    file.flush();
    if (!file) {
        std::cerr << path << ": cannot be written\n";
    }
    return static_cast<bool>(file);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "SprachdateienErzeugen CATALOGUE DIRECTORY\n";
        return 1;
    }
    const std::string name = argv[1];
    std::ifstream file(name, std::ios::binary);
    if (!file) {
        std::cerr << name << ": cannot be read\n";
        return 1;
    }
    const std::string text{std::istreambuf_iterator<char>(file), {}};

    Katalog katalog;
    if (Katalog_Lesen(text, name, katalog) != 0) {
        return 1;
    }
    for (std::size_t language = 0; language < Languages; ++language) {
        if (!Sprachdatei_Schreiben(katalog, language, argv[2])) {
            return 1;
        }
    }
    return 0;
}
