#include "Dateinamen.h"
#include "FileTrouble.h"
#include "Import.h"
#include "ImportAngleichen.h"
#include "Text.h"

namespace qvm {

namespace {

/// A file about to be replaced, and what it held.
struct Vorgang {
    const ImportFile* New;
    std::string NewBytes;
    std::string OldBytes;
    bool Existed;
};

std::string Sicherung_Verzeichnis(const FileStore& files, const std::string& directory, const DateTime& now) {
    const std::string stem = directory + std::string(BackupPrefix) + Ziffern(now.Year, 4) + Ziffern(now.Month, 2) +
                             Ziffern(now.Day, 2) + "-" + Ziffern(now.Hour, 2) + Ziffern(now.Minute, 2) +
                             Ziffern(now.Second, 2);
    std::string name = stem;
    // A second import within the same second must not overwrite the first one's copies.
    for (int n = 2; n < 100 && !files.List(name).empty(); ++n) {
        name = stem + "-" + std::to_string(n);
    }
    return name + "/";
}

/// What has to be replaced. False when a file that is there cannot be read: without a copy nothing is touched.
bool Vorlesen(const FileStore& files, const std::string& directory, const ImportPlan& plan, std::vector<Vorgang>& steps,
              ImportReport& report) {
    for (const ImportFile& file : plan.Files) {
        Vorgang step{.New = &file, .NewBytes = file.Bytes, .OldBytes = {}, .Existed = false};
        const ReadStatus status = files.ReadAll(directory + file.Name, step.OldBytes);
        if (status == ReadStatus::Error) {
            report.Faults.push_back(FileTrouble_English({.File = file.Name, .Fault = Lesefehler(files)}) +
                                    "; no copy of it can be kept");
            return false;
        }
        step.Existed = status == ReadStatus::Ok;
        if (step.Existed) {
            step.NewBytes = Import_Angleichen(file, step.OldBytes);
        }
        if (step.Existed && step.OldBytes == step.NewBytes) {
            report.Unchanged.push_back(file.Name);
        } else {
            steps.push_back(std::move(step));
        }
    }
    return true;
}

bool Sichern(const FileStore& files, const std::string& directory, const DateTime& now,
             const std::vector<Vorgang>& steps, ImportReport& report) {
    for (const Vorgang& step : steps) {
        if (!step.Existed) {
            continue;
        }
        if (report.Backup.empty()) {
            report.Backup = Sicherung_Verzeichnis(files, directory, now);
            if (!files.MakeDirectory(report.Backup)) {
                report.Faults.push_back("the directory " + report.Backup + " cannot be made");
                report.Backup.clear();
                return false;
            }
        }
        if (!files.Replace(report.Backup + step.New->Name, step.OldBytes)) {
            report.Faults.push_back("the copy of " + step.New->Name + " cannot be written to " + report.Backup);
            return false;
        }
    }
    return true;
}

void Zuruecksetzen(const FileStore& files, const std::string& directory, const std::vector<Vorgang>& steps,
                   std::size_t done, ImportReport& report) {
    for (std::size_t n = done; n-- > 0;) {
        const Vorgang& step = steps[n];
        const std::string path = directory + step.New->Name;
        const bool good = step.Existed ? files.Replace(path, step.OldBytes) : files.Remove(path);
        report.Faults.push_back(step.New->Name + (good ? " holds again what it held before"
                                                  : step.Existed
                                                      ? " could not be put back; its copy is in " + report.Backup
                                                      : std::string(" is new and could not be removed")));
    }
}

} // namespace

ImportReport Import_Schreiben(const FileStore& files, const std::string& directory, const DateTime& now,
                              const ImportPlan& plan) {
    ImportReport report;
    if (!plan.Faults.empty()) {
        report.Faults.emplace_back("the document has faults");
        return report;
    }
    if (!files.MakeDirectory(directory)) {
        report.Faults.push_back("the directory " + directory + " cannot be made");
        return report;
    }
    std::vector<Vorgang> steps;
    if (!Vorlesen(files, directory, plan, steps, report) || !Sichern(files, directory, now, steps, report)) {
        return report;
    }
    for (std::size_t n = 0; n < steps.size(); ++n) {
        const Vorgang& step = steps[n];
        if (!files.Replace(directory + step.New->Name, step.NewBytes)) {
            report.Faults.push_back(step.New->Name + " cannot be written");
            Zuruecksetzen(files, directory, steps, n, report);
            report.Replaced.clear();
            report.Created.clear();
            return report;
        }
        (step.Existed ? report.Replaced : report.Created).push_back(step.New->Name);
    }
    report.Done = true;
    return report;
}

} // namespace qvm
