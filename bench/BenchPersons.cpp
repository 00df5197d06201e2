#include "F5.h"
#include "F5_Csv.h"
#include "F5_Import.h"
#include "F5_Laden.h"
#include "F5_Speichern.h"
#include "Kern.h"
#include "PosixFiles.h"
#include "TemplateStore.h"
#include "VirtualPlatform.h"

#include <benchmark/benchmark.h>
#include <string>

namespace {

using namespace qvm;

/// An installation of 200 named locks and 250 users with marks at every lock, in memory.
struct Installation {
    test::VirtualPlatform Welt;
    Kern kern{Welt.World};
    UserTable table;
    GroupTable groups;

    Installation() {
        kern.AppPath = "/";
        groups[1] = {"1", "Timer-A", "", "", "PB_2008TimA"};
        std::string& locks = Welt.Disk.Files["/DAT/C64UX12H3D.EBW"];
        for (int lock = 1; lock <= 200; ++lock) {
            locks += "Eingang Nord       1" + std::string(25, ' ');
        }
        for (int row = 2; row <= 251; ++row) {
            Fill(row);
        }
        F5_Speichern(kern, table);
    }

    void Fill(int row) {
        table.FGK4.SetText(row, 1, "Benutzer " + std::to_string(row));
        table.FGK4.SetText(row, 2, "Timer-A");
        table.FGK4.SetText(row, 4, "123456");
        table.FGK4.SetText(row, 6, "12 : 34 : 56 : 78");
        table.FGK4.SetText(row, 209, std::to_string(800000000 + row));
        for (int column = 8; column <= 207; ++column) {
            table.FGK4.SetText(row, column, column % 3 == 0 ? "F" : "X");
            table.FGK4.SetForeColor(row, column, column % 3 == 0 ? 0x808080 : 0xC000);
        }
    }
};

void LoadTheUserTable(benchmark::State& state) {
    Installation world;
    for (auto _ : state) {
        state.PauseTiming();
        world.table.FGK4.ClearRows(0);
        state.ResumeTiming();
        benchmark::DoNotOptimize(F5_TabelleLaden(world.kern, world.table));
    }
}
BENCHMARK(LoadTheUserTable)->Unit(benchmark::kMillisecond);

void SaveTheUserTableToMemory(benchmark::State& state) {
    Installation world;
    for (auto _ : state) {
        benchmark::DoNotOptimize(F5_Speichern(world.kern, world.table));
    }
}
BENCHMARK(SaveTheUserTableToMemory)->Unit(benchmark::kMillisecond);

/// Every save flushes file and directory to the disk under the working directory.
void SaveTheUserTableToDisk(benchmark::State& state) {
    Installation world;
    world.Welt.World.Files = PosixFiles();
    world.kern.AppPath = "./bench_persons/";
    world.kern.Welt.Files.MakeDirectory(world.kern.AppPath);
    world.kern.Welt.Files.MakeDirectory(world.kern.DatPfad());
    for (auto _ : state) {
        if (!F5_Speichern(world.kern, world.table)) {
            state.SkipWithError("the table was not saved");
        }
    }
    world.kern.Welt.Files.Remove(world.kern.DatPfad() + "BX10X52WUJ9.UBW");
}
BENCHMARK(SaveTheUserTableToDisk)->Unit(benchmark::kMillisecond)->UseRealTime();

void Find250Templates(benchmark::State& state) {
    Installation world;
    std::string text;
    for (int value = 0; value < 500; ++value) {
        text += "100 : ";
    }
    for (int slot = 1; slot <= 250; ++slot) {
        Template_Schreiben(world.kern, slot, slot + 1, std::to_string(800000000 + slot), text);
    }
    for (auto _ : state) {
        TemplateStore store;
        store.Laden(world.kern);
        for (int slot = 1; slot <= 250; ++slot) {
            benchmark::DoNotOptimize(store.Suchen("PR" + std::to_string(800000000 + slot)));
        }
    }
}
BENCHMARK(Find250Templates)->Unit(benchmark::kMillisecond);

/// The table's own export with another group in each row: 250 rows of 200 marks.
void PlanTheImportOfTheUserTable(benchmark::State& state) {
    Installation world;
    for (std::size_t line = 0; line < world.kern.Sprache.LanguageText.size(); ++line) {
        world.kern.Sprache.LanguageText[line] = "Word " + std::to_string(line);
    }
    for (const Blattspalte& column : F5_Blattspalten(world.kern)) {
        world.table.FGK4.SetText(1, column.Column, column.Heading);
    }
    const std::string exported = F5_CsvText(world.table.FGK4);
    for (int row = UserGrid::FirstRow; row <= UserGrid::LastRow; ++row) {
        world.table.FGK4.SetText(row, UserColumn::Group, "-");
    }
    world.table.GroupTablePerson = world.groups;
    for (auto _ : state) {
        if (F5_Blatt_Planen(world.kern, world.table, exported).ChangedRows() != UserGrid::Users) {
            state.SkipWithError("the sheet was not understood");
        }
    }
}
BENCHMARK(PlanTheImportOfTheUserTable)->Unit(benchmark::kMillisecond);

/// The user window with that table, without its view.
struct OpenWindow {
    Installation world;
    F5 window{world.kern};

    OpenWindow() { window.F5_FormLaden(); }
    void SelectMarks() {
        window.Auswahl.Go(2, 8);
        window.Auswahl.Extend(251, 207);
    }
};

void OpenTheUserWindow(benchmark::State& state) {
    OpenWindow open;
    for (auto _ : state) {
        open.window.F5_FormLaden();
    }
}
BENCHMARK(OpenTheUserWindow)->Unit(benchmark::kMillisecond);

void StepEveryMarkOfTheUserWindow(benchmark::State& state) {
    OpenWindow open;
    open.SelectMarks();
    for (auto _ : state) {
        open.window.FGK4_KeyPress(' ');
    }
}
BENCHMARK(StepEveryMarkOfTheUserWindow)->Unit(benchmark::kMillisecond);

void SortTheUserWindow(benchmark::State& state) {
    OpenWindow open;
    for (auto _ : state) {
        open.window.F5_Sort_Click();
        state.PauseTiming();
        open.window.F5_Undo_Click();
        state.ResumeTiming();
    }
}
BENCHMARK(SortTheUserWindow)->Unit(benchmark::kMillisecond);

void UndoEveryMarkOfTheUserWindow(benchmark::State& state) {
    OpenWindow open;
    for (auto _ : state) {
        state.PauseTiming();
        open.SelectMarks();
        open.window.FGK4_KeyPress(' ');
        state.ResumeTiming();
        open.window.F5_Undo_Click();
    }
}
BENCHMARK(UndoEveryMarkOfTheUserWindow)->Unit(benchmark::kMillisecond);

} // namespace
