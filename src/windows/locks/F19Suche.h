#pragma once

#include "AdapterListe.h"
#include "ChannelScan.h"
#include "F12.h"
#include "F19.h"
#include "F20.h"

#include <functional>
#include <string>

namespace qvm {

/// The scans that end in F19: for the serial number of a lock, begun in F12, and of a unit, begun in F20. How they are
/// begun, what the operator sees of them, and where they lead.
struct F19Suche {
    F19Suche(ChannelScan& channelScan, AdapterListe& adapters, F12& locks, F19& found, F20& units);

    /// The oldest adapter that knows the search of units.
    static constexpr int ScanningVersion = 12;

    ChannelScan& scan;
    Kern& kern;
    AdapterListe& Adapter;
    F12& f12;
    F19& f19;
    F20& f20;

    std::function<int()> AdapterVersion; ///< of the adapter in use, 0 unknown; for when no search has told it
    /// The start dialog, for the code of a scan by logins. `adapter`: the one remembered for the lock.
    std::function<void(F19Opener opener, const std::string& adapter)> Anmelden;
    // The wait box of a scan that was begun in F12; F20 shows its own.
    std::function<void()> Wartebox_Zeigen;
    std::function<void(int channel, const std::string& state)> Wartebox_Stand;
    std::function<void()> Wartebox_Schliessen;

    // A scan does not begin while a run is on, or the answer to a change of a code is to come; the window says so.

    /// A scan by logins for a lock, 1 to 200; F12 waits.
    void Schloss_Suchen(int lock);
    /// A scan by logins for a row of F20, 1 to 5.
    void Unit_Suchen(int row);
    /// A scan for units, without a code, for a row of F20. Says so when there is no adapter, or an old one.
    void Keypad_Suchen(int row);
    /// The start dialog was left, with the code in `order`, or by its cancel key.
    void Angemeldet(const RunOrder& order) { Beginnen(ScanWay::Logins, order); }
    void Verworfen() { Freigeben(); }
    /// The operator ends the scan; nothing was found then.
    void Abbrechen() { Absuchen_Abbrechen(scan); }

private:
    int Version() const;
    RunOrder Auftrag(int lock) const;
    /// A scan has to wait for what is on; the status line of the window says so.
    bool Belegt();
    Label& Hinweis() { return opener_ == F19Opener::Locks ? f12.Hinweis : f20.Hinweis; }
    void Anmeldung_Oeffnen(int lock);
    void Beginnen(ScanWay way, const RunOrder& order);
    void Zeigen();
    std::string Stand() const;
    void Beendet(ScanEnd how);
    void Melden(ScanEnd how);
    Window& Fenster() { return opener_ == F19Opener::Locks ? f12.Fenster : f20.Fenster; }
    void Freigeben() { Fenster().Enabled = true; }

    F19Opener opener_ = F19Opener::Locks;
    int target_ = 0; ///< the lock, or the row of F20
};

} // namespace qvm
