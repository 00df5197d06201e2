#include "Satzluecken.h"

#include <algorithm>
#include <string>

namespace qvm {

void Satzluecken_Fuellen(RecordFile& file, int last, std::string_view unused) {
    const std::size_t length = file.Layout().Length;
    // Records before the last one that the file holds are whole.
    for (int n = std::max(file.Count(), 1); n <= last; ++n) {
        const std::size_t start = length * (static_cast<std::size_t>(n) - 1);
        const std::size_t size = file.Bytes().size();
        const std::size_t held = std::min(size - std::min(size, start), length);
        if (held < length) {
            file.SetRecord(n, file.Record(n).substr(0, held) + std::string(unused.substr(held)));
        }
    }
}

} // namespace qvm
