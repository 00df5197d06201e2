#include "TimeWindows.h"

#include "MainWindows.h"
#include "PersonWindows.h"

namespace qvm {

void TimeWindows::Verbinden() {
    WindowHooks& replies = programm.Run.Fenster;
    replies.Karte_Quittung = [this] { F60.Karte_Quittung(); };
    replies.Karte_Start = [this] { F60.Karte_Start(); };
    replies.Karte_Block = [this] { F60.Karte_Block(); };
    replies.Karte_Abgelehnt = [this] { F60.Karte_Abgelehnt(); };
    programm.Main->F2.Hooks.Ende_Erlaubt = [this] { return F4.Ende_Erlaubt() && F41.Ende_Erlaubt(); };
    F60.Zu_F5 = [this] {
        // Not opened by this: it would stand there without its table.
        if (programm.Persons->F5.Fenster.Visible) {
            programm.Persons->F5.Fenster.Enabled = true;
        }
    };
}

} // namespace qvm
