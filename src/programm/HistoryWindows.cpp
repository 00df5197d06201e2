#include "HistoryWindows.h"

#include "MainWindows.h"
#include "TransferWindows.h"

namespace qvm {

void HistoryWindows::Verbinden() {
    struct F2& main = programm.Main->F2;
    const TransferWindows& transfer = *programm.Transfer;
    main.Hooks.Historie_Oeffnen = [this](const std::string& path) { F7.F7_Oeffnen(path); };
    F7.Hauptfenster_Verbergen = [&main] { main.Fenster.Visible = false; };
    F7.Dahinter_Offen = [&transfer] { return transfer.Offen() || transfer.F9.Fenster.Visible; };
    F7.F8_Oeffnen = [this] { F8.F8_Laden(); };
    F7.F8_Schliessen = [this] { F8.F8_Schliessen(); };
}

} // namespace qvm
