#include "AdapterScan.h"

#include "Adapterklasse.h"
#include "AntwortLayouts.h"
#include "SeriellesProtokoll.h"
#include "Text.h"
#include "TransferTabelle.h"

#include <algorithm>
#include <map>
#include <string_view>

namespace qvm {
namespace {

using Probe = std::array<std::uint8_t, ProbeBytes>;

constexpr int Tries = 4;
/// Seconds that an identification is waited for: of a candidate port, of a fixed one; and seconds for a record.
constexpr double CandidateWait = 4.0, FixedWait = 1.8, RecordWait = 1.4;

/// Marks the search, and shows the hourglass, for as long as it lives.
class Suchlauf {
public:
    Suchlauf(const Platform& world, AdapterListe& list) : world_(world), list_(list) {
        list_.SucheLaeuft = true;
        Sanduhr(true);
    }
    ~Suchlauf() {
        Sanduhr(false);
        list_.SucheLaeuft = false;
    }
    Suchlauf(const Suchlauf&) = delete;
    Suchlauf& operator=(const Suchlauf&) = delete;

private:
    void Sanduhr(bool on) {
        if (world_.Hourglass) {
            world_.Hourglass(on);
        }
    }

    const Platform& world_;
    AdapterListe& list_;
};

/// One search: what does not change while it runs.
struct Suche {
    Link& link;
    AdapterListe& list;
    int Stand;              ///< of the list at the beginning
    std::vector<int> Ports; ///< the list itself may change during a wait
    double Wait;            ///< for an identification
    Probe ProbeSent{};
    std::map<int, int> Versions{}; ///< of the adapters, by port

