#pragma once

#include "Antwort_Verteilen.h"
#include "VirtualPlatform.h"

#include <cstdint>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace qvm::test {

/// A link whose every hook writes its name down, and whose port remembers the telegrams.
struct DispatcherFixture : ::testing::Test {
    VirtualPlatform world;
    Kern kern{world.World};
    Link link{kern};
    std::vector<std::string> Called;

    DispatcherFixture() {
        link.PortNummer = 1;
        kern.Config.RadioChannel = "7";
        Port_Oeffnen(link, 1);
        link.Lauf.Chain.Phase = RunPhase::Open;
        link.Hooks = Recorder();
    }

    /// The device replies: code, then the bytes from index 3 on.
    void Reply(std::uint8_t code, std::vector<std::uint8_t> bytes = {}) {
        Called.clear();
        world.Written.clear();
        auto& rx = link.Rx;
        rx.RxBuffer.fill(0);
        rx.RxBuffer[0] = 0x02;
        // The byte behind the last summed one is a reply byte, too.
        rx.RxBuffer[1] = static_cast<std::uint8_t>(2 + bytes.size());
        rx.RxBuffer[2] = code;
        for (std::size_t n = 0; n < bytes.size(); ++n) {
            rx.RxBuffer[3 + n] = bytes[n];
        }
        rx.RxLength = rx.RxBuffer[1];
        rx.FrameSize = rx.RxLength + 2;
        Antwort_Verteilen(link);
    }
    /// A reply whose byte 14 is `status`.
    void ReplyStatus(std::uint8_t code, std::uint8_t status) {
        Reply(code, {1, 1, 1, 1, 0x0A, 0x0B, 0x0C, 0x0D, 0, 0, 0, status});
    }

    /// Codes of the telegrams sent since the reply, taken off the wire by hand.
    std::vector<int> Sent() const {
        std::vector<int> codes;
        const auto& w = world.Written;
        std::size_t at = 0;
        while (at + 2 < w.size()) {
            codes.push_back(w[at + 2]);
            const std::size_t length = w[at + 1];
            std::size_t index = 2;
            at += 2;
            while (index <= length + 1 && at < w.size()) {
                at += w[at] == 0x02 ? 2 : 1;
                ++index;
            }
        }
        return codes;
    }
    /// Byte `index` of the first telegram sent (none of those looked at holds 0x02 before it).
    int SentByte(std::size_t index) const { return index < world.Written.size() ? world.Written[index] : -1; }

private:
    LinkHooks Recorder();
};

#define QVM_NOTE(name) .name = [this] { Called.push_back(#name); }

inline LinkHooks DispatcherFixture::Recorder() {
    return LinkHooks{
        .Telegramm_Geht = {},
        .Antwort_Gekommen = {},
        QVM_NOTE(Anmeldung_Abgelehnt),
        QVM_NOTE(Suche_Abgelehnt),
        QVM_NOTE(Unit_Abgelehnt),
        QVM_NOTE(Suchlauf_Schritt),
        QVM_NOTE(Kanal_Setzen_Planen),
        QVM_NOTE(Kanal_Gesetzt),
        QVM_NOTE(Historie_Anzeigen),
        QVM_NOTE(Historie_Eintrag),
        QVM_NOTE(Historie_Fertig),
        QVM_NOTE(Abfrage_Starten),
        QVM_NOTE(Abfrage_Stoppen),
        QVM_NOTE(Zeitfenster),
        QVM_NOTE(ReaderEinstellung),
        QVM_NOTE(Schaltuhr_A),
        QVM_NOTE(Schaltuhr_A_Kurz),
        QVM_NOTE(Schaltuhr_B),
        QVM_NOTE(Schaltuhr_B_Kurz),
        QVM_NOTE(EinzelFeiertage),
        QVM_NOTE(PermFeiertage),
        QVM_NOTE(Benutzer_Beginnen),
        QVM_NOTE(Benutzer_Slot),
        QVM_NOTE(Benutzer_Name2),
        QVM_NOTE(Benutzer_Daten),
        QVM_NOTE(Id_Daten1),
        QVM_NOTE(Id_Daten2),
        QVM_NOTE(Benutzer_Zeitgruppen),
        QVM_NOTE(Daten_Schluss),
        QVM_NOTE(Zweiter_Durchgang),
        QVM_NOTE(Schloss_Ende),
        QVM_NOTE(Kanalwechsel_Ende),
        QVM_NOTE(Abbruch),
        QVM_NOTE(Unit_Fertig),
        QVM_NOTE(Unit_Getrennt),
        QVM_NOTE(Unit_Bloecke_Start),
        QVM_NOTE(Unit_Block_Quittung),
        QVM_NOTE(Unit_Gefunden),
        QVM_NOTE(Unit_Kanal_Leer),
        QVM_NOTE(Code_Ergebnis),
        QVM_NOTE(Unit_Datenstart_Wiederholen),
        QVM_NOTE(Unit_Naechster_Kanal),
        QVM_NOTE(Unit_Fehlgeschlagen),
        QVM_NOTE(Unit_Kein_Kontakt),
        QVM_NOTE(Kanal_Weiter),
        QVM_NOTE(Kein_Kontakt),
        QVM_NOTE(Abgelehnt),
        QVM_NOTE(Key_Abgelehnt),
        QVM_NOTE(Trennen_Aufgegeben),
        QVM_NOTE(Karte_Abgelehnt),
        QVM_NOTE(Adapter_Erkannt),
        QVM_NOTE(Adapter_Daten),
        QVM_NOTE(Karte_Quittung),
        QVM_NOTE(Karte_Start),
        QVM_NOTE(Karte_Block),
        QVM_NOTE(EKey_Ergebnis),
        QVM_NOTE(Finger_Schritt),
        QVM_NOTE(Finger_Daten),
        QVM_NOTE(Finger_Kennung),
        .Fortschritt = [] {},
    };
}

#undef QVM_NOTE

} // namespace qvm::test
