#include "Schlossregeln.h"

#include "Kern.h"
#include "LockTable.h"
#include "Modelle.h"
#include "Schlossserie.h"
#include "Text.h"

namespace qvm {

namespace {

constexpr std::string_view Modes[] = {"AA", "BB"};
constexpr std::uint8_t MiddlePriority = 2;

constexpr int Zeilennummer(std::string_view mode) {
    return mode == Modes[0] ? 218 : 219;
}

} // namespace

bool Schlossname_Frei(const Grid& locks, int row, std::string_view name) {
    for (int other = LockGrid::FirstRow; other <= LockGrid::LastRow; ++other) {
        if (!Trim(name).empty() && other != row && RTrim(locks.Text(other, LockColumn::Name)) == RTrim(name)) {
            return false;
        }
    }
    return true;
}

int Emi_Bild(std::string_view serial) {
    if (Trim(serial).empty()) {
        return LockPicture::NotApplicable;
    }
    const std::int64_t value = Serie_Wert(serial);
    return Ohne_Emi(value) ? LockPicture::NotApplicable : LockPicture::Off;
}

void Schalter_Geben(Grid& locks, int row) {
    for (int column = LockColumn::FirstSwitch; column <= LockColumn::LastSwitch; ++column) {
        if (locks.At(row, column).Picture == LockPicture::None) {
            locks.SetPicture(row, column, LockPicture::On);
        }
    }
}

std::uint8_t Prioritaet_Code(std::string_view text) {
    const std::string_view digit = Trim(text);
    return digit.size() == 1 && digit[0] >= '1' && digit[0] <= '5' ? static_cast<std::uint8_t>(digit[0] - '1')
                                                                   : MiddlePriority;
}

std::string Tuermodus_Text(const Kern& kern, std::string_view mode) {
    for (const std::string_view known : Modes) {
        if (mode == known) {
            const std::string& line = kern.Zeile(Zeilennummer(known));
            return line.empty() ? std::string(known) : line;
        }
    }
    return {};
}

std::string Tuermodus_Kennung(const Kern& kern, std::string_view text) {
    for (const std::string_view known : Modes) {
        if (text == Tuermodus_Text(kern, known)) {
            return std::string(known);
        }
    }
    return {};
}

} // namespace qvm
