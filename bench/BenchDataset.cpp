#include "Dataset.h"
#include "Kern.h"
#include "PosixFiles.h"
#include "VirtualPlatform.h"

#include <benchmark/benchmark.h>
#include <string>
#include <string_view>

namespace {

using namespace qvm;

constexpr int Users = 250;
constexpr std::size_t UserLength = 419, TemplateLength = 3028;

void Put(std::string& file, std::size_t at, std::string_view bytes) {
    file.replace(at, bytes.size(), bytes);
}

/// 250 users of lock 1, each with a finger and a template of 500 bytes in a store of 501 records.
void Fill(test::MemoryFiles& disk) {
    std::string users(Users * UserLength, ' '), templates(501 * TemplateLength, ' ');
    std::string text = "244 : 1 : ";
    for (int n = 2; n < 500; ++n) {
        text += "100 : ";
    }
    for (std::size_t n = 0; n < Users; ++n) {
        const std::string identifier = std::to_string(812345000 + n);
        Put(users, n * UserLength, "Somebody");
        Put(users, n * UserLength + 16, "PB_2008TimA");
        Put(users, n * UserLength + 45, "Slot_Nr: 007");
        Put(users, n * UserLength + 195, "FS" + identifier);
        Put(users, n * UserLength + 218, "F");
        Put(templates, (n + 250) * TemplateLength + 5, identifier);
        Put(templates, (n + 250) * TemplateLength + 26, text.substr(0, 3000));
    }
    disk.Files["/DAT/BX10X52WUJ9.UBW"] = users;
    disk.Files["/DAT/TEmpTCD0UPK.FSD"] = templates;
}

void Laden(benchmark::State& state, test::VirtualPlatform& pc, const std::string& directory) {
    pc.World.ShowMessage = [](const Message&) { return Answer::Ok; };
    Kern kern(pc.World);
    kern.AppPath = directory;
    Dataset dataset;
    LockRow row;
    row.Number = 1;
    row.Name = "Front door";
    row.Serial = "01.50.0C.06";
    for (auto _ : state) {
        if (Datensatz_Laden(kern, dataset, row, DatasetVariant::Direct) != 0 || dataset.TemplateBytes != 250 * 503) {
            state.SkipWithError("the dataset is not whole");
        }
    }
}

void Datensatz_250_Finger(benchmark::State& state) {
    test::VirtualPlatform pc;
    Fill(pc.Disk);
    Laden(state, pc, "/");
}
BENCHMARK(Datensatz_250_Finger)->Unit(benchmark::kMillisecond);

/// The same from files below the working directory.
void Datensatz_250_Finger_Dateien(benchmark::State& state) {
    test::VirtualPlatform pc;
    Fill(pc.Disk);
    const FileStore files = PosixFiles();
    files.MakeDirectory("bench_dataset");
    files.MakeDirectory("bench_dataset/DAT");
    for (const auto& [path, bytes] : pc.Disk.Files) {
        files.Replace("bench_dataset" + path, bytes);
    }
    pc.World.Files = files;
    Laden(state, pc, "bench_dataset/");
}
BENCHMARK(Datensatz_250_Finger_Dateien)->Unit(benchmark::kMillisecond);

} // namespace
