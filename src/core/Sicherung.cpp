#include "Sicherung.h"

#include "Text.h"

namespace qvm {

namespace {

constexpr int MostCopies = 100; // of one second

} // namespace

bool Beiseite_Legen(const FileStore& files, const std::string& path, const DateTime& now) {
    std::string bytes;
    if (files.ReadAll(path, bytes) != ReadStatus::Ok) {
        return false;
    }
    const std::string stem = path + "-" + Ziffern(now.Year, 4) + Ziffern(now.Month, 2) + Ziffern(now.Day, 2) + "-" +
                             Ziffern(now.Hour, 2) + Ziffern(now.Minute, 2) + Ziffern(now.Second, 2);
    std::string copy = stem;
    for (int n = 2; n < MostCopies; ++n) {
        std::string taken;
        if (files.ReadAll(copy, taken) == ReadStatus::Missing) {
            return files.Replace(copy, bytes);
        }
        copy = stem + "-" + Ziffern(n);
    }
    return false;
}

} // namespace qvm
