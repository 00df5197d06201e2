#pragma once

#include "CodeEntry.h"
#include "Controls.h"
#include "F18.h"
#include "Programmierlauf.h"
#include "Timer.h"

#include <cstdint>
#include <functional>

namespace qvm {

/// What became of a change of a code.
enum class CodeOutcome : std::uint8_t {
    Open,        ///< nothing was tried yet, or it is under way
    Changed,     ///< the device has taken the new code
    Refused,     ///< by the device, the login or the change
    Incomplete,  ///< a code had fewer than six characters; only the login went out
    Different,   ///< new code and repeat were not the same; only the login went out
    Silent,      ///< nobody answered the login, or was found; nothing was changed
    Unconfirmed, ///< nobody answered the change: which code holds is not certain
    Unsent,      ///< there was no port for the login, or for the change behind it; nothing was changed
    Cancelled,   ///< by the operator, before the change went out
};

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
    CodeOutcome Ergebnis = CodeOutcome::Open; ///< of the last try

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
    /// The login was refused, or nobody was reached; the operator has been, or will be, told.
    void Abgelehnt(RunOutcome why);
    /// The operator waits no longer; the window stays.
    void Abbrechen();
    /// The change was answered, or refused: no secret is left.
    void Beantwortet();

private:
    bool Einheit() const;
    bool Wartet() const;
    void Tippen(CodeEntry& entry, int key);
    void Frist_Abgelaufen();
    void Nicht_Bestaetigt();
    void Warten_Beenden(CodeOutcome outcome);
    /// What the entries are: a change (Open), or why they are none.
    CodeOutcome Pruefen() const;
    /// What the reply to the change says.
    CodeOutcome Antwort() const;
    void Melden(int line) const;
    void Unbestaetigt_Melden() const;
    void Geheimnisse_Loslassen();
    void Schliessen();

    bool unit_ = false; ///< the change that was sent last is a unit's
    CodeEntry old_{Text1}, new_{Text2}, repeat_{Text3};
    Listener words_ = Worte_Folgen(*this);
};

} // namespace qvm
