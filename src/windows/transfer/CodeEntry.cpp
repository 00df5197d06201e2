#include "CodeEntry.h"

#include "Filter.h"
#include "SeriellesProtokoll.h"

#include <array>
#include <cstddef>
#include <string>

namespace qvm {

bool CodeEntry::Taste(int key) {
    const int digit = Code_Ziffer(key);
    if (key == Key::Backspace) {
        count_ -= count_ > 0 ? 1 : 0;
        digits_[static_cast<std::size_t>(count_)] = 0;
    } else if (digit < 0 || count_ >= Length) {
        return false;
    } else {
        digits_[static_cast<std::size_t>(count_++)] = static_cast<std::uint8_t>(digit);
    }
    box_.Text = std::string(static_cast<std::size_t>(count_), '*');
    box_.Caret = count_;
    return true;
}

void CodeEntry::Leeren() {
    digits_.Loeschen();
    count_ = 0;
    box_.Text = std::string();
    box_.Caret = 0;
}

AdminCodeBytes CodeEntry::Gepackt() const {
    std::array<std::uint8_t, Length> digits = digits_.Bytes();
    const AdminCodeBytes packed = AdminCode_Packen(digits);
    Ueberschreiben(digits);
    return packed;
}

} // namespace qvm