    bool Ueberholt() const { return list.Stand != Stand; }
};

Probe Probe_Neu(const Platform& world) {
    Probe probe{};
    for (std::uint8_t& byte : probe) {
        byte = static_cast<std::uint8_t>(std::clamp(static_cast<int>(world.Random() * 256.0), 0, 255));
    }
    return probe;
}

/// Sends by `send` up to four times until the reply has come. False as well when the port fails or the search is over.
template <class Send>
bool Fragen(const Suche& search, SuchSchritt step, double seconds, const AdapterAntwort& reply, Send send) {
    Link& link = search.link;
    const int port = step.Port;
    if (!Port_Oeffnen(link, port)) {
        return false;
    }
    step.Versuche = Tries;
    for (step.Versuch = 1; step.Versuch <= Tries; ++step.Versuch) {
        if (search.list.Suche_Zeigen) {
            search.list.Suche_Zeigen(step);
        }
        link.ReplySeen = 0;
        link.UsbArmed = 0;
        link.Rx.Ruecksetzen();
        if (!send(link)) {
            return false;
        }
        const bool answered = Adapter_Antwort_Abwarten(link, seconds, reply);
        if (search.Ueberholt()) {
            return false;
        }
        if (answered) {
            return true;
        }
    }
    return false;
}

bool Kennung_Fragen(const Suche& search, int port) {
    constexpr AdapterAntwort reply{.Code = RpAdapterKennung::Reply.Code,
                                   .OtherCode = RpAdapterKennung::Reply6A.Code,
                                   .Shortest = RpAdapterKennung::ValidLength};
    return Fragen(search, {.Port = port}, search.Wait, reply,
                  [&search](Link& link) { return TelAdapterKennung_Senden(link, search.ProbeSent); });
}

bool Satz_Fragen(const Suche& search, int port) {
    constexpr AdapterAntwort reply{.Code = RpAdapterDaten::Reply.Code,
                                   .OtherCode = RpAdapterDaten::Reply.Code,
                                   .Shortest = RpAdapterDaten::CompleteLength,
                                   .Longest = RpAdapterDaten::CompleteLength};
    return Fragen(search, {.Port = port, .Satz = true}, RecordWait, reply, TelAdapterDaten_Senden);
}

/// The record in the reply, which is forgotten: probe and record together give the transfer key away.
AdapterSatz Satz_Lesen(const Suche& search, int port) {
    Link& link = search.link;
    AdapterSatz adapter;
    const auto version = search.Versions.find(port);
    adapter.Version = version == search.Versions.end() ? 0 : version->second;
    for (int n = 0; n < RpAdapterDaten::AdapterAddress.Width; ++n) {
        adapter.Adresse += "/" + Ziffern(link.ReplyByte(RpAdapterDaten::AdapterAddress.Offset + n));
    }
    adapter.Name = Adapter_Name(link);
    adapter.Port = Ziffern(port);
    std::array<std::uint8_t, 16> bytes{};
    for (std::size_t n = 0; n < bytes.size(); ++n) {
        bytes[n] = link.ReplyByte(RpAdapterDaten::Key.Offset + static_cast<int>(n));
    }
    adapter.TransferKey = TransferKey_Bilden(bytes, search.ProbeSent);
    Ueberschreiben(bytes);
    Vergessen(link.Reply);
    Empfang_Vergessen(link);
    return adapter;
}

/// Files the record by the class that its name begins with.
void Satz_Ablegen(AdapterListe& list, const AdapterSatz& adapter, int port, bool& enrolmentKnown) {
    const std::string_view name = adapter.Name;
    if (name.starts_with(EnrolmentClass)) {
        if (!enrolmentKnown) {
            enrolmentKnown = true;
            list.EnrollmentPort = port;
            list.EnrollmentAdresse = adapter.Adresse;
        }
    } else if (name.starts_with(ProgrammingClass)) {
        if (list.ProgStationPort == KeinPort) {
            list.ProgStationPort = port;
            list.ProgVersion = adapter.Version;
            list.ProgAdresse = adapter.Adresse;
            if (!enrolmentKnown) {
                list.EnrollmentPort = port;
                list.EnrollmentAdresse = adapter.Adresse;
            }
        }
        list.Saetze.push_back(adapter);
    } else {
        list.Fremde.push_back(adapter);
        std::erase(list.PortListe, port);
    }
}

bool Kennungen_Sammeln(Suche& search) {
    bool answered = false;
    for (const int port : search.Ports) {
        const bool known = Kennung_Fragen(search, port);
        if (search.Ueberholt()) {
            return false;
        }
        if (known) {
            answered = true;
            search.Versions[port] = search.link.ReplyByte(RpAdapterKennung::Version.Offset);
        }
    }
    return answered;
}

void Saetze_Sammeln(const Suche& search) {
    bool enrolmentKnown = false;
    for (const int port : search.Ports) {
        const bool answered = Satz_Fragen(search, port);
        if (search.Ueberholt()) {
            return;
        }
        if (answered) {
            Satz_Ablegen(search.list, Satz_Lesen(search, port), port, enrolmentKnown);
        }
    }
}

void Port_Zuruecksetzen(Link& link, const AdapterListe& list, int portBefore) {
    const int port = list.ProgStationPort == KeinPort || list.ProgStationPort == 0 ? portBefore : list.ProgStationPort;
    if (link.PortNummer != port || !link.kern.Welt.Port.IsOpen()) {
        Port_Oeffnen(link, port);
    }
}

} // namespace

bool Adapter_Antwort_Abwarten(Link& link, double seconds, const AdapterAntwort& reply) {
    link.ReplySeen = 0;
    link.ReplyWanted = reply;
    Warte_Antwort(link, seconds);
    link.ReplyWanted.reset();
    return link.ReplySeen != 0;
}

std::string Adapter_Name(const Link& link) {
    std::string name;
    for (int n = 0; n < RpAdapterDaten::AdapterName.Width; ++n) {
        const std::uint8_t byte = link.ReplyByte(RpAdapterDaten::AdapterName.Offset + n);
        if (byte == 0) {
            break;
        }
        name.push_back(static_cast<char>(byte));
    }
    return std::string(RTrim(name));
}

bool Adapter_Suchen(Link& link, AdapterListe& list) {
    if (list.SucheLaeuft) {
        return false;
    }
    const Suchlauf running(link.kern.Welt, list);
    const bool fixed = list.PortAnzahl() == 0;
    const int portBefore = link.PortNummer;
    Suche search{.link = link,
                 .list = list,
                 .Stand = list.Stand,
                 .Ports = list.PortListe,
                 .Wait = fixed ? FixedWait : CandidateWait,
                 .ProbeSent = Probe_Neu(link.kern.Welt)};
    if (fixed && !link.kern.Config.AdapterModus()) {
        search.Ports = {link.kern.Config.PortNummer};
    }
    const bool answered = Kennungen_Sammeln(search);
    if (search.Ueberholt()) {
        return false;
    }
    if (answered) { // with no reply at all, what is known stays
        list.Ports_Vergessen();
        list.ProgStationPort = list.EnrollmentPort = KeinPort;
        Saetze_Sammeln(search);
    }
    if (search.Ueberholt()) {
        list.Ports_Vergessen();
        return false;
    }
    if (!search.Ports.empty()) {
        Port_Zuruecksetzen(link, list, portBefore);
    }
    return answered;
}

void Suche_Abbrechen(Link& link, AdapterListe& list) {
    if (list.SucheLaeuft) {
        ++list.Stand;
        link.ReplySeen = 1; // ends the wait for a reply; the search looks at Stand first
    }
}

void Adapter_Umbenennen(AdapterListe& list, std::string_view address, std::string_view name) {
    const auto of = [address](const AdapterSatz& adapter) { return adapter.Adresse == address; };
    const auto foreign = std::find_if(list.Fremde.begin(), list.Fremde.end(), of);
    if (foreign != list.Fremde.end() && name.starts_with(ProgrammingClass)) {
        list.Saetze.push_back(*foreign);
    }
    if (Adaptername_Brauchbar(name)) {
        std::erase_if(list.Fremde, of);
    }
    for (std::vector<AdapterSatz>* adapters : {&list.Saetze, &list.Fremde}) {
        for (AdapterSatz& adapter : *adapters) {
            if (of(adapter)) {
                adapter.Name = name;
            }
        }
    }
}

bool Adapter_Port_Oeffnen(Link& link, AdapterListe& list, int AdapterListe::*which) {
    if (list.*which == 0) {
        Adapter_Suchen(link, list);
    }
    const int port = list.*which;
    if (port == 0 || port == KeinPort) {
        return false;
    }
    Port_Oeffnen(link, port);
    return true;
}

void Adapter_Bereithalten(Link& link, AdapterListe& list) {
    if (list.ProgStationPort == 0 && list.AdapterAnzahl() == 0 && link.kern.Config.AdapterModus()) {
        Adapter_Suchen(link, list);
    }
}

} // namespace qvm
