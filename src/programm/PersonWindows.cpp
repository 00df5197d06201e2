#include "PersonWindows.h"

#include "MainWindows.h"

namespace qvm {

void PersonWindows::Verbinden() {
    F5.F16_Oeffnen = [this] { F16.F16_Laden(); };
    Schluessel.AdapterVersion = [this] { return programm.Main->F2.AdapterVersion; };
    WindowHooks& replies = programm.Run.Fenster;
    replies.EKey_Ergebnis = [this] { Schluessel.EKey_Ergebnis(); };
    replies.Finger_Schritt = [this] { Finger.Finger_Schritt(); };
    replies.Finger_Daten = [this] { Finger.Finger_Daten(); };
    replies.Finger_Kennung = [this] { Schluessel.Finger_Kennung(); };
    replies.Leser_Fertig = [this] { Schluessel.Leser_Fertig(); };
    replies.Leser_Verspaetet = [this] { Schluessel.Leser_Verspaetet(); };
    replies.Leser_Abgelehnt = [this] {
        Schluessel.Leser_Abgelehnt();
        Finger.Leser_Abgelehnt();
    };
}

} // namespace qvm
