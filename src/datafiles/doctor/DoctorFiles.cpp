#include "Beigaben.h"
#include "Check.h"
#include "Doctor.h"
#include "FileTrouble.h"
#include "Konfiguration.h"
#include "Tables.h"
#include "Text.h"
#include "Zeilen.h"

#include <algorithm>

namespace qvm {

namespace {

constexpr unsigned OwnerFolder = 0700, OwnerFile = 0600, OthersFile = 0007, OthersRead = 0004, OthersWrite = 0002;
constexpr std::size_t LinesOfLanguage = 300;

std::string Modus_Text(const DoctorWords& say, const PathFacts& path) {
    std::string mode = "0";
    for (const unsigned shift : {6U, 3U, 0U}) {
        mode += std::to_string((path.Mode >> shift) & 7U);
    }
    return say(Word::PcMode, {mode, path.Owner});
}

/// The owner's right back: a fix when the user of the program is the owner.
void Recht_Zurueck(DoctorLine& line, const PcFacts& facts, const DoctorWords& say, const PathFacts& path,
                   unsigned wanted) {
    line.Result = Verdict::Fault;
    line.Proof = say(path.Readable ? Word::PcCannotWrite : Word::PcCannotRead, {Modus_Text(say, path)});
    if (path.Own && (path.Mode & wanted) != wanted) {
        line.Fix = {.What = DoctorFix::Kind::Permissions, .Path = line.About, .More = wanted};
        line.ToDo = say(Word::PcRun, {std::string(path.Directory ? "chmod u+rwx " : "chmod u+rw ") + line.About});
    } else {
        line.ToDo = say(Word::PcRun, {"sudo chown " + facts.User + " " + line.About});
    }
}

const PathFacts* Pfad(const PcFacts& facts, const std::string& name) {
    const auto found = facts.Paths.find(name);
    return found == facts.Paths.end() ? nullptr : &found->second;
}

DoctorLine Ordner(const PcFacts& facts, const DoctorFiles& files, const DoctorWords& say, const std::string& name) {
    DoctorLine line{.Check = "folder", .About = name};
    const PathFacts* const path = Pfad(facts, name);
    if (path == nullptr || !path->Told) {
        line.Result = Verdict::Untold;
        line.Proof = say(Word::PcPathUntold);
    } else if (!path->There) {
        line.Result = Verdict::Fault;
        line.Proof = say(Word::PcNotIn, {files.AppPath});
        line.ToDo = say(Word::PcStartOnce);
        const PathFacts* const data = Pfad(facts, "DAT");
        if (name != "DAT" && data != nullptr && data->There) { // a mistyped directory has neither
            line.ToDo = say(Word::PcMakeIt, {name});
            line.Fix = {.What = DoctorFix::Kind::MakeDirectory, .Path = name};
        }
    } else if (!path->Directory) {
        line.Result = Verdict::Fault;
        line.Proof = say(Word::PcNoDirectory);
        line.ToDo = say(Word::PcMoveAway);
    } else if (!path->Readable || !path->Writable) {
        Recht_Zurueck(line, facts, say, *path, OwnerFolder);
    } else {
        line.Proof = say(Word::PcFolderGood, {files.AppPath});
        if ((path->Mode & OthersWrite) != 0) {
            line.Result = Verdict::Note;
            line.Proof = say(Word::PcAllMayWrite, {Modus_Text(say, *path)});
            line.ToDo = say(Word::PcRun, {"chmod o-w " + name});
            line.Fix = {.What = DoctorFix::Kind::Permissions, .Path = name, .Less = OthersWrite};
        }
    }
    return line;
}

/// What check says of the file in one line.
void Befunde_Eintragen(DoctorLine& line, const DoctorWords& say, const std::vector<const Finding*>& found) {
    const auto damaged = std::find_if(found.begin(), found.end(),
                                      [](const Finding* finding) { return finding->Kind == FindingKind::Damaged; });
    const bool broken = damaged != found.end();
    line.Result = broken ? Verdict::Fault : Verdict::Note;
    line.Proof = say(broken ? Word::PcDamaged : Word::PcDoubtful, {Befund_Text(broken ? **damaged : *found.front())});
    if (found.size() > 1) {
        line.Proof = say(Word::PcAndMore, {line.Proof, std::to_string(found.size() - 1)});
    }
    line.ToDo = say(broken ? Word::PcBackup : Word::PcMendInWindow);
}

DoctorLine Datei(const PcFacts& facts, const DoctorWords& say, std::string_view check, std::string_view file,
                 const std::vector<const Finding*>& found) {
    DoctorLine line{.Check = check, .About = "DAT/" + std::string(file)};
    const PathFacts* const path = Pfad(facts, line.About);
    if (path != nullptr && path->There && !path->Directory && (!path->Readable || !path->Writable)) {
        Recht_Zurueck(line, facts, say, *path, OwnerFile);
    } else if (!found.empty()) {
        Befunde_Eintragen(line, say, found);
    } else if (path == nullptr || !path->There) {
        line.Proof = say(Word::PcNotYet);
    } else {
        line.Proof = say(Word::PcInOrder);
        if ((path->Mode & OthersRead) != 0) {
            line.Result = Verdict::Note;
            line.Proof = say(Word::PcAllMayRead, {Modus_Text(say, *path)});
            line.ToDo = say(Word::PcRun, {"chmod o-rwx " + line.About});
            line.Fix = {.What = DoctorFix::Kind::Permissions, .Path = line.About, .Less = OthersFile};
        }
    }
    return line;
}

std::vector<const Finding*> Zur_Tabelle(const std::vector<Finding>& findings, std::string_view table) {
    std::vector<const Finding*> found;
    for (const Finding& finding : findings) {
        if (finding.Table == table) {
            found.push_back(&finding);
        }
    }
    return found;
}

DoctorLine Sprachdatei(const DoctorFiles& files, const DoctorWords& say, std::string_view language, bool inUse) {
    DoctorLine line{.Check = "language", .About = "QVM_" + std::string(language) + ".DAT", .Proof = say(Word::PcWhole)};
    std::string bytes;
    const ReadStatus status =
        files.Files.ReadAll(Beigabe_Pfad(files.Files, files.AppPath, files.ProgramFiles, line.About), bytes);
    const std::size_t count = Zeilen_Lesen(bytes).size();
    if (status == ReadStatus::Ok && count == LinesOfLanguage) {
        return line;
    }
    line.Result = inUse ? Verdict::Fault : Verdict::Note;
    line.ToDo = say(Word::PcCopyAnew);
    if (status == ReadStatus::Missing) {
        line.Proof = say(Word::PcMissing);
    } else if (status == ReadStatus::Error) {
        line.Proof = say(Word::PcCannotRead, {FileFault_English(Lesefehler(files.Files))});
    } else {
        line.Proof = say(Word::PcLines, {std::to_string(count), std::to_string(LinesOfLanguage)});
    }
    if (inUse) {
        line.Proof = say(Word::PcLanguageUsed, {line.Proof});
    }
    return line;
}

/// The language that the settings name; German when they name none, as the program takes it.
std::string Gewaehlte_Sprache(const DoctorFiles& files) {
    std::string bytes;
    const bool there = files.Files.ReadAll(files.AppPath + "DAT/" + std::string(SettingsFile), bytes) == ReadStatus::Ok;
    const std::vector<std::string> lines = there ? Zeilen_Lesen(bytes) : std::vector<std::string>{};
    const std::string name(lines.empty() ? std::string_view() : Trim(lines.front()));
    return name.empty() ? "Deutsch" : name;
}

} // namespace

void Dateien_Befragen(const PcFacts& facts, const DoctorFiles& files, const DoctorWords& say,
                      std::vector<DoctorLine>& lines) {
    lines.push_back(Ordner(facts, files, say, "DAT"));
    const bool unseen = lines.back().Result == Verdict::Fault && lines.back().Fix.What != DoctorFix::Kind::None;
    lines.push_back(Ordner(facts, files, say, "HIST"));
    const PathFacts* const data = Pfad(facts, "DAT");
    if (data == nullptr || !data->There || !data->Readable || unseen) {
        // Not "is not there yet": nobody has looked.
        for (const std::string_view check : {"configuration", "file"}) {
            lines.push_back({.Check = check, .Result = Verdict::Untold, .Proof = say(Word::PcNoFolder)});
        }
    } else {
        const std::vector<Finding> findings = Daten_Pruefen(files.Files, files.AppPath + "DAT/");
        for (const std::string_view file : {SettingsFile, AdapterSettingsFile}) {
            lines.push_back(Datei(facts, say, "configuration", file, Zur_Tabelle(findings, file)));
        }
        for (const RecordLayout* layout : Satztabellen()) {
            lines.push_back(Datei(facts, say, "file", layout->File, Zur_Tabelle(findings, layout->Name)));
        }
        for (const LineFile& entry : Zeilendateien()) {
            if (entry.File != SettingsFile && entry.File != AdapterSettingsFile) {
                lines.push_back(Datei(facts, say, "file", entry.File, Zur_Tabelle(findings, entry.File)));
            }
        }
    }
    const std::string chosen = Gewaehlte_Sprache(files);
    for (const std::string_view language : {"Deutsch", "English", "Francais", "Nederlands"}) {
        lines.push_back(Sprachdatei(files, say, language, language == chosen));
    }
}

} // namespace qvm
