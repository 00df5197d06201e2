#include "Handbuch.h"

#include "Kern.h"
#include "Text.h"
#include "Words.h"
#include "Worte.h"

#include <algorithm>
#include <string>

namespace qvm {
namespace {

struct Handbuch {
    std::string_view Language, File;
};

/// The first stands for any other language, too.
constexpr std::array<Handbuch, 4> Manuals{{{"Deutsch", "QVM_System_de.pdf"},
                                           {"English", "QVM_System_en.pdf"},
                                           {"Francais", "QVM_System_fr.pdf"},
                                           {"Nederlands", "QVM_System_nl.pdf"}}};

std::string Handbuch_Datei(std::string_view language) {
    const auto* const found = std::find_if(Manuals.begin(), Manuals.end(),
                                           [language](const Handbuch& manual) { return manual.Language == language; });
    return std::string(found == Manuals.end() ? Manuals.front().File : found->File);
}

std::string Fehlt_Text(const Kern& kern, const std::string& file) {
    std::string text = Wort(kern, Line::FileNotFound, "Datei nicht gefunden:") + " " + file + "\r\n\r\n" +
                       Wort(kern, Word::LookedForIn) + "\r\n" + AusUtf8(kern.AppPath);
    if (!kern.Welt.ProgramFiles.empty()) {
        text += "\r\n" + AusUtf8(kern.Welt.ProgramFiles);
    }
    return text;
}

/// At the destination if the system's viewer can be told of one, otherwise as any file is opened.
bool Anzeigen(const Kern& kern, const std::string& path, const std::string& destination) {
    if (!destination.empty() && kern.Welt.OpenDocumentAt && kern.Welt.OpenDocumentAt(path, destination)) {
        return true;
    }
    return kern.Welt.OpenWithLinkedApp(path, kern.AppPath);
}

} // namespace

std::string_view Handbuch_Kapitel(std::string_view window) {
    const auto* const found = std::find_if(HandbuchKapitelListe.begin(), HandbuchKapitelListe.end(),
                                           [window](const HandbuchKapitel& row) { return row.Window == window; });
    return found == HandbuchKapitelListe.end() ? std::string_view() : found->Destination;
}

void Handbuch_Oeffnen(const Kern& kern, std::string_view destination) {
    const std::string file = Handbuch_Datei(Trim(kern.Config.Sprache));
    const std::string path = kern.Beigabe(file);
    if (!kern.Welt.Files.Datei_Vorhanden(path)) {
        kern.Meldung(Fehlt_Text(kern, file), Buttons::Ok, Icon::Exclamation);
    } else if (!Anzeigen(kern, path, std::string(destination))) {
        kern.Meldung(Wort(kern, Line::CannotOpen, u8"Kann nicht geöffnet werden:"_w) + " " + file, Buttons::Ok,
                     Icon::Exclamation);
    }
}

} // namespace qvm
