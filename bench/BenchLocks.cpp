#include "AdapterListe.h"
#include "F12.h"
#include "Kern.h"
#include "PosixFiles.h"
#include "VirtualPlatform.h"

#include <benchmark/benchmark.h>
#include <string>

namespace {

using namespace qvm;

/// The lock window with 200 locks, without its view.
struct LockWindow {
    test::VirtualPlatform Welt;
    Kern kern{Welt.World};
    AdapterListe adapters;
    F12 window{kern, adapters};

    LockWindow() {
        kern.AppPath = "/";
        window.F12_FormLaden();
        window.Aendern(Word::StepEdit, [this] {
            for (int row = 1; row <= 200; ++row) {
                window.FGK12.SetText(row, LockColumn::Name, "Eingang Nord " + std::to_string(row));
                window.FGK12.SetText(row, LockColumn::Serial, "00.0A.10." + HexText(static_cast<unsigned>(row), 2));
            }
        });
        window.Toolbar1_ButtonClick("Speichern");
        window.F12_FormLaden();
    }
};

void OpenTheLockWindow(benchmark::State& state) {
    LockWindow open;
    for (auto _ : state) {
        open.window.F12_FormLaden();
    }
}
BENCHMARK(OpenTheLockWindow)->Unit(benchmark::kMillisecond);

/// From a key to the changed table: a switch is toggled, and one serial number looked for in all others.
void PressAKeyInTheLockWindow(benchmark::State& state) {
    LockWindow open;
    open.window.Auswahl.Go(100, LockColumn::FirstSwitch);
    for (auto _ : state) {
        open.window.FGK12_KeyPress(' ');
    }
}
BENCHMARK(PressAKeyInTheLockWindow)->Unit(benchmark::kMillisecond);

void SaveTheLockWindowToMemory(benchmark::State& state) {
    LockWindow open;
    for (auto _ : state) {
        open.window.Toolbar1_ButtonClick("Speichern");
    }
}
BENCHMARK(SaveTheLockWindowToMemory)->Unit(benchmark::kMillisecond);

/// All six files, each flushed with its directory to the disk under the working directory.
void SaveTheLockWindowToDisk(benchmark::State& state) {
    LockWindow open;
    open.Welt.World.Files = PosixFiles();
    open.kern.AppPath = "./bench_locks/";
    open.kern.Welt.Files.MakeDirectory(open.kern.AppPath);
    open.kern.Welt.Files.MakeDirectory(open.kern.DatPfad());
    for (auto _ : state) {
        open.window.Tabelle.LockDirty = true;
        open.window.Toolbar1_ButtonClick("Speichern");
        if (open.window.Tabelle.LockDirty) {
            state.SkipWithError("the table was not saved");
        }
    }
    for (const char* file : {"C64UX12H3D.EBW", "CPRT88X3FDA.PRT", "LSOEMIPART.LMT", "SBSCLKZU.SB1", "LOCKCLASSCOMX.CMB",
                             "DOOR1MODEDT.DTA"}) {
        open.kern.Welt.Files.Remove(open.kern.DatPfad() + file);
    }
}
BENCHMARK(SaveTheLockWindowToDisk)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
