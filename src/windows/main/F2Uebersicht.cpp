// What the main window tells of adapter and installation, and where a click on it leads.

#include "F2.h"
#include "Portname.h"
#include "Text.h"
#include "Words.h"

namespace qvm {
namespace {

constexpr std::string_view Unread = "?";

std::string Adapter_Nennen(const AdapterSatz& adapter) {
    return adapter.Name + " (" + adapter.Adresse + ")";
}

} // namespace

void F2::Uebersicht_Lesen() {
    bestand_ = Hooks.Bestand_Lesen ? Hooks.Bestand_Lesen() : Bestand{};
    Uebersicht_Setzen();
}

void F2::Uebersicht_Setzen() {
    Zeile(Angabe::Adapter).Caption = Wort(kern, Word::FactAdapter);
    Zeile(Angabe::Anschluss).Caption = kern.Zeile(Line::Port);
    Zeile(Angabe::Funkkanal).Caption = kern.Zeile(Line::RadioChannel);
    Zeile(Angabe::Personen).Caption = Wort(kern, Word::FactPeople);
    Zeile(Angabe::Schloesser).Caption = Wort(kern, Word::FactLocks);
    Zeile(Angabe::Kanalwechsel).Caption = Wort(kern, Word::FactChannelChanges);
    Zeile(Angabe::Funkkanal).Text = Ziffern(kern.Config.Funkkanal());
    Anschluss_Setzen();
    Anzahl_Setzen(Angabe::Personen, bestand_.Personen);
    Anzahl_Setzen(Angabe::Schloesser, bestand_.Schloesser);
    Anzahl_Setzen(Angabe::Kanalwechsel, bestand_.Kanalwechsel);
}

/// The adapter that runs go through; its tip names all that were found.
void F2::Anschluss_Setzen() {
    std::string text = Wort(kern, Word::FactNone);
    std::string all;
    for (const AdapterSatz& adapter : Adapter.Saetze) {
        all += (all.empty() ? "" : "\r\n") + Adapter_Nennen(adapter);
        if (adapter.Adresse == Adapter.ProgAdresse) {
            text = Adapter_Nennen(adapter);
        }
    }
    const std::size_t others = Adapter.Saetze.empty() ? 0 : Adapter.Saetze.size() - 1;
    Zeile(Angabe::Adapter).Text = others == 0 ? text : text + " + " + Ziffern(static_cast<int>(others));
    Zeile(Angabe::Adapter).Tip = others == 0 ? std::string() : all;
    const bool none = kern.Config.AdapterModus() && Adapter.PortListe.empty();
    Zeile(Angabe::Anschluss).Text = none ? Wort(kern, Word::FactNone) : Portname(kern.Welt, link.PortNummer);
}

void F2::Anzahl_Setzen(Angabe which, const Anzahl& number) {
    Zeile(which).Text = number.Wert ? Ziffern(*number.Wert) : std::string(Unread);
    Zeile(which).Tip = number.Wert ? std::string() : Wort(kern, Word::FileNotRead, {number.Datei});
}

void F2::Angabe_Click(Angabe which) {
    switch (which) {
    case Angabe::Adapter:
    case Angabe::Anschluss:
        F2_Schnittstelle_Click();
        break;
    case Angabe::Funkkanal:
        Toolbar1_ButtonClick("Neu");
        break;
    case Angabe::Personen:
        Toolbar1_ButtonClick("x1504");
        break;
    case Angabe::Schloesser:
    case Angabe::Kanalwechsel:
        Toolbar1_ButtonClick("PROG");
        break;
    }
}

void F2::Angaben_Freigeben() {
    for (const Angabe which : {Angabe::Adapter, Angabe::Anschluss}) {
        Zeile(which).Leads = Weg_Da("F6");
    }
    Zeile(Angabe::Funkkanal).Leads = Taste_Belegt("Neu");
    Zeile(Angabe::Personen).Leads = Taste_Belegt("x1504");
    for (const Angabe which : {Angabe::Schloesser, Angabe::Kanalwechsel}) {
        Zeile(which).Leads = Taste_Belegt("PROG");
    }
}

// ---- a search that takes its time

void F2::Suche_Beginnt() {
    ScanLaeuft = 1;
    Suchanzeige.Start();
}

void F2::Warten_Zeigen(bool on) {
    Suchanzeige.Stop();
    Suchzeile.Text = on ? Wort(kern, Word::SearchRunning) : std::string();
    for (ToolButton& button : Toolbar1) {
        button.Warum = Suchzeile.Text();
    }
    for (const Angabe which : {Angabe::Funkkanal, Angabe::Personen, Angabe::Schloesser, Angabe::Kanalwechsel}) {
        Zeile(which).Warum = Suchzeile.Text();
    }
}

// ---- the latest histories

void F2::Historien_Lesen() {
    historien_ = Hooks.Historien_Lesen ? Hooks.Historien_Lesen() : std::vector<Historiendatei>();
    for (std::size_t n = 0; n < Historien.size(); ++n) {
        // The digit is what the keyboard chooses it by.
        Historien[n].Text = n < historien_.size()
                                ? Ziffern(static_cast<int>((n + 1) % Historien.size())) + "  " + historien_[n].Text
                                : std::string();
    }
}

void F2::Historie_Click(std::size_t number) {
    if (!Da() || number >= historien_.size() || !Hooks.Historie_Oeffnen) {
        return;
    }
    const std::string path = historien_[number].Pfad;
    Oeffnen([this, path] { Hooks.Historie_Oeffnen(path); }, true, Weiter::Offen);
    if (Da() && !Timer2.Running() && ScanLaeuft == 0) {
        Timer2.Start();
    }
}

} // namespace qvm
