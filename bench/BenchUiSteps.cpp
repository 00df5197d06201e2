#include "BenchUiSteps.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

constexpr int Rounds = 60;

} // namespace

void paint() {
    for (int n = 0; n < 3; ++n) {
        QApplication::processEvents();
    }
}

double milliseconds(const std::function<void()>& act) {
    QElapsedTimer clock;
    clock.start();
    act();
    paint();
    return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

void measure(const char* window, const char* what, const std::function<void(int round)>& act,
             const std::function<void()>& back) {
    std::vector<double> times;
    for (int round = 0; round < Rounds; ++round) {
        times.push_back(milliseconds([&] { act(round); }));
        back();
        paint();
    }
    std::sort(times.begin(), times.end());
    std::printf("%s, %s: median %.1f ms, longest %.1f ms\n", window, what, times[times.size() / 2], times.back());
}

void press(QWidget& on, int key) {
    const QString text =
        key >= Qt::Key_Space && key <= Qt::Key_Z ? QString(QChar(static_cast<char16_t>(key))) : QString();
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&on, &event);
}
