#pragma once

#include "Platform.h"

#include <iosfwd>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

/// How the program ends.
enum class ExitCode : int {
    Good = 0,       ///< all done
    Fault = 1,      ///< wrong use or a local fault; nothing was sent
    Refused = 2,    ///< the lock refused
    NotReached = 3, ///< the lock was not reached, or the run was given up
    SomeFailed = 4, ///< of several locks some failed
};

/// Where results, messages and progress go. Results go to `Out`, everything else to `Err`.
struct Console {
    std::ostream& Out;
    std::ostream& Err;
    bool Json = false;     ///< every result is one JSON document
    bool Terminal = false; ///< `Err` is a terminal: progress is a bar

    /// A result document, with line end.
    void Ergebnis(const nlohmann::ordered_json& document) const;
    /// One line of message; control characters are replaced.
    void Meldung(std::string_view utf8) const;
    /// A local fault that ends the command: its messages, and as a document when documents are wanted. Gives
    /// ExitCode::Fault.
    ExitCode Fehlschlag(std::string_view command, const std::vector<std::string>& messages) const;
};

/// What a command works on.
struct Umgebung {
    Platform& Welt;
    std::string AppPath; ///< with a trailing separator

    std::string DatPfad() const { return AppPath + "DAT/"; }
    /// Empty when there is a data directory, otherwise a message. A mistyped --dir must not look like an installation
    /// without data.
    std::string Datenverzeichnis_Fehler() const;
};

/// Text for a terminal: control characters replaced, so that a name from a file cannot steer it.
std::string Anzeigetext(std::string_view utf8);
/// The same from code page 1252.
std::string Anzeige_Aus_1252(std::string_view cp1252);

} // namespace qvm
