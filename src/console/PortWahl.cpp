#include "Befehle.h"
#include "Programm.h"

namespace qvm {

void Port_Waehlen(Programm& program, bool deviceNamed) {
    Konfiguration& config = program.kern.Config;
    if (deviceNamed) {
        program.link.PortNummer = 1;
    } else if (config.AdapterModus()) {
        const std::vector<int> ports = program.kern.Welt.AdapterPorts();
        program.link.PortNummer = ports.empty() ? config.PortNummer : ports.front();
    }
    // In memory only: the grid must not look for the adapter that the lock table names.
    config.PortAutomatik = "RESET";
}

} // namespace qvm
