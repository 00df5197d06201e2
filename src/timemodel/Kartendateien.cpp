#include "Kartendateien.h"

#include "Kern.h"
#include "Text.h"
#include "Zeilen.h"
#include "Zeit.h"

#include <string_view>
#include <vector>

namespace qvm {
namespace {

constexpr std::string_view PermFile = "PERMSELECT.RFS", GroupFile = "ObJNR09DAT.OBN", TimesFile = "OFSTSETUPDT.FST";
constexpr std::string_view LastLine = "ENDE";
constexpr int HighestGroup = 254;

ReadStatus Kartenzeilen_Laden(const Kern& kern, std::string_view file, std::vector<std::string>& lines) {
    std::string bytes;
    const ReadStatus status = kern.Welt.Files.ReadAll(kern.DatPfad() + std::string(file), bytes);
    lines = Zeilen_Lesen(bytes);
    return status;
}

bool Kartenzeilen_Speichern(const Kern& kern, std::string_view file, const std::vector<std::string>& lines) {
    std::string bytes = Datum_Text(Heute(kern.Welt.Now())) + "\r\n";
    for (const std::string& line : lines) {
        bytes += line + "\r\n";
    }
    return kern.Welt.Files.Replace(kern.DatPfad() + std::string(file), bytes);
}

/// A number of digits only; -1 for any other text.
int Gruppenzahl(const std::vector<std::string>& lines, std::size_t index) {
    const std::string_view text = index < lines.size() ? Trim(lines[index]) : std::string_view();
    const bool digits = !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
    const auto value = Zahlwert(text);
    return digits && value <= HighestGroup + 1 ? value : -1;
}

} // namespace

ReadStatus PermSelect_Laden(const Kern& kern, std::set<std::string>& serials) {
    serials.clear();
    std::vector<std::string> lines;
    const ReadStatus status = Kartenzeilen_Laden(kern, PermFile, lines);
    for (std::size_t n = 1; n < lines.size() && Trim(lines[n]) != LastLine; ++n) {
        if (const std::string_view serial = Trim(lines[n]); !serial.empty()) {
            serials.emplace(serial);
        }
    }
    return status;
}

bool PermSelect_Speichern(const Kern& kern, const std::vector<std::string>& serials) {
    std::vector<std::string> lines = serials;
    lines.emplace_back(LastLine);
    return Kartenzeilen_Speichern(kern, PermFile, lines);
}

ReadStatus GruppenNr_Laden(const Kern& kern, int& number) {
    std::vector<std::string> lines;
    const ReadStatus status = Kartenzeilen_Laden(kern, GroupFile, lines);
    const int stored = Gruppenzahl(lines, 1);
    const bool good = stored >= 0 && stored <= HighestGroup && Gruppenzahl(lines, 2) == stored + 1;
    number = status == ReadStatus::Missing ? 0 : good ? stored : 1;
    return status;
}

bool GruppenNr_Speichern(const Kern& kern, int number) {
    return Kartenzeilen_Speichern(kern, GroupFile, {Ziffern(number), Ziffern(number + 1)});
}

ReadStatus Kartenzeiten_Laden(const Kern& kern, std::array<std::string, 2>& times) {
    std::vector<std::string> lines;
    const ReadStatus status = Kartenzeilen_Laden(kern, TimesFile, lines);
    for (std::size_t n = 0; n < times.size(); ++n) {
        times[n] = n + 1 < lines.size() ? lines[n + 1] : std::string();
    }
    return status;
}

} // namespace qvm
