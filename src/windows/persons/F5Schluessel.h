#pragma once

#include "F16.h"
#include "F5Leser.h"
#include "Kanal.h"
#include "Timer.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace qvm {

/// E-Keys and transponders of F5: learned, searched and synchronised by a reader of the desk, cut and pasted. The
/// window sends and is left to the reply; it is disabled only while a transponder is awaited.
struct F5Schluessel {
    F5Schluessel(F5& window, F16& search, Link& serialLink, AdapterListe& list);

    static constexpr int UsualPatience = 60;

    F5& f5;
    F16& f16;
    Kern& kern;
    Link& link;
    AdapterListe& Adapter;
    int Geduld = UsualPatience; ///< seconds that a transponder is awaited, as the unit may never say a word
    Timer Wache;                ///< looks at the adapter, and at the clock, once a second meanwhile

    Timer EKeyWache; ///< looks at the adapter while an E-Key is awaited

    KeyFund Fund; ///< of the last search or synchronisation

    /// Of the adapter that identified itself last, 0 unknown; may be empty. Asked where the search has not told the
    /// version of the adapter in question.
    std::function<int()> AdapterVersion;

    // The menu of column 6. Each acts on the row, MenuRow, for which the menu was opened.
    void Save_Ekey_Click();
    void Search_Ekey_Click();
    void key_synchron_Click();
    void Save_RFID_Click() { Transponder_Fragen(false); }
    void Search_RFID_Click() { Transponder_Fragen(true); }
    /// The key, with its data and channel, leaves its row. Does nothing where none stands; behind a message, when its
    /// channel cannot be read.
    void key_ausschneiden_Click();
    /// And comes into this one. Only once; a key that stands in another row by now is refused.
    void key_einfuegen_Click();

    // What comes back. The link has seen to it that it was asked for.
    void EKey_Ergebnis();
    void Finger_Kennung();
    /// The unit is done with a transponder; also when it has told of none.
    void Leser_Fertig();
    /// The reader refused. The operator is told elsewhere.
    void Leser_Abgelehnt() { Warten_Beenden(); }
    /// A key or transponder came that is nobody's any more: the status line says so.
    void Leser_Verspaetet();

    /// A transponder is awaited, and the window disabled.
    bool Wartet() const { return Wache.Running(); }

private:
    struct Clipboard {
        std::string Id, Data;
        KeyKanal Channel;
    };

    /// For whom a reader is asked, and how the adapters stood (AdapterListe::Stand) when it was made ready.
    struct Frage {
        F5Zeile Zeile;
        int Stand = 0;
    };

    /// Makes the reader ready for the row of the menu; what was asked before is owed to nobody any more. Nothing,
    /// behind a message, when there is no reader.
    std::optional<Frage> Bereitmachen(LeserPort which);
    /// Of the adapter that reads E-Keys; 0: unknown.
    int Version() const;
    void EKey_Fragen(const Frage& wanted, std::uint8_t mode, std::uint8_t wish);
    void EKey_Finden(std::uint8_t mode, std::uint8_t wish);
    void EKey_Anlernen();
    void EKey_Nachsehen();
    void Transponder_Fragen(bool search);
    void Transponder_Suchen(std::string_view id);
    void Slot_Freigeben(std::uint8_t slot);
    void Warten_Beenden();
    void Nachsehen();
    /// The first row of a user where this key stands; 0: none.
    int Zeile_Von(std::string_view id) const;
    /// The key goes to the row that was asked for, unless it is taken or somebody else stands there now.
    void Eintragen(const std::string& id, const std::string& data, int takenLine);
    void Ausgeschnittenes_Vergessen();
    /// An undo of the step under way says that the channel record, if it was written, stays.
    void Kanal_Bleibt(bool written);
    void Kanal_Melden(bool written);
    void Melden(int line, Icon sign = Icon::Information) const;

    Frage asked_;         ///< last, when the telegram went out
    bool search_ = false; ///< the transponder that is awaited is searched, not learned
    int waited_ = 0;      ///< seconds
    std::optional<Clipboard> cut_;
};

} // namespace qvm
