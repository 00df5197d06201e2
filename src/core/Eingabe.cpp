#include "Eingabe.h"

#include "Controls.h"

#include <algorithm>
#include <cstddef>

namespace qvm {

bool Ist_Zeichen(int key) {
    return key >= ' ' && key <= 0xFF && key != Key::Delete;
}

int Jedes_Zeichen(int key) {
    return key;
}

std::string Gefiltert(std::string_view text, int (*filter)(int key)) {
    std::string kept;
    for (const char character : text) {
        const int key = filter(static_cast<unsigned char>(character));
        if (Ist_Zeichen(key)) {
            kept += static_cast<char>(static_cast<unsigned char>(key));
        }
    }
    return kept;
}

int Einfuegestelle(std::string_view before, std::string_view text, std::string_view kept) {
    const auto same = std::mismatch(before.begin(), before.end(), text.begin(), text.end()).first - before.begin();
    before.remove_prefix(static_cast<std::size_t>(same));
    text.remove_prefix(static_cast<std::size_t>(same));
    const auto differ = std::mismatch(before.rbegin(), before.rend(), text.rbegin(), text.rend());
    std::string_view behind(differ.first.base(), before.end());
    while (!kept.ends_with(behind)) {
        behind.remove_suffix(1); // the end of it did not fit any more
    }
    return static_cast<int>(kept.size() - behind.size());
}

} // namespace qvm
