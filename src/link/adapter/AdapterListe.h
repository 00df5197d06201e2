#pragma once

#include "Secret.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

/// An adapter that answered the search.
struct AdapterSatz {
    std::string Adresse; ///< four decimal bytes, each preceded by "/"
    std::string Name;    ///< begins "PROGSTATION" or "ENROLLMENT1", but in AdapterListe::Fremde
    std::string Port;    ///< port number as text
    int Version = 0;     ///< as it identified itself with; 0: unknown
    Secret<16> TransferKey{};
};

/// Port of an adapter that is not there.
inline constexpr int KeinPort = 0xFF;
/// Most candidate ports, and most adapters, that the lists hold.
inline constexpr std::size_t MaxPorts = 21;

/// A question of a search, before it goes out.
struct SuchSchritt {
    int Port = 0;
    bool Satz = false; ///< asks for the adapter's record; else whether there is an adapter
    int Versuch = 1;   ///< of Versuche
    int Versuche = 1;
};

/// The candidate ports, and the adapters found behind them in the order in which they were found; at most 21 of each.
struct AdapterListe {
    std::vector<int> PortListe; ///< port numbers, 1 to 254
    std::vector<AdapterSatz> Saetze;
    std::vector<AdapterSatz> Fremde; ///< adapters whose name is of no class: not for runs, only to be named anew
    int ProgStationPort = 0;         ///< 0 unknown, KeinPort none
    int EnrollmentPort = 0;
    int ProgVersion = 0;     ///< of the adapter behind ProgStationPort; 0: unknown
    std::string ProgAdresse; ///< address text of the adapters that these ports lead to
    std::string EnrollmentAdresse;

    int PortAnzahl() const { return static_cast<int>(PortListe.size()); }
    int AdapterAnzahl() const { return static_cast<int>(Saetze.size()); }

    int Stand = 0;            ///< raised whenever the ports are determined anew: a search under way then ends
    bool SucheLaeuft = false; ///< a search is under way

    std::function<void(const SuchSchritt& step)> Suche_Zeigen; ///< sees each question of a search. May be empty

    /// Nothing is known of adapters: an action that needs one searches first.
    void Ports_Vergessen() {
        Saetze.clear();
        Fremde.clear();
        ProgStationPort = EnrollmentPort = ProgVersion = 0;
        ProgAdresse.clear();
        EnrollmentAdresse.clear();
    }
};

/// The adapter of that address, or else of that name; nullptr when there is none. An empty text finds nothing.
inline const AdapterSatz* Adapter_Finden(const AdapterListe& list, std::string_view addressOrName) {
    if (addressOrName.empty()) {
        return nullptr;
    }
    for (const AdapterSatz& adapter : list.Saetze) {
        if (adapter.Adresse == addressOrName) {
            return &adapter;
        }
    }
    for (const AdapterSatz& adapter : list.Saetze) {
        if (adapter.Name == addressOrName) {
            return &adapter;
        }
    }
    return nullptr;
}

} // namespace qvm
