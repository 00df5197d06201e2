#pragma once

#include "DoctorFix.h"
#include "FileStore.h"
#include "PcFacts.h"
#include "Words.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

/// From the best to the worst, but for Untold, which is never good: what could not be looked at.
enum class Verdict { Good, Note, Fault, Untold };

/// "good", "note", "fault", "untold".
std::string_view Verdict_Name(Verdict verdict);

/// One check. Texts are in the language of the report, UTF-8, without full stop, and hold no code of a user or lock.
struct DoctorLine {
    std::string_view Check; ///< "adapter", "right", "holder", ... see docs/console.md
    std::string About{};    ///< what of several is meant: a port, a file; may be empty
    Verdict Result = Verdict::Good;
    std::string Proof{}; ///< what was found
    std::string ToDo{};  ///< the one thing to do; empty when there is none
    DoctorFix Fix{};
};

/// The program's words as they stand in a report: UTF-8, in one language.
class DoctorWords {
public:
    /// `language`: as the configuration names it; German for any other.
    explicit DoctorWords(std::string_view language) : language_(language) {}
    /// `places` are UTF-8, too, and fill the word as Ausfuellen says.
    std::string operator()(Word which, std::initializer_list<std::string_view> places = {}) const;

private:
    std::string language_;
};

/// What the verdict and the check of a line are called; a check that is none: an empty text.
std::string Urteil_Text(const DoctorWords& say, Verdict verdict);
std::string Pruefung_Text(const DoctorWords& say, std::string_view check);

/// What a look at the data files needs.
struct DoctorFiles {
    const FileStore& Files;
    std::string AppPath;      ///< with a trailing separator
    std::string ProgramFiles; ///< as Platform has it
};

/// All checks of the PC, in the order in which they are shown. Reads files, writes and opens nothing else.
std::vector<DoctorLine> Doctor_Pruefen(const PcFacts& facts, const DoctorFiles& files, const DoctorWords& say);

/// The worst of them: Fault, else Note for what is worth knowing or could not be told, else Good.
Verdict Doctor_Urteil(const std::vector<DoctorLine>& lines);

// The groups of checks, each in a file of its own.
void Port_Befragen(const PcFacts& facts, const DoctorWords& say, std::vector<DoctorLine>& lines);
void Pc_Befragen(const PcFacts& facts, const DoctorWords& say, std::vector<DoctorLine>& lines);
void Dateien_Befragen(const PcFacts& facts, const DoctorFiles& files, const DoctorWords& say,
                      std::vector<DoctorLine>& lines);

} // namespace qvm
