#pragma once

#include "CodeEntry.h"
#include "Controls.h"
#include "F18.h"
#include "Programmierlauf.h"
#include "Timer.h"

#include <functional>

namespace qvm {

/// Window F17: the administrator code of a lock, or of a unit, is changed. The old code is checked by a login; the
/// change goes out when the device has answered it. Device, channel and address are those that the opener has prepared.
struct F17 {
    F17(Programmierlauf& programmierlauf, F18& wait);

    Programmierlauf& run;
    Kern& kern;
    F18& f18;

    Window Fenster;
    Label Schloss; ///< whose code it is; empty for a unit
    Label Label1, Label2, Label3;
    TextBox Text1, Text2, Text3; ///< old code, new code, repeat: one "*" for each character typed
    Button Command1, Command2;   ///< OK, cancel
    Timer Frist;                 ///< runs out when the device does not answer the login
    Timer Bestaetigung;          ///< runs while a change was sent and not answered, whatever is sent meanwhile
    bool Geaendert = false;      ///< the device has taken the last change
    bool Unbestaetigt = false;   ///< it has said nothing to it

    std::function<void()> Zu_F13, Zu_F20; ///< back to the lock grid, to the units: enabled, and in front

    void F17_FormLoad();
    /// Words from the catalogue anew.
    void Texte_Setzen();
    /// One key in a box. Return in the third acts as OK when that is full. While the login is awaited nothing changes.
    void Text1_KeyPress(int key) { Tippen(old_, key); }
    void Text2_KeyPress(int key) { Tippen(new_, key); }
    void Text3_KeyPress(int key);
    /// OK: logs in with the old code. Does nothing while an answer is awaited.
    void Command1_Click();
    /// Cancel: also ends the waiting.
    void Command2_Click();

    /// The login was answered, with whatever status: the change is checked, and goes out.
    void Angemeldet();
    /// The login was refused, or the search has found nobody; the operator has been, or will be, told.
    void Abgelehnt() { Warten_Beenden(); }
    /// The change was answered, or refused: no secret is left.
    void Beantwortet();

private:
    bool Einheit() const;
    bool Wartet() const;
    void Tippen(CodeEntry& entry, int key);
    void Frist_Abgelaufen();
    void Nicht_Bestaetigt();
    void Warten_Beenden();
    /// False, with a message, when the entries are no change.
    bool Pruefen() const;
    void Melden(int line) const;
    void Schliessen();

    bool unit_ = false; ///< the change that was sent last is a unit's
    CodeEntry old_{Text1}, new_{Text2}, repeat_{Text3};
    Listener words_ = Worte_Folgen(*this);
};

} // namespace qvm
