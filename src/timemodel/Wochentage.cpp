#include "Wochentage.h"

#include "Kern.h"

namespace qvm {

const std::string& Wochentag_Text(const Kern& kern, int index) {
    static const std::string None;
    return index >= 0 && index <= LetzterWochentag ? kern.Sprache.TagTexte[static_cast<std::size_t>(index)] : None;
}

int Wochentag_Index(const Kern& kern, std::string_view text) {
    for (int index = 0; index <= LetzterWochentag; ++index) {
        if (Wochentag_Text(kern, index) == text) {
            return index;
        }
    }
    return -1;
}

} // namespace qvm
