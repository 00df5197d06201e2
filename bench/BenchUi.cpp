// Opens the program's windows and prints when they were painted, what they hold, and what the idle program uses.
//
//   bench_ui FOLDER [SECONDS]    a program folder with data and language files; how long to idle (default 10; 0: only
//   the start)
//   bench_ui FOLDER users        the user window and the lock window alone
//   bench_ui FOLDER times        the windows of holidays, clocks and guests alone
//
// The first line is the time of the first painting on the system's monotonic clock in nanoseconds, so that whoever
// starts this program can tell how long the start took; the next six are where the keys of the programming window, of
// the user window, of the lock window, of holidays, clocks and guest cards are, for a mouse. bench/measure_ui.py uses
// them.
#include "BenchUiTimes.h"
#include "BenchUiUsers.h"
#include "ClearStyle.h"
#include "Oberflaeche.h"
#include "QtPlatform.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QTimer>
#include <QToolButton>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <string>
#include <sys/resource.h>
#include <utility>

namespace {

/// Calls back once, after the window's next painting has reached the screen.
class AfterPaint : public QObject {
public:
    AfterPaint(QWidget& window, std::function<void()> done) : QObject(&window), done_(std::move(done)) {
        window.installEventFilter(this);
    }
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Paint && done_) {
            QTimer::singleShot(0, qApp, std::exchange(done_, {}));
        }
        return false;
    }

private:
    std::function<void()> done_;
};

double processorSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

struct Bench {
    qvm::Programm& programm;
    qvm::ui::Oberflaeche& windows;
    static constexpr int HistoryLines = 2024;
    int IdleSeconds = 10;
    std::string Only; ///< "users": their window, and that of the locks; "times": those of times
    QElapsedTimer clock;

    void Begin() {
        new AfterPaint(windows.Main.f2, [this] { MainPainted(); });
        programm.Main->F2.F2_Laden();
    }
    void MainPainted() {
        const auto now = std::chrono::steady_clock::now().time_since_epoch();
        std::printf("%lld\n",
                    static_cast<long long>(std::chrono::duration_cast<std::chrono::nanoseconds>(now).count()));
        for (const char* key : {"PROG", "x1504", "lock4", "636I259", "Schaltuhr", "GastCard"}) {
            PrintKey(key);
        }
        if (Only == "users") {
            measureUsers(programm, windows);
            measureLocks(programm, windows);
        } else if (Only == "times") {
            measureTimes(programm, windows);
        }
        if (!Only.empty()) {
            QApplication::exit(0);
            return;
        }
        QTimer::singleShot(IdleSeconds == 0 ? 0 : 3000, qApp,
                           [this] { Idle("the main window", [this] { OpenLocks(); }); });
    }
    /// Where the key of the tool bar is on the screen.
    void PrintKey(const char* name) const {
        const auto* key = windows.Main.f2.findChild<QToolButton*>(QStringLiteral("F2.Toolbar1.") + QLatin1String(name));
        const QPoint middle = key == nullptr ? QPoint() : key->mapToGlobal(key->rect().center());
        std::printf("%d %d\n", middle.x(), middle.y());
    }
    void OpenLocks() {
        clock.start();
        new AfterPaint(windows.Transfer.f13, [this] {
            std::printf("F13 painted after %.1f ms\n", Milliseconds());
            OpenHistory();
        });
        programm.Transfer->F13.F13_FormLaden();
    }
    double Milliseconds() const { return static_cast<double>(clock.nsecsElapsed()) / 1e6; }
    /// A full history, every tenth line with the same name.
    void OpenHistory() {
        const std::string path = programm.kern.HistPfad() + "H_20260305_103000_Bench.HST";
        std::ofstream file(path, std::ios::binary);
        file << "01.50.0C.10\r\n";
        for (int n = 1; n < HistoryLines; ++n) {
            file << (n % 10 == 0 ? "Wartung" : "Benutzer " + std::to_string(n))
                 << "\t05.03.2026\t10:30\tFingerscan\r\n";
        }
        file.close();
        clock.start();
        new AfterPaint(windows.History.f7, [this] {
            std::printf("F7 with %d lines painted after %.1f ms\n", programm.History->F7.Zeilen(), Milliseconds());
            QTimer::singleShot(500, qApp, [this] { SearchHistory(); });
        });
        programm.History->F7.F7_Oeffnen(path);
    }
    void SearchHistory() {
        programm.History->F7.Toolbar1_ButtonClick("Suchen");
        programm.History->F8.Text1.Text = std::string("wartung");
        clock.start();
        new AfterPaint(windows.History.f7, [this] {
            std::printf("F7 searched and painted after %.1f ms\n", Milliseconds());
            programm.History->F8.Fenster.Visible = false;
            OpenRest();
        });
        programm.History->F8.Command1_Click();
    }
    void OpenRest() {
        programm.Transfer->F11.F11_Laden(qvm::F11Opener::F13, "");
        programm.Main->F6.F6_Laden();
        programm.Main->F14.F14_Laden();
        programm.Main->F15.F15_Laden();
        programm.Main->F1.F1_Laden(1);
        programm.Transfer->F9.F9_Vorbereiten(4000);
        programm.Transfer->F9.F9_Zeigen();
        programm.Transfer->F18.F18_Zeigen();
        QTimer::singleShot(1000, qApp, [this] {
            std::printf("F2, F13, F7, F11, F6, F14, F15, F1, F9 and F18 open, %s\n", residentMemory().c_str());
            Idle("all of them", [] { QApplication::exit(0); });
        });
    }
    void Idle(const char* what, std::function<void()> then) {
        if (IdleSeconds == 0) {
            QApplication::exit(0);
            return;
        }
        const double before = processorSeconds();
        QTimer::singleShot(IdleSeconds * 1000, qApp, [this, what, before, next = std::move(then)] {
            std::printf("idle with %s: %.2f %% of a core\n", what, 100 * (processorSeconds() - before) / IdleSeconds);
            next();
        });
    }
};

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setStyle(new qvm::ui::ClearStyle);
    // The application owns its style. NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
    QApplication::setApplicationName(QStringLiteral("qvm7702-bench"));
    QApplication::setQuitOnLastWindowClosed(false);
    if (argc < 2) {
        std::fputs("bench_ui FOLDER [SECONDS]\n", stderr);
        return 2;
    }
    qvm::PlatformOptions options;
    options.Directory = argv[1];
    qvm::QtPlatform platform(std::move(options));
    qvm::Programm programm(platform.World(), argv[1]);
    if (qvm::Programm_Start(programm, true) != qvm::StartResult::Started) {
        return 1;
    }
    qvm::ui::Oberflaeche windows(programm);
    const std::string how = argc > 2 ? argv[2] : "10";
    Bench bench{.programm = programm,
                .windows = windows,
                .IdleSeconds = std::atoi(how.c_str()),
                .Only = how == "users" || how == "times" ? how : std::string(),
                .clock = {}};
    QTimer::singleShot(0, &application, [&bench] { bench.Begin(); });
    return QApplication::exec();
}
