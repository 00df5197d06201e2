// A record file from arbitrary bytes: every field read, one record written, the rest unchanged.

#include "MemoryFiles.h"
#include "Record.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

constexpr qvm::RecordField Flag{"Flag", 0, 1, qvm::Fill::Byte}, Plain{"Plain", 1, 4},
    Zeroed{"Zeroed", 5, 4, qvm::Fill::Null}, Mixed{"Mixed", 9, 21, qvm::Fill::NullTo20};
constexpr std::array Fields{Flag, Plain, Zeroed, Mixed};
constexpr qvm::RecordLayout Layout{"Fuzz", "FUZZ.DAT", 30, 1, 10, Fields};

void Verlange(bool condition) {
    if (!condition) {
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    qvm::test::MemoryFiles disk;
    const qvm::FileStore files = disk.Store();
    disk.Files["/FUZZ.DAT"] = bytes;

    qvm::RecordFile file(Layout);
    Verlange(file.Laden(files, "/") == qvm::ReadStatus::Ok);
    for (int n = 0; n <= file.Count() + 1; ++n) {
        Verlange(file.Record(n).size() == Layout.Length);
        for (const qvm::RecordField& field : Fields) {
            Verlange(file.Text(n, field).size() <= field.Width);
        }
    }

    const int n = bytes.empty() ? 1 : static_cast<signed char>(bytes[0]);
    std::string record = file.Record(n);
    for (const qvm::RecordField& field : Fields) {
        qvm::Feld_Schreiben(record, field, bytes);
    }
    Verlange(record.size() == Layout.Length);
    file.SetRecord(n, record);
    Verlange(file.Speichern(files, "/"));

    const std::string& saved = disk.Files["/FUZZ.DAT"];
    Verlange(saved.size() >= bytes.size());
    if (n < 1) {
        Verlange(saved == bytes);
        return 0;
    }
    const std::size_t start = static_cast<std::size_t>(n - 1) * Layout.Length;
    Verlange(saved.substr(start, Layout.Length) == record);
    Verlange(bytes.size() <= start || saved.substr(0, start) == bytes.substr(0, start));
    return 0;
}
