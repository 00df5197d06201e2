#include "AdapterScan.h"

#include "AntwortLayouts.h"
#include "SeriellesProtokoll.h"
#include "Text.h"
#include "TransferTabelle.h"

#include <algorithm>

namespace qvm {
namespace {

/// Seconds to wait for an identification on a candidate port and on the configured one, and for a record.
constexpr double CandidateWait = 4.0, ConfiguredWait = 1.8, RecordWait = 1.4;
constexpr int Tries = 4;
constexpr std::string_view ProgStation = "PROGSTATION", Enrollment = "ENROLLMENT1";
/// So many characters of the name tell the kinds apart.
constexpr std::size_t KindLength = 11;

using Probe = std::array<std::uint8_t, ProbeBytes>;

Probe Frische_Probe(const Platform& world) {
    Probe probe{};
    for (std::uint8_t& byte : probe) {
        byte = static_cast<std::uint8_t>(std::clamp(static_cast<int>(world.Random() * 256.0), 0, 255));
    }
    return probe;
}

/// One search: hourglass and mark stand while it lives.
class Suche {
public:
    Suche(Link& serialLink, AdapterListe& adapters)
        : link_(serialLink), list_(adapters), stand_(adapters.Stand), probe_(Frische_Probe(serialLink.kern.Welt)) {
        list_.SucheLaeuft = true;
        link_.kern.Welt.Hourglass(true);
    }
    ~Suche() {
        link_.kern.Welt.Hourglass(false);
        list_.SucheLaeuft = false;
    }
    Suche(const Suche&) = delete;
    Suche& operator=(const Suche&) = delete;

    bool Ausfuehren(const std::vector<int>& ports, double firstWait);

private:
    bool Kennung(int port, double wait);
    bool Daten(int port);
    void Eintragen(int port);
    AdapterSatz Satz(int port) const;
    /// The ports were determined anew meanwhile: what this search knows is out of date.
    bool Ueberholt() const { return list_.Stand != stand_; }
    /// A good frame of that code has come in the wait.
    bool Antwort(std::uint8_t code) const { return link_.ReplySeen != 0 && link_.RxByte(2) == code; }

    Link& link_;
    AdapterListe& list_;
    int stand_;
    Probe probe_;
};

bool Suche::Kennung(int port, double wait) {
    if (!Port_Oeffnen(link_, port)) {
        return false;
    }
    for (int n = 0; n < Tries && !Ueberholt(); ++n) {
        link_.ReplySeen = 0;
        link_.Rx.Ruecksetzen();
        if (!TelAdapterKennung_Senden(link_, probe_)) {
            return false;
        }
        Warte_Antwort(link_, wait);
        if (Antwort(RpAdapterKennung::Reply.Code) || Antwort(RpAdapterKennung::Reply6A.Code)) {
            return true;
        }
    }
    return false;
}

bool Suche::Daten(int port) {
    if (!Port_Oeffnen(link_, port)) {
        return false;
    }
    for (int n = 0; n < Tries && !Ueberholt(); ++n) {
        link_.ReplySeen = 0;
        if (!TelAdapterDaten_Senden(link_)) {
            return false;
        }
        Warte_Antwort(link_, RecordWait);
        if (Antwort(RpAdapterDaten::Reply.Code) && link_.RxByte(1) == RpAdapterDaten::CompleteLength) {
            return true;
        }
    }
    return false;
}

AdapterSatz Suche::Satz(int port) const {
    AdapterSatz record;
    for (int n = 0; n < RpAdapterDaten::AdapterAddress.Width; ++n) {
        record.Adresse += "/" + Ziffern(link_.RxByte(RpAdapterDaten::AdapterAddress.Offset + n));
    }
    for (int n = 0; n < RpAdapterDaten::AdapterName.Width; ++n) {
        const std::uint8_t byte = link_.RxByte(RpAdapterDaten::AdapterName.Offset + n);
        if (byte == 0) {
            break;
        }
        record.Name += static_cast<char>(byte);
    }
    record.Name = std::string(RTrim(record.Name));
    record.Port = Ziffern(port);
    std::array<std::uint8_t, 16> key{};
    for (std::size_t n = 0; n < key.size(); ++n) {
        key[n] = link_.RxByte(RpAdapterDaten::Key.Offset + static_cast<int>(n));
    }
    record.TransferKey = TransferKey_Bilden(key, probe_);
    return record;
}

void Suche::Eintragen(int port) {
    const AdapterSatz record = Satz(port);
    const std::string kind = record.Name.substr(0, KindLength);
    if (kind == Enrollment) {
        if (list_.EnrollmentAdresse.empty()) {
            list_.EnrollmentPort = port;
            list_.EnrollmentAdresse = record.Adresse;
        }
    } else if (kind == ProgStation) {
        if (list_.ProgStationPort == KeinPort) {
            list_.ProgStationPort = port;
            list_.ProgAdresse = record.Adresse;
            if (list_.EnrollmentAdresse.empty()) {
                list_.EnrollmentPort = port;
            }
        }
        if (list_.Saetze.size() < MaxPorts) {
            list_.Saetze.push_back(record);
        }
    } else {
        std::erase(list_.PortListe, port);
    }
}

bool Suche::Ausfuehren(const std::vector<int>& ports, double firstWait) {
    bool answered = false;
    for (const int port : ports) {
        answered = Kennung(port, firstWait) || answered;
        if (Ueberholt()) {
            return false;
        }
    }
    if (!answered) {
        return false;
    }
    list_.ProgStationPort = KeinPort;
    list_.EnrollmentPort = KeinPort;
    list_.ProgAdresse.clear();
    list_.EnrollmentAdresse.clear();
    list_.Saetze.clear();
    for (const int port : ports) {
        const bool record = Daten(port);
        if (Ueberholt()) {
            return false;
        }
        if (record) {
            Eintragen(port);
        }
    }
    return true;
}

} // namespace

bool Adapter_Suchen(Link& link, AdapterListe& list) {
    const bool configured = list.PortListe.empty() && !link.kern.Config.AdapterModus();
    if (list.SucheLaeuft || (list.PortListe.empty() && !configured)) {
        return false;
    }
    const std::vector<int> ports = configured ? std::vector<int>{link.kern.Config.PortNummer} : list.PortListe;
    const int before = link.PortNummer;
    const int stand = list.Stand;
    bool answered = false;
    {
        Suche search(link, list);
        answered = search.Ausfuehren(ports, configured ? ConfiguredWait : CandidateWait);
    }
    if (list.Stand == stand) {
        const bool known = answered && list.ProgStationPort != KeinPort;
        const int wanted = known ? list.ProgStationPort : before;
        if (link.PortNummer != wanted || !link.kern.Welt.Port.IsOpen()) {
            Port_Oeffnen(link, wanted);
        }
    }
    return answered;
}

} // namespace qvm
