#include "UnitScan.h"

#include "Catalogue.h"

#include <algorithm>

namespace qvm {

namespace {

constexpr bool Zwischen(int value, int first, int last) {
    return value >= first && value <= last;
}

/// A band of the bar: its colour up to, and without, this cell.
struct Band {
    int End;
    Colour Farbe;
};
constexpr std::array Bands{Band{6, 0x0000C0}, Band{12, 0x0000FF}, Band{18, 0x0080FF}, Band{24, 0x80FFFF},
                           Band{BarCells, 0x80FF80}};

} // namespace

int Signalwert(std::uint8_t raw) {
    constexpr int half = 128;
    return raw < half ? raw : half - (raw - half);
}

int Unit_Textzeile(std::uint8_t type) {
    constexpr int other = 51;
    if (Zwischen(type, 6, 10)) {
        return Line::UnitTA;
    }
    if (Unit_Mit_Lauschzeit(type)) {
        return Line::UnitSTE;
    }
    return type == other ? Line::UnitAEOther : Line::UnitAE;
}

bool Unit_Mit_Lauschzeit(std::uint8_t type) {
    return Zwischen(type, 41, 45);
}

std::string_view Unit_Typmarke(std::string_view shortLabel) {
    return shortLabel == "STE" ? "3" : shortLabel == "TA " ? "1" : "2";
}

int Balken_Laenge(int signal) {
    constexpr int step = 4;
    return std::clamp(signal / step, 0, BarCells);
}

Colour Balken_Farbe(int cell) {
    const auto* band = std::find_if(Bands.begin(), Bands.end() - 1, [&](const Band& b) { return cell < b.End; });
    return band->Farbe;
}

int Bester_Kanal(const UnitScan& scan) {
    int best = 0;
    int strongest = 0;
    for (int channel = 1; channel <= UnitScan::Channels; ++channel) {
        const ScanEntry& entry = scan.Entries[static_cast<std::size_t>(channel)];
        const int signal = Signalwert(entry.Signal);
        if (entry.Status == ScanEntry::Well && signal > strongest) {
            best = channel;
            strongest = signal;
        }
    }
    return best;
}

} // namespace qvm
