#include "F7.h"
#include "F8.h"
#include "Kern.h"
#include "PosixFiles.h"
#include "VirtualPlatform.h"

#include <benchmark/benchmark.h>
#include <filesystem>
#include <string>

namespace {

using namespace qvm;

/// A full history view over a file of 2024 lines on the disk, in bands, every tenth line with the same name.
struct History {
    test::VirtualPlatform Welt;
    Kern kern{Welt.World};
    F7 view{kern};
    F8 search{view};
    std::string path = std::filesystem::temp_directory_path() / "bench_history.HST";

    History() {
        kern.Sprache.LanguageText.fill("Ereignis");
        kern.Sprache.LanguageText[16] = "Offen";
        Welt.World.Files = PosixFiles();
        std::string bytes = "01.50.0C.10\r\n";
        for (int n = 1; n < 2024; ++n) {
            bytes += (n % 10 == 0 ? std::string("Wartung         ") : "Benutzer " + std::to_string(n)) +
                     "\t05.03.2026\t10:30\t" + (n % 7 == 0 ? "Offen" : "Fingerscan") + "\r\n";
        }
        Welt.World.Files.Replace(path, bytes);
        view.F8_Oeffnen = [this] { search.F8_Laden(); };
    }
    ~History() { std::filesystem::remove(path); }
    History(const History&) = delete;
    History& operator=(const History&) = delete;
};

void OpenAFullHistory(benchmark::State& state) {
    History history;
    for (auto _ : state) {
        history.view.F7_Oeffnen(history.path);
    }
    if (history.view.Zeilen() != 2024) {
        state.SkipWithError("not read");
    }
}
BENCHMARK(OpenAFullHistory)->Unit(benchmark::kMillisecond);

void SearchAFullHistory(benchmark::State& state) {
    History history;
    history.view.F7_Oeffnen(history.path);
    for (auto _ : state) {
        history.view.Toolbar1_ButtonClick("Suchen");
        history.search.Text1.Text = std::string("wartung");
        history.search.Command1_Click();
    }
    if (history.view.Text1.Text().empty()) {
        state.SkipWithError("nothing found");
    }
}
BENCHMARK(SearchAFullHistory)->Unit(benchmark::kMillisecond);

} // namespace
