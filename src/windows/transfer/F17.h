#pragma once

#include "AdapterListe.h"
#include "CodeEntry.h"
#include "Controls.h"
#include "F18.h"
#include "Programmierlauf.h"
#include "Seriennummer.h"
#include "Timer.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace qvm {

/// What became of a change of a code.
enum class CodeOutcome : std::uint8_t {
    Open,        ///< nothing was tried yet, or it is under way
    Changed,     ///< the device has taken the new code; a unit listens on the system's channel, too
    Unmoved,     ///< a unit has taken it, but may listen on another channel than the system's
    Refused,     ///< by the device, the login or the change
    Incomplete,  ///< a code had fewer than six characters; only the login went out
    Different,   ///< new code and repeat were not the same; only the login went out
    Silent,      ///< nobody answered the login, or was found; nothing was changed
    Unconfirmed, ///< nobody answered the change: which code holds is not certain
    Unsent,      ///< there was no port for the login, or for the change behind it; nothing was changed
    Cancelled,   ///< by the operator, before the change went out
};

/// The wireless unit whose code is changed.
struct CodeUnit {
    Address Device{};
    std::string Serial; ///< as the unit window shows it
    int Channel = 1;    ///< 1 to 12, on which it is to listen
};

/// Window F17: the administrator code of a lock, or of a unit, is changed. The old code is checked by a login; the
/// change goes out when the device has answered it. Lock, channel and address are those that the opener has prepared.
struct F17 {
    F17(Programmierlauf& programmierlauf, F18& wait, AdapterListe& adapters);

    Programmierlauf& run;
    Kern& kern;
    F18& f18;
    AdapterListe& Adapter;

    Window Fenster;
    Label Schloss; ///< whose code it is
    Label Label1, Label2, Label3;
    TextBox Text1, Text2, Text3; ///< old code, new code, repeat: one "*" for each character typed
    Button Command1, Command2;   ///< OK, cancel
    Timer Frist;                 ///< runs out when the device does not answer the login
    Timer Bestaetigung; ///< runs while a change was sent and not answered, whatever is sent meanwhile, and while a unit
                        ///< moves
    CodeOutcome Ergebnis = CodeOutcome::Open; ///< of the last try

    std::function<void()> Zu_F13, Zu_F20; ///< back to the lock grid, to the units: enabled, and in front
    std::function<void()> Unit_Beginnt;   ///< the change of a unit goes out, and its move behind it
    /// That is over. `channel`: on which the unit listens from now on; 0: nobody knows.
    std::function<void(std::string_view serial, int channel)> Unit_Endet;

    /// For the lock that the link is turned to.
    void F17_FormLoad();
    /// For a wireless unit. Goes back at once, with a message, when the serial number is none, or no adapter for
    /// programming is found.
    /// @param channel 1 to 12, on which it is looked for first
    void F17_Unit_Laden(std::string_view serial, int channel);
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
    /// Nobody answered the login, and the twelve channels are walked: they get their own time.
    void Gesucht();
    /// The login was refused, or nobody was reached; the operator has been, or will be, told.
    void Abgelehnt(RunOutcome why);
    /// The operator waits no longer; the window stays.
    void Abbrechen();
    /// The change was answered, or refused: no secret is left.
    void Beantwortet();
    /// The unit listens on the system's channel, and the operator will be told.
    void Umgezogen() { Unit_Abschliessen(CodeOutcome::Changed); }
    /// Its session was refused; the operator is told how far it came.
    void Umzug_Gescheitert();
    /// The same, by the operator: the session is closed. Does nothing when there is none.
    void Umzug_Abbrechen();

private:
    bool Wartet() const;
    bool Unterwegs() const;
    void Oeffnen();
    bool Unit_Port() const;
    /// How far the session of the unit has come, if it comes no further.
    CodeOutcome Unit_Stand() const;
    void Unit_Abschliessen(CodeOutcome outcome);
    /// Ends it, and tells the operator how far it came.
    void Unit_Aufgeben(CodeOutcome outcome);
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

    std::optional<CodeUnit> unit_; ///< whose code it is; none: a lock's
    bool taken_ = false;           ///< the unit has said that it has the new code
    CodeEntry old_{Text1}, new_{Text2}, repeat_{Text3};
    Listener words_ = Worte_Folgen(*this);
};

} // namespace qvm
