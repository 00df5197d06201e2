#include "Worttafel.h"

#include "Text.h"
#include "TextSlots.h"

#include <algorithm>
#include <array>

namespace qvm::ui {
namespace {

struct Row {
    Word Which;
    std::array<const char*, SprachNamen.size()> Texts; ///< in the order of SprachNamen, UTF-8
};

constexpr std::array<Row, 27> Rows{{
    {Word::Yes, {"&Ja", "&Yes", "&Oui", "&Ja"}},
    {Word::No, {"&Nein", "&No", "&Non", "&Nee"}},
    {Word::LightRed, {"Nicht verbunden", "Not connected", "Non connecté", "Niet verbonden"}},
    {Word::LightYellow,
     {"Funkadapter wird gesucht", "Searching the wireless adapter", "Recherche de l'adaptateur radio",
      "Radioadapter wordt gezocht"}},
    {Word::LightGreen, {"Bereit", "Ready", "Prêt", "Gereed"}},
    {Word::Cipher, {"Verschlüsselung", "Cipher", "Chiffrement", "Versleuteling"}},
    {Word::DataDirectory, {"Datenverzeichnis", "Data folder", "Dossier des données", "Gegevensmap"}},
    {Word::Libraries, {"Bibliotheken", "Libraries", "Bibliothèques", "Bibliotheken"}},
    {Word::LicenceTexts,
     {"Lizenztexte: bei den Paketen des Systems", "Licence texts: with the system's packages",
      "Textes des licences : avec les paquets du système", "Licentieteksten: bij de pakketten van het systeem"}},
    {Word::AdapterPresent, {"angeschlossen", "connected", "connecté", "aangesloten"}},
    {Word::AdapterAbsent, {"nicht angeschlossen", "not connected", "non connecté", "niet aangesloten"}},
    {Word::Adapter, {"Funkadapter", "Wireless adapter", "Adaptateur radio", "Radioadapter"}},
    {Word::KeyBar, {"Symbolleiste", "Toolbar", "Barre d'outils", "Werkbalk"}},
    {Word::Locks, {"Schlösser", "Locks", "Serrures", "Sloten"}},
    {Word::LockList, {"Schlossliste", "List of locks", "Liste des serrures", "Lijst van sloten"}},
    {Word::Progress, {"Fortschritt", "Progress", "Progression", "Voortgang"}},
    {Word::Activity, {"Datenaustausch", "Data exchange", "Échange de données", "Gegevensuitwisseling"}},
    {Word::ChannelSearch, {"Kanalsuche", "Channel search", "Recherche du canal", "Kanaal zoeken"}},
    {Word::ChannelPending, {"noch umzustellen", "still to be changed", "à modifier", "nog te wijzigen"}},
    {Word::ChannelSettled, {"eingestellt", "set", "réglé", "ingesteld"}},
    {Word::PreviousMonth, {"Vorheriger Monat", "Previous month", "Mois précédent", "Vorige maand"}},
    {Word::NextMonth, {"Nächster Monat", "Next month", "Mois suivant", "Volgende maand"}},
    {Word::Month, {"Monat", "Month", "Mois", "Maand"}},
    {Word::Year, {"Jahr", "Year", "Année", "Jaar"}},
    {Word::Days, {"Tage", "Days", "Jours", "Dagen"}},
    {Word::Hours, {"Stunden", "Hours", "Heures", "Uren"}},
    {Word::Minutes, {"Minuten", "Minutes", "Minutes", "Minuten"}},
}};

} // namespace

QString word(Word which, std::string_view language) {
    const auto* const name = std::find(SprachNamen.begin(), SprachNamen.end(), Trim(language));
    const auto column = name == SprachNamen.end() ? 0 : static_cast<std::size_t>(name - SprachNamen.begin());
    const auto* const row =
        std::find_if(Rows.begin(), Rows.end(), [which](const Row& candidate) { return candidate.Which == which; });
    return row == Rows.end() ? QString() : QString::fromUtf8(row->Texts[column]);
}

} // namespace qvm::ui
