#include "Umstellung.h"

#include "Kern.h"
#include "Text.h"

#include <string>
#include <utility>

namespace qvm {

namespace {

constexpr int ZeileUmgestellt = 182;

/// The record in the new form. Fields are taken as they stand, 0x00 included: a reader stops there in both forms.
std::string Neuer_Satz(const Umstellung& step, std::string_view old) {
    std::string record;
    for (const RecordField& field : step.Target.Fields) {
        Feld_Schreiben(record, field, {});
    }
    for (const FieldCopy& copy : step.Copies) {
        Feld_Schreiben(record, copy.To, RTrim(Feld_Roh(old, copy.From)));
    }
    return record;
}

void Saetze_Uebertragen(const Umstellung& step, std::string source, RecordFile& target) {
    const std::size_t length = step.Source.Length;
    source.resize(length * static_cast<std::size_t>(step.Records), ' '); // what the source does not hold is blank
    for (int n = 1; n <= step.Records; ++n) {
        const std::size_t start = length * (static_cast<std::size_t>(n) - 1);
        target.SetRecord(n, Neuer_Satz(step, std::string_view(source).substr(start, length)));
    }
}

void Zuruecklegen(const FileStore& files, const std::string& path, ReadStatus before, std::string_view bytes) {
    if (before == ReadStatus::Missing) {
        files.Remove(path);
    } else {
        files.Replace(path, bytes);
    }
}

} // namespace

bool Datei_Umstellen(Kern& kern, const Umstellung& step) {
    const FileStore& files = kern.Welt.Files;
    const std::string directory = kern.DatPfad();
    const std::string sourcePath = directory + std::string(step.Source.File);
    const std::string targetPath = directory + std::string(step.Target.File);
    if (!files.Datei_Vorhanden(sourcePath)) {
        return true;
    }
    RecordFile source(step.Source);
    if (source.Laden(files, directory) != ReadStatus::Ok) {
        return false;
    }
    RecordFile target(step.Target);
    const ReadStatus before = target.Laden(files, directory);
    if (before == ReadStatus::Error) {
        return false;
    }
    const std::string old = target.Bytes();
    Saetze_Uebertragen(step, source.Bytes(), target);
    if (!target.Speichern(files, directory)) {
        return false;
    }
    if (!files.Remove(sourcePath)) {
        Zuruecklegen(files, targetPath, before, old);
        return false;
    }
    kern.Meldung(kern.Zeile(ZeileUmgestellt) + std::string(step.Literal), Buttons::Ok, Icon::Information);
    return true;
}

} // namespace qvm
