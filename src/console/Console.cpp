#include "Console.h"

#include "Steuerzeichen.h"
#include "Text.h"

#include <cstddef>
#include <nlohmann/json.hpp>
#include <ostream>
#include <sys/stat.h>

namespace qvm {

void Console::Ergebnis(const nlohmann::ordered_json& document) const {
    Out << Json_Text(document, 2) << '\n';
    Out.flush();
}

void Console::Meldung(std::string_view utf8) const {
    Err << Anzeigetext(utf8) << '\n';
    Err.flush();
}

ExitCode Console::Fehlschlag(std::string_view command, const std::vector<std::string>& messages) const {
    for (const std::string& message : messages) {
        Meldung(message);
    }
    if (Json) {
        Ergebnis(
            {{"command", command}, {"ok", false}, {"exit", static_cast<int>(ExitCode::Fault)}, {"messages", messages}});
    }
    return ExitCode::Fault;
}

std::string Umgebung::Datenverzeichnis_Fehler() const {
    const std::string directory = AppPath + "DAT";
    struct stat info {};
    if (::stat(directory.c_str(), &info) == 0 && S_ISDIR(info.st_mode)) {
        return {};
    }
    return "There is no directory " + directory + ".";
}

std::string Umgebung::Daten_Beanspruchen() const {
    const auto holder = Welt.ClaimData ? Welt.ClaimData(DatPfad()) : std::nullopt;
    return holder ? Besitz_Meldung(*holder) : std::string();
}

int Ausgabe_Abschliessen(std::ostream& out, std::ostream& err, int exitCode) {
    out.flush();
    if (out.good()) {
        return exitCode;
    }
    err << "Standard output cannot be written; not all of the result has arrived.\n";
    err.flush();
    return static_cast<int>(ExitCode::Fault);
}

std::string Besitzer_Text(const DataHolder& holder) {
    std::string text = holder.Program.empty() ? "another program" : NachUtf8(holder.Program);
    if (holder.Process > 0) {
        text += " (process " + std::to_string(holder.Process) + ")";
    }
    return holder.User.empty() ? text : text + " of user " + NachUtf8(holder.User);
}

std::string Besitz_Meldung(const DataHolder& holder) {
    return "The data files are in use by " + Besitzer_Text(holder) + ". Nothing was done.";
}

void Sperre_Holen(const DataLock& lock, const Console& console) {
    if (!lock.Try()) {
        console.Meldung("Waiting for " + Besitzer_Text(lock.Holder()) + ", which is at the data files.");
        lock.Wait();
    }
}

std::string Anzeigetext(std::string_view utf8) {
    return Steuerzeichen_Ersetzen_Utf8(utf8);
}

std::string Anzeige_Aus_1252(std::string_view cp1252) {
    return NachUtf8(Steuerzeichen_Ersetzen(cp1252));
}

std::string Json_Text(const nlohmann::ordered_json& document, int indent) {
    // A path of a file system need not be UTF-8.
    const std::string text = document.dump(indent, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
    std::string escaped;
    escaped.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto byte = static_cast<unsigned char>(text[at]);
        const auto next = static_cast<unsigned char>(at + 1 < text.size() ? text[at + 1] : '\0');
        if (byte == 0x7F) {
            escaped += "\\u007f";
        } else if (byte == 0xC2 && next <= 0x9F) {
            escaped += "\\u00" + HexText(next, 2);
            ++at;
        } else {
            escaped += text[at];
        }
    }
    return escaped;
}

} // namespace qvm
