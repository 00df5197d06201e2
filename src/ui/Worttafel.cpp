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

constexpr std::array<Row, 15> Rows{{
    {Word::Yes, {"&Ja", "&Yes", "&Oui", "&Ja"}},
    {Word::No, {"&Nein", "&No", "&Non", "&Nee"}},
    {Word::LightRed, {"Nicht verbunden", "Not connected", "Non connecté", "Niet verbonden"}},
    {Word::LightYellow,
     {"Funkadapter wird gesucht", "Searching the wireless adapter", "Recherche de l'adaptateur radio",
      "Radioadapter wordt gezocht"}},
    {Word::LightGreen, {"Bereit", "Ready", "Prêt", "Gereed"}},
    {Word::Version, {"Version", "Version", "Version", "Versie"}},
    {Word::Cipher, {"Verschlüsselung", "Cipher", "Chiffrement", "Versleuteling"}},
    {Word::DataDirectory, {"Datenverzeichnis", "Data folder", "Dossier des données", "Gegevensmap"}},
    {Word::Libraries, {"Bibliotheken", "Libraries", "Bibliothèques", "Bibliotheken"}},
    {Word::AdapterPresent, {"angeschlossen", "connected", "connecté", "aangesloten"}},
    {Word::AdapterAbsent, {"nicht angeschlossen", "not connected", "non connecté", "niet aangesloten"}},
    {Word::SerialPort, {"Anschluss", "Port", "Port", "Poort"}},
    {Word::RadioChannel, {"Funkkanal", "Radio channel", "Canal radio", "Radiokanaal"}},
    {Word::LanguageName, {"Sprache", "Language", "Langue", "Taal"}},
    {Word::KeyBar, {"Symbolleiste", "Toolbar", "Barre d'outils", "Werkbalk"}},
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
