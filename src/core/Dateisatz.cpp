#include "Dateisatz.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace qvm {

Dateistand Datei_Merken(const FileStore& store, std::string path) {
    Dateistand stand{.Path = std::move(path), .Bytes = {}};
    stand.Status = store.ReadAll(stand.Path, stand.Bytes);
    return stand;
}

bool Datei_Zuruecknehmen(const FileStore& store, const Dateistand& before) {
    return before.Status == ReadStatus::Missing
               ? store.Remove(before.Path)
               : before.Status == ReadStatus::Ok && store.Replace(before.Path, before.Bytes);
}

bool Dateien_Ersetzen(const FileStore& store, std::span<const NeueDatei> files) {
    std::vector<Dateistand> before;
    before.reserve(files.size());
    for (const NeueDatei& file : files) {
        before.push_back(Datei_Merken(store, file.Path));
        if (before.back().Status == ReadStatus::Error) {
            return false;
        }
    }
    for (std::size_t n = 0; n < files.size(); ++n) {
        if (store.Replace(files[n].Path, files[n].Bytes)) {
            continue;
        }
        while (n > 0) {
            Datei_Zuruecknehmen(store, before[--n]);
        }
        return false;
    }
    return true;
}

} // namespace qvm
