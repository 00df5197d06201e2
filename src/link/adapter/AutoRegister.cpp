#include "AutoRegister.h"

#include "Text.h"

namespace qvm {
namespace {

constexpr int HighestPort = 16;

} // namespace

int Ports_Ermitteln(const Kern& kern, AdapterListe& list) {
    list.PortListe.clear();
    ++list.Stand;
    for (const int port : kern.Welt.AdapterPorts()) {
        // A number is a byte, and 255 stands for none.
        if (port >= 1 && port < KeinPort && list.PortListe.size() < MaxPorts) {
            list.PortListe.push_back(port);
        }
    }
    if (list.PortAnzahl() == 0) {
        return KeinPort;
    }
    return list.PortListe.back() <= HighestPort ? list.PortListe.back() : PortAusserhalb;
}

bool Port_Einrichten(Link& link, AdapterListe& list) {
    Konfiguration& config = link.kern.Config;
    list.Ports_Vergessen();
    if (config.AdapterModus()) {
        const int found = Ports_Ermitteln(link.kern, list);
        if (found <= HighestPort && found != config.PortNummer) {
            config.PortNummer = found;
            config.PortName = "USB-Port" + Ziffern(found);
            Konfiguration_Speichern(link.kern); // the port serves without it, and the end of the program saves again
        }
    } else {
        list.PortListe.clear();
        ++list.Stand;
    }
    return Port_Oeffnen(link, config.PortNummer);
}

} // namespace qvm
