#include "Berichte.h"
#include "F5_Laden.h"
#include "F5_Marken.h"
#include "Kern.h"
#include "Pdf.h"
#include "Seiten.h"
#include "VirtualPlatform.h"

#include <benchmark/benchmark.h>
#include <string>
#include <vector>

namespace {

using namespace qvm;

/// 250 users with a mark at each of 200 locks.
struct House {
    test::VirtualPlatform Welt;
    Kern kern{Welt.World};
    UserTable table;

    House() {
        kern.Config.Sprache = "English";
        for (int lock = 1; lock <= 200; ++lock) {
            Grup_Name(table, lock, "Entrance " + std::to_string(lock));
        }
        for (int row = UserGrid::FirstRow; row <= UserGrid::LastRow; ++row) {
            table.FGK4.SetText(row, UserColumn::Name, "User " + std::to_string(row));
            table.FGK4.SetText(row, UserColumn::Group, "-");
            for (int lock = 1; lock <= 200; ++lock) {
                Marke_Setzen(table.FGK4, row, UserGrid::ColumnOf(lock), 'X');
            }
        }
    }
};

void ReportOfTheUserTable(benchmark::State& state) {
    House house;
    std::size_t pages = 0, bytes = 0;
    for (auto _ : state) {
        const ReportPages set = Seiten_Setzen(Bericht_Benutzer(house.kern, house.table));
        pages = set.Pages.size();
        bytes = Pdf_Text(set).value_or("").size();
    }
    state.counters["pages"] = static_cast<double>(pages);
    state.counters["bytes"] = static_cast<double>(bytes);
}
BENCHMARK(ReportOfTheUserTable)->Unit(benchmark::kMillisecond);

void ReportOf1000Events(benchmark::State& state) {
    House house;
    const std::vector<ReportEvent> events(1000, {"Baumann J\xF6rg", "05.03.2026", "10:30", "Code"});
    std::size_t pages = 0;
    for (auto _ : state) {
        const ReportPages set = Seiten_Setzen(Bericht_Ereignisse(house.kern, "H.HST", events));
        pages = set.Pages.size();
        benchmark::DoNotOptimize(Pdf_Text(set));
    }
    state.counters["pages"] = static_cast<double>(pages);
}
BENCHMARK(ReportOf1000Events)->Unit(benchmark::kMillisecond);

} // namespace
