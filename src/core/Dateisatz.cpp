#include "Dateisatz.h"

#include <cstddef>
#include <vector>

namespace qvm {
namespace {

struct Stand {
    ReadStatus Status;
    std::string Bytes;
};

void Zuruecknehmen(const FileStore& store, const NeueDatei& file, const Stand& before) {
    if (before.Status == ReadStatus::Missing) {
        store.Remove(file.Path);
    } else {
        store.Replace(file.Path, before.Bytes);
    }
}

} // namespace

bool Dateien_Ersetzen(const FileStore& store, std::span<const NeueDatei> files) {
    std::vector<Stand> before;
    for (const NeueDatei& file : files) {
        Stand& stand = before.emplace_back();
        stand.Status = store.ReadAll(file.Path, stand.Bytes);
        if (stand.Status == ReadStatus::Error) {
            return false;
        }
    }
    for (std::size_t n = 0; n < files.size(); ++n) {
        if (store.Replace(files[n].Path, files[n].Bytes)) {
            continue;
        }
        while (n > 0) {
            --n;
            Zuruecknehmen(store, files[n], before[n]);
        }
        return false;
    }
    return true;
}

} // namespace qvm
