#include "AutoRegister.h"


namespace qvm {
namespace {

constexpr int HighestPort = 16, HighestInList = 255;

} // namespace

int Ports_Ermitteln(const Kern& kern, AdapterListe& list) {
    list.PortListe.clear();
    ++list.Stand;
    for (const int port : kern.Welt.AdapterPorts()) {
        if (port >= 1 && port <= HighestInList && list.PortListe.size() < MaxPorts) {
            list.PortListe.push_back(port);
        }
    }
    if (list.PortListe.empty()) {
        return KeinPort;
    }
    const int last = list.PortListe.back();
    return last <= HighestPort ? last : PortAusserhalb;
}

bool Port_Einrichten(Link& link, AdapterListe& list) {
    Konfiguration& config = link.kern.Config;
    if (config.AdapterModus()) {
        const int found = Ports_Ermitteln(link.kern, list);
        if (found != KeinPort && found != PortAusserhalb && found != config.PortNummer) {
            config.PortNummer = found;
            config.PortName = "USB-Port" + std::to_string(found);
            Konfiguration_Speichern(link.kern); // it is written again at the shut-down, which tells of a failure
        }
    } else {
        list.PortListe.clear();
        ++list.Stand;
    }
    return Port_Oeffnen(link, config.PortNummer);
}

} // namespace qvm
