#include "Bedienung.h"

#include "TransferWindows.h"

#include <algorithm>
#include <utility>

namespace qvm {

namespace {

/// How long the answer to a cancel is waited for.
constexpr int CancelMs = 3000;

} // namespace

Bedienung::Bedienung(Programm& program, const LaufAuftrag& order, std::function<void(const std::string&)> shown)
    : Ja([&order] { return order.HistoryFirst; }), program_(program), order_(order), shown_(std::move(shown)),
      shownBefore_(program.kern.Welt.ShowMessage) {
    program_.kern.Welt.ShowMessage = [this](const Message& message) { return Antworten(message); };
    program_.Transfer->F13.F13_FormLaden();
    // Nobody moves a mouse over the grid.
    program_.Transfer->F13.Timer1.Stop();
    program_.Transfer->F13.Timer2.Stop();
}

Bedienung::~Bedienung() {
    program_.kern.Welt.ShowMessage = shownBefore_;
    program_.Transfer->F13.F13_Schliessen();
    if (program_.kern.Welt.Port.IsOpen()) {
        program_.kern.Welt.Port.SetRts(false);
        program_.kern.Welt.Port.Close();
    }
}

Answer Bedienung::Antworten(const Message& message) const {
    switch (message.Choice) {
    case Buttons::YesNoCancel:
        return Ja() ? Answer::Yes : Answer::No;
    case Buttons::YesNo:
        return Answer::No;
    case Buttons::OkCancel:
        return Answer::Ok; // the question before a history is read
    case Buttons::Ok:
        break;
    }
    if (const std::string text = Anzeige_Aus_1252(message.Text); !text.empty()) {
        shown_(text);
    }
    return Answer::Ok;
}

bool Bedienung::Starten() {
    F11& dialog = program_.Transfer->F11;
    if (!dialog.Fenster.Visible) {
        return false;
    }
    dialog.Check1.Checked = order_.Keep;
    if (order_.Since) {
        dialog.Datum_Waehlen(*order_.Since);
    }
    for (const char character : order_.Code) {
        dialog.Text1_KeyPress(static_cast<unsigned char>(character));
    }
    dialog.OK_Click();
    return true;
}

bool Bedienung::Unterbrochen() {
    const int now = order_.Interrupts ? order_.Interrupts() : 0;
    if (now <= interrupts_) {
        return false;
    }
    again_ = interrupts_ > 0;
    interrupts_ = now;
    return true;
}

std::string_view Bedienung::Abbruch_Text() const {
    return again_ ? "Giving up." : "Cancelling; once more Ctrl-C gives up at once.";
}

void Bedienung::Abbruch_Beginnen() {
    if (!cancelling_) {
        cancelling_ = true;
        cancelSince_ = program_.kern.Welt.Milliseconds();
    }
}

bool Bedienung::Abbruch_Ueberfaellig() {
    if (!cancelling_) {
        return false;
    }
    // Neither in a wait that the run orders nor between two frames of the session's end does the time run.
    const std::int64_t now = program_.kern.Welt.Milliseconds();
    cancelSince_ = Lauf_Wartet(program_.Run) ? now : std::max(cancelSince_, program_.link.Lauf.Chain.LastAnswer);
    return (again_ || now - cancelSince_ >= CancelMs) && !program_.Run.Gesamtende;
}

} // namespace qvm
