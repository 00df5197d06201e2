#include "F2.h"
#include "Handbuch.h"
#include "Worte.h"

#include <algorithm>

namespace qvm {

/// What a key opens. "Ende" and the keys without a task have no row.
struct F2::Taste {
    std::string_view Key;
    std::string_view Opens;
    bool StopsTimer;
    Weiter Then;
    bool Message; ///< while no adapter is there
};

const F2::Taste* F2::Taste_Finden(std::string_view key) {
    static constexpr std::array<Taste, 8> keys{{
        {"EYE", "F7", true, Weiter::Offen, true},
        {"636I259", "F2_Kalend", false, Weiter::Offen, true},
        {"Schaltuhr", "F2_Schaltuhr", true, Weiter::Offen, true},
        {"x1504", "F5", true, Weiter::Gesperrt, true},
        {"Neu", "F14", true, Weiter::Gesperrt, true},
        {"PROG", "F13", true, Weiter::Verborgen, true},
        {"GastCard", "F60", true, Weiter::Verborgen, false},
        {"lock4", "F12", true, Weiter::Verborgen, true},
    }};
    const auto* const found =
        std::find_if(keys.begin(), keys.end(), [key](const Taste& row) { return row.Key == key; });
    return found == keys.end() ? nullptr : found;
}

bool F2::Taste_Belegt(std::string_view key) const {
    if (key == "Ende") {
        return true;
    }
    const Taste* row = Taste_Finden(key);
    if (row == nullptr || !Weg_Da(row->Opens)) {
        return false;
    }
    // A menu is worth opening when one of its windows is there.
    if (key == "636I259") {
        return Weg_Da("F3") || Weg_Da("F10");
    }
    return key != "Schaltuhr" || Weg_Da("F4") || Weg_Da("F41") || Weg_Da("F42");
}

void F2::Tasten_Freigeben() {
    for (ToolButton& button : Toolbar1) {
        button.Visible = button.Key == "Ende" || Taste_Finden(button.Key) != nullptr;
        button.Enabled = Taste_Belegt(button.Key);
    }
    F2_Schnittstelle.Enabled = Weg_Da("F6");
    F2_Sprache.Enabled = Weg_Da("F15");
    F2_Version.Enabled = Weg_Da("F1");
    F2_Pc.Enabled = Weg_Da("Pc") && !kern.ImGebaeude;
    F2_Einzel.Enabled = Weg_Da("F3");
    F2_Perm.Enabled = Weg_Da("F10");
    F2_PersonB.Enabled = Weg_Da("F4");
    F2_SchlossB.Enabled = Weg_Da("F41");
    F2_Gasttimer.Enabled = Weg_Da("F42");
    Angaben_Freigeben();
}

void F2::Toolbar1_ButtonClick(std::string_view key) {
    if (ScanLaeuft != 0 || !Da() || !Taste_Belegt(key)) {
        return;
    }
    if (key == "Ende") {
        Beenden();
        return;
    }
    if (Verbunden == 0) {
        Nachsuchen();
    }
    // The search lets events go on: another window may stand before this one by now.
    if (Da() && ScanLaeuft == 0 && !beendet_) {
        Taste_Ausfuehren(*Taste_Finden(key));
    }
}

void F2::Taste_Ausfuehren(const Taste& key) {
    if (Verbunden == 0) {
        if (key.Message) {
            kern.Meldung(kern.Zeile(Line::NoConnection), Buttons::Ok, Icon::Exclamation);
        }
        return;
    }
    Oeffnen(key.Opens, key.StopsTimer, key.Then);
    // A menu or a file dialog that was closed without a choice.
    if (key.Then == Weiter::Offen && Da() && !Timer2.Running()) {
        Timer2.Start();
    }
}

void F2::Oeffnen(std::string_view window, bool stopTimer, Weiter then) {
    Oeffnen(kern.Windows.Weg(window), stopTimer, then);
}

void F2::Oeffnen(const std::function<void()>& way, bool stopTimer, Weiter then) {
    if (!way || beendet_) {
        return;
    }
    if (stopTimer) {
        Timer2.Stop();
    }
    const int before = rueckkehr_;
    if (then == Weiter::Gesperrt) {
        Fenster.Enabled = false;
    }
    way();
    // Hidden last, so that there is always a window; not at all when the other one has closed again already.
    if (then == Weiter::Verborgen && rueckkehr_ == before) {
        Fenster.Visible = false;
    }
}

void F2::F2_Schnittstelle_Click() {
    if (ScanLaeuft != 0) {
        schnittstelleWartet_ = true;
        return;
    }
    Oeffnen("F6", true, Weiter::Gesperrt);
}

void F2::F2_Sprache_Click() {
    Oeffnen("F15", false, Weiter::Offen);
}

void F2::F2_Einzel_Click() {
    Oeffnen("F3", false, Weiter::Verborgen);
}

void F2::F2_Perm_Click() {
    Oeffnen("F10", false, Weiter::Verborgen);
}

void F2::F2_PersonB_Click() {
    Oeffnen("F4", false, Weiter::Verborgen);
}

void F2::F2_SchlossB_Click() {
    Oeffnen("F41", true, Weiter::Verborgen);
}

void F2::F2_Gasttimer_Click() {
    Oeffnen("F42", true, Weiter::Verborgen);
}

void F2::F2_Version_Click() {
    Oeffnen("F1", false, Weiter::Offen);
}

void F2::F2_Pc_Click() {
    if (!kern.ImGebaeude) {
        Oeffnen("Pc", true, Weiter::Gesperrt);
    }
}

void F2::F2_Help_Click() {
    Handbuch_Oeffnen(kern, {});
}

} // namespace qvm
