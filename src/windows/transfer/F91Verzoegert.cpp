// Delayed start: the rows are checked once, then the list waits for its time.

#include "F91.h"
#include "F91Takt.h"
#include "F92.h"
#include "Text.h"
#include "Zeit.h"

namespace qvm {
namespace {

constexpr int WaitInterval = 5000;

std::int64_t Minuten(const DateTime& moment) {
    return Sekunden_Seit_2000(moment) / 60;
}

} // namespace

void F91::Startzeit_Setzen(const DateTime& start) {
    if (!running_ || work_ != Work::None) {
        return;
    }
    start_ = start;
    Fenster.Visible = true;
    Timer3.Start(WaitInterval);
}

void F91::Tick_Timer3() {
    // Until the time is chosen there is nothing to wait for.
    if (!start_ || checkRow_ > 0) {
        return;
    }
    if (!waitChecked_) {
        waitChecked_ = true;
        Zeilen_Pruefen(Check::BeforeWaiting);
        return;
    }
    Restzeit();
}

void F91::Restzeit() {
    const DateTime now = kern.Welt.Now();
    const std::int64_t left = Minuten(*start_) - Minuten(now);
    if (left <= 0) {
        Timer3.Stop();
        Uhren_Zeigen(false);
        Status_Zeigen(0, 0);
        Step_Planen(StepPrgStart, ListTakt::StartDelay);
        return;
    }
    StartLabel.Text = kern.Zeile(Line::StartTime) + " " + Startzeit_Text(*start_);
    JetztLabel.Text = kern.Zeile(Line::CurrentTime) + " " + Startzeit_Text(now);
    RestLabel.Text =
        kern.Zeile(Line::TimeRemaining) + " [ " + Ziffern(left / 60, 2) + " : " + Ziffern(left % 60, 2) + " ]  hh:mm";
    Uhren_Zeigen(true);
}

} // namespace qvm
