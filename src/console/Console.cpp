#include "Console.h"

#include "Text.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>
#include <sys/stat.h>

namespace qvm {

void Console::Ergebnis(const nlohmann::ordered_json& document) const {
    // A path of a file system need not be UTF-8.
    Out << document.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << '\n';
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

std::string Anzeigetext(std::string_view utf8) {
    std::string text(utf8);
    std::replace_if(
        text.begin(), text.end(),
        [](char c) {
            const auto byte = static_cast<unsigned char>(c);
            return byte < 0x20 || byte == 0x7F;
        },
        ' ');
    return text;
}

std::string Anzeige_Aus_1252(std::string_view cp1252) {
    // The undefined bytes of the code page become the control characters of the same number.
    std::string text(cp1252);
    std::replace_if(
        text.begin(), text.end(),
        [](char c) { return std::string_view("\x81\x8D\x8F\x90\x9D").find(c) != std::string_view::npos; }, '?');
    return Anzeigetext(NachUtf8(text));
}

} // namespace qvm
