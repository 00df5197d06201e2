#pragma once

#include "DataLock.h"
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
    Noted = 5,      ///< no fault, but something that is worth knowing, or that could not be told
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
    /// Takes the right to write the data files. Empty when it was had, otherwise a message that says who has it.
    std::string Daten_Beanspruchen() const;
};

/// "qvm7702 (process 4711) of user anna", as far as it is known.
std::string Besitzer_Text(const DataHolder& holder);

/// The sentence with which a command is refused that may write, beside another program that may.
std::string Besitz_Meldung(const DataHolder& holder);

/// Waits until files that belong together can be read, or replaced, as `lock` says; says so when that is not at once.
void Sperre_Holen(const DataLock& lock, const Console& console);

/// The end of a program that exits with `exitCode`: ExitCode::Fault and a word on `err` when `out` did not take all.
int Ausgabe_Abschliessen(std::ostream& out, std::ostream& err, int exitCode);

/// A document as text, control characters escaped, of which JSON itself leaves some as they are. Indent -1: one line.
std::string Json_Text(const nlohmann::ordered_json& document, int indent);

/// Text for a terminal: control characters replaced, so that a name from a file cannot steer it.
std::string Anzeigetext(std::string_view utf8);
/// The same from code page 1252.
std::string Anzeige_Aus_1252(std::string_view cp1252);

} // namespace qvm
