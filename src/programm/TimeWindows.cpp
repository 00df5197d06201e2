#include "TimeWindows.h"

#include "PersonWindows.h"

namespace qvm {

void TimeWindows::Verbinden() {
    WindowHooks& replies = programm.Run.Fenster;
    replies.Karte_Quittung = [this] { F60.Karte_Quittung(); };
    replies.Karte_Start = [this] { F60.Karte_Start(); };
    replies.Karte_Block = [this] { F60.Karte_Block(); };
    replies.Karte_Abgelehnt = [this] { F60.Karte_Abgelehnt(); };
    F60.Zu_F5 = [this] {
        // Not opened by this: it would stand there without its table.
        if (programm.Persons->F5.Fenster.Visible) {
            programm.Persons->F5.Fenster.Enabled = true;
        }
    };
}

} // namespace qvm
