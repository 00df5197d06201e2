#include "Programm.h"

#include "Dateinamen.h"
#include "Migration.h"
#include "Words.h"

#include <Lines.h>

namespace qvm {

Programm::Programm(Platform& world, const std::string& directory)
    : kern(world), link(kern), Lauf(link), Netz(link, Lauf.Daten), F9(Lauf), F18(Lauf), F11(Lauf, F9, F18, Adapter),
      F13(Lauf, F11, Adapter), F91(Lauf, Netz, F9, Adapter), F92(kern), F1(kern), F2(link, Adapter), F6(link, Adapter),
      F7(kern), F8(F7), F14(kern), F15(kern) {
    kern.AppPath = directory;
    if (kern.AppPath.empty() || kern.AppPath.back() != '/') {
        kern.AppPath += '/';
    }
    Ansicht_Verbinden();
    Fenster_Verbinden();
    Hauptfenster_Verbinden();
    Haken_Verbinden();
    Liste_Verbinden();
    Liste_Ansicht_Verbinden();
}

void Programm::Ansicht_Verbinden() {
    Lauf.Ansicht = RunView{
        .Fortschritt = [this] { F9.Fortschritt(); },
        .F9_Zeigen = [this] { F9.Im_Lauf_Zeigen(); },
        .Status = [this](int line) { F9.Status_Zeigen(line); },
        .Fertig = [this](int line) { F9.Lauf_Fertig(line); },
        .F9_Schliessen_Freigeben = [this] { F9.Schliessen_Freigeben(); },
        .Historie_Beschriften = [this] { F9.Status_Zeigen(Line::ReadingHistory); },
        .Zustand = [this](std::uint8_t state, const std::string& text) { F9.Zustand_Zeigen(state, text); },
        .Kaestchen = [this](int box) { F9.Ankreuzen(box); },
        .Kaestchen_Beschriften = [this](int box, const std::string& text) { F9.Kaestchen_Beschriften(box, text); },
        .Wartebox_Zeigen = [this] { F18.F18_Zeigen(); },
        .Wartebox_Schliessen = [this] { F18.F18_Schliessen(); },
        .Wartebox_Balken = [this](int value) { F18.Balken.Value = value; },
        .Wartebox_Text =
            [this](int line) {
                F18.Text_Zeigen(line);
                F9.Status_Zeigen(line);
            },
        .Zum_Schlossgitter =
            [this] {
                F9.F9_Schliessen();
                F18.F18_Schliessen();
                F13.Hinter_Lauf_Freigeben();
            },
        .Schlossgitter_Freigeben = [this] { F13.F13_Freigeben(); },
        .Historie_Oeffnen =
            [this](const std::string& path) {
                if (F7_Oeffnen) {
                    F7_Oeffnen(path);
                }
            },
        .Hauptfenster_Freigeben = [this] { F2.F2_Freigeben(); },
    };
}

void Programm::Fenster_Verbinden() {
    F9.F13_Freigeben = [this] { F13.Hinter_Lauf_Freigeben(); };
    F18.F9_Zeigen = [this] { F9.Suche_Endet(); };
    F11.Zurueck = [this] { F13.F11_Verlassen(); };
    F11.Marke_Loeschen = [this](int row) { F13.Marke_Setzen(row, false); };
}

void Programm::Haken_Verbinden() {
    Lauf_Haken_Setzen(Lauf, link.Hooks);
    LinkHooks& hooks = link.Hooks;
    hooks.Suchlauf_Schritt = [this] { Rufen(Fensterhaken.Suchlauf_Schritt); };
    hooks.Unit_Gefunden = [this] { Rufen(Fensterhaken.Unit_Gefunden); };
    hooks.Unit_Kanal_Leer = [this] { Rufen(Fensterhaken.Unit_Kanal_Leer); };
    hooks.Adapter_Erkannt = [this] {
        F2.Adapter_Erkannt();
        Rufen(Fensterhaken.Adapter_Erkannt);
    };
    hooks.Adapter_Daten = [this] { Rufen(Fensterhaken.Adapter_Daten); };
    hooks.Karte_Quittung = [this] { Rufen(Fensterhaken.Karte_Quittung); };
    hooks.Karte_Start = [this] { Rufen(Fensterhaken.Karte_Start); };
    hooks.Karte_Block = [this] { Rufen(Fensterhaken.Karte_Block); };
    hooks.EKey_Ergebnis = [this] { Rufen(Fensterhaken.EKey_Ergebnis); };
    hooks.Finger_Schritt = [this] { Rufen(Fensterhaken.Finger_Schritt); };
    hooks.Finger_Daten = [this] { Rufen(Fensterhaken.Finger_Daten); };
    hooks.Finger_Kennung = [this] { Rufen(Fensterhaken.Finger_Kennung); };
}

namespace {

/// False when another program may write the data files.
bool Daten_Beanspruchen(Programm& programm) {
    const Kern& kern = programm.kern;
    const auto holder = kern.Welt.ClaimData ? kern.Welt.ClaimData(kern.DatPfad()) : std::nullopt;
    programm.Datenbesitzer = holder.value_or(DataHolder{});
    return !holder;
}

} // namespace

StartResult Programm_Start(Programm& programm, bool claimInstance) {
    Kern& kern = programm.kern;
    if (claimInstance && !kern.Welt.ClaimInstance()) {
        return StartResult::AlreadyRunning;
    }
    Globale_Defaults(kern.Globals);
    if (!kern.Welt.Files.MakeDirectory(kern.AppPath + "DAT") || !kern.Welt.Files.MakeDirectory(kern.AppPath + "HIST")) {
        return StartResult::NoDirectory;
    }
    const bool mayWrite = Daten_Beanspruchen(programm);
    if (mayWrite) {
        Reste_Entfernen(kern.Welt.Files, kern.DatPfad());
        Sendelog_Entfernen(kern);
    }
    Konfiguration_Laden(kern);
    programm.link.PortNummer = kern.Config.PortNummer;
    Sprache_Defaults(kern.Sprache);
    if (Sprachdatei_Laden(kern) == SprachdateiStatus::Fehlt && !kern.Config.EinstellungenMangel.File.empty()) {
        // The name of the language is damaged, too. The operator needs words to put it right.
        kern.Config.Sprache = Konfiguration{}.Sprache;
        Sprachdatei_Laden(kern);
    }
    if (!mayWrite) {
        return StartResult::DataHeld;
    }
    Konfiguration_Verlangen(kern);
    // A conversion that fails loses nothing and is tried again at the next start.
    Dateien_Umstellen(kern);
    return StartResult::Started;
}

std::string Datenbesitzer_Text(const Programm& programm) {
    const DataHolder& holder = programm.Datenbesitzer;
    std::string who = holder.Program;
    if (holder.Process > 0) {
        who += (who.empty() ? "" : ", ") + std::to_string(holder.Process);
    }
    if (!holder.User.empty()) {
        who += (who.empty() ? "" : ", ") + holder.User;
    }
    return Wort(programm.kern, Word::DataHeld, {who.empty() ? Wort(programm.kern, Word::UnknownProgram) : who});
}

bool Programm_Ende(Programm& programm) {
    return Herunterfahren(programm.kern);
}

} // namespace qvm
